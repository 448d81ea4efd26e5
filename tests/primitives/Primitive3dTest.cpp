// The 3D primitives in a scene read from ZPX: what they take from the object above their
// image, what they write back, and what the reader refuses in them.
#include "document/ZpxTestHelpers.h"
#include "support/Reports.h"

#include <grafel/arbor/DomException.h>
#include <grafel/primitives/Box.h>
#include <grafel/primitives/Poly2d.h>
#include <grafel/primitives/Poly3d.h>
#include <grafel/primitives/Sphere.h>

#include <gtest/gtest.h>

using namespace ZpxTest;

namespace {

/// A page with one 3D object whose image holds `primitives`; `objectAttributes` stand on the
/// object.
std::string scene(const std::string& primitives, const std::string& objectAttributes = "") {
    return "<Canvas version='1'><ObjStyle Type='Default' Shading='Smooth' LineWidth='0.35'/>"
           "<Scene3d><CoordinateSystem3d><Obj3d Type='PrimitiveList3d'" +
           objectAttributes + "><Img3d>" + primitives +
           "</Img3d></Obj3d></CoordinateSystem3d></Scene3d></Canvas>";
}

} // namespace

// Each refusal leaves an empty page behind, with the element's own report or none.
TEST(Primitive3d, RefusedContentIsReportedAndLeavesAValidPage) {
    const struct {
        const char* primitives;
        const char* report; // null: refused without a report
    } cases[] = {
        {"<Sphere><Cone/></Sphere>", nullptr},
        {"<Pts3d><Sphere/></Pts3d>", nullptr},
        {"<Text3d>x<Sphere/></Text3d>", "not a text node child [parent 'Text3d']\n"},
        {"<Arrow3d TubeDiameter='0'/>", "illegal value [attribute 'TubeDiameter']\n"},
        {"<Plane VMesh='-3'/>", "illegal value [attribute 'VMesh']\n"},
        {"<Poly3d PointSize='0'/>", "illegal value [attribute 'PointSize']\n"},
        {"<Box XMin='wide'/>", "illegal value string [attribute 'XMin']\n"},
    };
    PlotDocument doc;
    for (const auto& c : cases) {
        SCOPED_TRACE(c.primitives);
        EXPECT_FALSE(load(doc, scene(c.primitives)));
        EXPECT_TRUE(isFreshCanvas(doc));
        EXPECT_EQ(messages(),
                  c.report ? std::vector<std::string>{c.report} : std::vector<std::string>{});
    }
    // Text in a primitive that keeps none is not read; a negative radius is kept as it is, and
    // so is a word outside the vocabulary.
    ASSERT_TRUE(load(doc, scene("<Sphere Radius='-2' Shading='Gouraud'>text</Sphere>")));
    EXPECT_TRUE(messages().empty());
    auto* sphere = static_cast<Sphere*>(find(&doc, tok_Sphere));
    EXPECT_EQ(sphere->getRadius(), -2.0);
    EXPECT_FALSE(sphere->hasChildNodes());
    EXPECT_STREQ(sphere->getShading().text(), "Gouraud");

    // A mandatory value cannot be removed, silently, and stays as it was.
    const std::string before = xml(doc);
    EXPECT_EQ(TestSupport::domCode([&] { sphere->removeAttribute(tok_Radius); }), 15);
    EXPECT_TRUE(messages().empty());
    EXPECT_EQ(xml(doc), before);
}

// Read into a scene, the primitives take what they do not state from the object above their
// image and its styles, write back only what they state, and read back to the same bytes.
TEST(Primitive3d, InheritFromTheObjectAndWriteWhatWasStated) {
    PlotDocument doc;
    ASSERT_TRUE(load(doc, scene("<Sphere Center='0 0 1'/><Arrow3d To='2 0 0' LineWidth='1'/>"
                                "<Poly3d LinesVisible='1'><P3>0 0 0 #ff0000</P3>"
                                "<P3>1 0 0 #00ff00</P3></Poly3d><Text3d>x</Text3d><Box/>",
                                " FillColor='#336699' TipLength='6'")));
    auto* sphere = static_cast<Sphere*>(find(&doc, tok_Sphere));
    auto* poly = static_cast<Poly3d*>(find(&doc, tok_Poly3d));
    auto* arrow = find(&doc, tok_Arrow3d);
    EXPECT_EQ(sphere->getFillColor(), RGBA(0x33, 0x66, 0x99, 0xff)); // the object's
    EXPECT_EQ(sphere->getShading(), tok_Smooth);                     // the Default style's
    EXPECT_EQ(poly->getLineWidth(), 0.35);
    EXPECT_EQ(arrow->getProperty(tok_TipLength), Arbor::DoubleVariant(6.0));
    EXPECT_EQ(arrow->getProperty(tok_LineWidth), Arbor::DoubleVariant(1.0)); // its own
    // A polygon in space is filled by default, one in the plane is not.
    EXPECT_TRUE(poly->getFilled());
    EXPECT_FALSE(
        Arbor::Ref<Poly2d>(static_cast<Poly2d*>(doc.createPlotElement(tok_Poly2d)))->getFilled());
    EXPECT_EQ(poly->size(), 2u);

    // A new box spans -1 to 1, though the default of a maximum is -1.
    auto* box = static_cast<Box*>(find(&doc, tok_Box));
    EXPECT_EQ(box->getXMin(), -1.0);
    EXPECT_EQ(box->getZMax(), 1.0);
    EXPECT_EQ(box->propertyInfo(tok_ZMax)->defaultValue(), Arbor::DoubleVariant(-1.0));

    const std::string once = xml(doc);
    EXPECT_NE(once.find("<Sphere Radius=\"1\" Center=\"0 0 1\"></Sphere>"), std::string::npos)
        << once;
    PlotDocument again;
    ASSERT_TRUE(load(again, once));
    EXPECT_EQ(xml(again), once);
}
