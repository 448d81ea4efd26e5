#include "document/ZpxTestHelpers.h"
#include "support/Forms.h"

#include <gtest/gtest.h>

#include <sstream>
#include <stdexcept>
#include <string>

using namespace Grafel;
using Arbor::Ref;
using Arbor::Token;

namespace {

// Concrete lists as the primitives make them: a tag, a table of their own (the 2D one), and a
// cloneNode through the copy constructor.
using ZpxTest::TestPoly2;
using TestMesh3 = ZpxTest::TestPoly3;

using TestSupport::xml;

const RGBA red(255, 0, 0, 255);
const RGBA seeThrough(0, 128, 255, 16);

struct PointList : ::testing::Test {
    ElementDocument doc;
    Ref<TestPoly2> poly = new TestPoly2(&doc);
    Ref<TestMesh3> mesh = new TestMesh3(&doc);
};

TEST_F(PointList, EmptyArraysAreNullEvenWithStorage) {
    auto allNull = [&] {
        return !poly->points() && !poly->colors() && !mesh->points() && !mesh->normals() &&
               !mesh->firstColors() && !mesh->secondColors();
    };
    EXPECT_TRUE(allNull());
    // Storage without elements must not leak out as a pointer.
    poly->reserve(8, true);
    mesh->reserve(8, true, 2);
    EXPECT_TRUE(allNull());
    poly->push_back(P2(1, 2), red);
    mesh->push_back(P3(1, 2, 3), P3(0, 0, 1), red, red);
    EXPECT_NE(mesh->secondColors(), nullptr);
    poly->clear();
    mesh->clear();
    EXPECT_TRUE(allNull());
}

TEST_F(PointList, ColourStateAfterEachForm) {
    poly->push_back(P2(0, 0), red);
    EXPECT_TRUE(poly->colored());
    poly->push_back(P2(1, 1)); // one plain point uncolours the whole P2List
    EXPECT_FALSE(poly->colored());
    EXPECT_EQ(poly->colors(), nullptr);
    EXPECT_EQ(poly->size(), 2u);

    mesh->push_back(P3(0, 0, 0), red);
    EXPECT_EQ(mesh->numColors(), 1);
    EXPECT_FALSE(mesh->hasNormals());
    Ref<TestMesh3> two = new TestMesh3(&doc);
    two->push_back(P3(0, 0, 0), P3(0, 0, 1), red, seeThrough);
    EXPECT_EQ(two->numColors(), 2);
    two->push_back(P3(1, 1, 1)); // while a plain point drops nothing from a P3List
    EXPECT_EQ(two->numColors(), 2);
    EXPECT_TRUE(two->hasNormals());
    EXPECT_EQ(two->secondColorAt(0), seeThrough);
}

TEST_F(PointList, IndexedAccessChecksAgainstItsOwnArray) {
    EXPECT_THROW(poly->pointAt(0), std::out_of_range);
    poly->push_back(P2(1, 2));
    EXPECT_EQ(poly->pointAt(0), P2(1, 2));
    EXPECT_THROW(poly->pointAt(poly->size()), std::out_of_range);
    EXPECT_THROW(poly->colorAt(0), std::out_of_range);

    // Index 1 is a point but has neither normal nor colour.
    mesh->push_back(P3(0, 0, 0), P3(0, 0, 1), red);
    mesh->push_back(P3(1, 1, 1));
    EXPECT_NO_THROW(mesh->pointAt(1));
    EXPECT_THROW(mesh->normalAt(1), std::out_of_range);
    EXPECT_THROW(mesh->firstColorAt(1), std::out_of_range);
    EXPECT_THROW(mesh->secondColorAt(0), std::out_of_range);
}

TEST_F(PointList, PushingAnOwnElementSurvivesRegrowth) {
    poly->push_back(P2(1, 2), red);
    mesh->push_back(P3(1, 2, 3), P3(4, 5, 6), red, seeThrough);
    // Each push copies the last element, and whenever the arrays are full they move while the
    // arguments refer into them: a bad read anywhere shows at the end.
    for (std::size_t i = 0; i < 40; ++i) {
        poly->push_back(poly->points()[i], poly->colors()[i]);
        mesh->push_back(mesh->points()[i], mesh->normals()[i], mesh->firstColors()[i],
                        mesh->secondColors()[i]);
    }
    EXPECT_EQ(poly->pointAt(40), P2(1, 2));
    EXPECT_EQ(poly->colorAt(40), red);
    EXPECT_EQ(mesh->pointAt(40), P3(1, 2, 3));
    EXPECT_EQ(mesh->normalAt(40), P3(4, 5, 6));
    EXPECT_EQ(mesh->secondColorAt(40), seeThrough);
}

TEST_F(PointList, P2FormsAndEmptyList) {
    EXPECT_EQ(xml(poly.get()), "<Row1></Row1>");
    poly->setAttributeString(tok_Closed, "1");
    EXPECT_EQ(xml(poly.get()), "<Row1 Closed=\"1\"></Row1>");

    poly->push_back(P2(1.5, -2));
    poly->push_back(P2(0, 1e-7));
    EXPECT_EQ(xml(poly.get()), "<Row1 Closed=\"1\"><P2>1.5 -2</P2><P2>0 1e-07</P2></Row1>");

    Ref<TestPoly2> colored = new TestPoly2(&doc);
    colored->push_back(P2(1, 2), red);
    colored->push_back(P2(3, 4), seeThrough);
    EXPECT_EQ(xml(colored.get()), "<Row1><P2>1 2 #ff0000</P2><P2>3 4 #0080ff10</P2></Row1>");
}

TEST_F(PointList, P3FormsFollowNormalsAndColourCount) {
    EXPECT_EQ(xml(mesh.get()), "<Row2></Row2>");

    const P3 p(1, 2, 3), n(0, 0, -1);
    struct Case {
        void (*push)(P3List&, P3, P3);
        const char* point;
    };
    const Case cases[] = {
        {[](P3List& l, P3 p, P3) { l.push_back(p); }, "1 2 3"},
        {[](P3List& l, P3 p, P3) { l.push_back(p, red); }, "1 2 3 #ff0000"},
        {[](P3List& l, P3 p, P3) { l.push_back(p, red, seeThrough); }, "1 2 3 #ff0000 #0080ff10"},
        {[](P3List& l, P3 p, P3 n) { l.push_back(p, n); }, "1 2 3 0 0 -1"},
        {[](P3List& l, P3 p, P3 n) { l.push_back(p, n, red); }, "1 2 3 0 0 -1 #ff0000"},
        {[](P3List& l, P3 p, P3 n) { l.push_back(p, n, red, seeThrough); },
         "1 2 3 0 0 -1 #ff0000 #0080ff10"},
    };
    for (const Case& c : cases) {
        Ref<TestMesh3> list = new TestMesh3(&doc);
        c.push(*list, p, n);
        c.push(*list, p, n);
        const std::string one = std::string("<P3>") + c.point + "</P3>";
        EXPECT_EQ(xml(list.get()), "<Row2>" + one + one + "</Row2>") << c.point;
    }
}

TEST_F(PointList, NumbersFollowTheStreamSettings) {
    poly->push_back(P2(0.123456789, 2.0 / 3.0));
    EXPECT_EQ(xml(poly.get()), "<Row1><P2>0.123457 0.666667</P2></Row1>");
    std::ostringstream out;
    out.precision(17);
    poly->putXml(out);
    EXPECT_EQ(out.str(), "<Row1><P2>0.123456789 0.66666666666666663</P2></Row1>");
}

TEST_F(PointList, ShortParallelArrayIsNotReadPast) {
    // Mixed forms break the invariant; the writer keeps the form and stops at the short array.
    poly->push_back(P2(1, 1));
    poly->push_back(P2(2, 2), red);
    EXPECT_EQ(xml(poly.get()), "<Row1><P2>1 1 #ff0000</P2></Row1>");
    mesh->push_back(P3(1, 1, 1), P3(0, 0, 1), red, red);
    mesh->push_back(P3(2, 2, 2), P3(0, 0, 1), red);
    EXPECT_EQ(xml(mesh.get()), "<Row2><P3>1 1 1 0 0 1 #ff0000 #ff0000</P3></Row2>");
}

TEST_F(PointList, ReserveAvoidsRegrowthAndShrinkEndsAtSize) {
    mesh->reserve(100, true, 2);
    mesh->push_back(P3(0, 0, 0), P3(0, 0, 1), red, red);
    const RGBA* second = mesh->secondColors();
    for (int i = 1; i < 100; ++i) mesh->push_back(P3(i, i, i), P3(0, 0, 1), red, red);
    EXPECT_EQ(mesh->secondColors(), second);

    for (int i = 0; i < 100; ++i) poly->push_back(P2(i, i), red);
    poly->shrinkToFit();
    EXPECT_EQ(poly->capacity(), poly->size());
}

TEST_F(PointList, CopiesTakeEveryArrayAlong) {
    poly->setAttributeString(tok_Closed, "1");
    poly->push_back(P2(1, 2), red);
    mesh->push_back(P3(1, 2, 3), P3(0, 0, 1), red, seeThrough);
    Ref<Arbor::Node> polyCopy = poly->cloneNode(false);
    Ref<Arbor::Node> meshCopy = mesh->cloneNode(false);
    poly->push_back(P2(3, 4)); // the copies are independent of the originals
    mesh->clear();
    const std::string meshText = "<Row2><P3>1 2 3 0 0 1 #ff0000 #0080ff10</P3></Row2>";
    EXPECT_EQ(xml(polyCopy.get()), "<Row1 Closed=\"1\"><P2>1 2 #ff0000</P2></Row1>");
    EXPECT_EQ(xml(meshCopy.get()), meshText);

    // Assignment replaces every array, with full ones and with empty ones.
    static_cast<P3List&>(*mesh) = static_cast<TestMesh3&>(*meshCopy);
    EXPECT_EQ(xml(mesh.get()), meshText);
    static_cast<P3List&>(*mesh) = *Ref<TestMesh3>(new TestMesh3(&doc));
    EXPECT_EQ(xml(mesh.get()), "<Row2></Row2>");
}

} // namespace
