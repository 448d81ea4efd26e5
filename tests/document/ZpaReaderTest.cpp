#include "document/ZpxTestHelpers.h"

#include <grafel/arbor/Text.h>
#include <grafel/document/ZpaSources.h>

#include <gtest/gtest.h>

#include <new>
#include <random>
#include <sstream>

using namespace Grafel;
using Arbor::Node;
using ZpxTest::isFreshCanvas;

namespace {

// The per-character path: one virtual call for each character, as a host writes it.
class CharParser : public ZpaParser {
public:
    CharParser(PlotDocument* document, std::string text)
        : ZpaParser(document), text_(std::move(text)) {}
    bool readChar(int& c) override {
        if (at_ == text_.size()) return false;
        c = text_[at_] == '\x01' ? -1 : static_cast<unsigned char>(text_[at_]);
        ++at_;
        return true;
    }
    void setText(std::string text) {
        text_ = std::move(text);
        at_ = 0;
    }

private:
    std::string text_;
    std::size_t at_ = 0;
};

enum class Path { Memory, Stream, Chars };

// Loads `text` through one path; answers the cause (0 for success).
int load(PlotDocument& doc, const std::string& text, Path path = Path::Memory) {
    std::istringstream in(text);
    ZpaMemoryParser memory(&doc, text.data(), text.size());
    ZpaStreamParser stream(&doc, in);
    CharParser chars(&doc, text);
    ZpaParser& parser = path == Path::Memory   ? static_cast<ZpaParser&>(memory)
                        : path == Path::Stream ? static_cast<ZpaParser&>(stream)
                                               : chars;
    const bool ok = parser.parse();
    EXPECT_EQ(ok, parser.errorCause() == 0) << "a fresh parser has cause 0 until it fails";
    EXPECT_EQ(doc.batchDepth(), 0);
    return ok ? 0 : parser.errorCause();
}

bool canCreate(std::initializer_list<Arbor::Token> tags) {
    PlotDocument doc;
    for (Arbor::Token t : tags)
        if (!Tessel::Ref<Arbor::Element>(doc.createElement(t))) return false;
    return true;
}

PlotElement* child(Node* parent, Arbor::Token tag, unsigned index = 0) {
    for (Node* n = parent ? parent->firstChild() : nullptr; n; n = n->nextSibling())
        if (n->nodeType() == Node::ElementNode &&
            static_cast<Arbor::Element*>(n)->tagName() == tag && index-- == 0)
            return PlotElement::from(n);
    return nullptr;
}

std::wstring exprText(PlotElement* object, Arbor::Token opt) {
    for (Node* n = object->firstChild(); n; n = n->nextSibling()) {
        auto* e = dynamic_cast<PlotElement*>(n);
        if (e && e->tagName() == tok_Expr &&
            e->getAttribute(tok_Opt).as<Arbor::TokenVariant>()->val() == opt)
            return static_cast<Arbor::Text*>(e->firstChild())->data();
    }
    return L"<none>";
}

// The effective value: a colour equal to what the object's style gives is not kept as its own.
RGBA color(PlotElement* e, Arbor::Token name) {
    return e->getProperty(name).as<RGBAVariant>()->val();
}

PlotElement* coordinateSystem(PlotDocument& doc, int d) {
    return child(child(doc.documentElement(), d == 2 ? tok_Scene2d : tok_Scene3d),
                 d == 2 ? tok_CoordinateSystem2d : tok_CoordinateSystem3d);
}

std::string repeat(const std::string& line, long n) {
    std::string s;
    for (long i = 0; i < n; ++i) s += line;
    return s;
}

// Every record kind of a plane plot: three curves, a primitive list, a skipped record, a
// fourth curve; CRLF line ends, a stray carriage return, a magic that differs in its last
// character.
const std::string plane = "Zeph-Ascii-DatX\r\nwritten by a test\n 2 5 \n"
                          "0\nsin(t)\ncos(t)\n5 2\nt\n0\n6.\r28\n" +
                          repeat("1 2\n", 13) + "0\nt\nt^2\n2 0\nt\n-1\n 1 trailing\n" +
                          repeat("3 4\n", 2) +
                          "1\n4\n1 1\n0.5 0.25 0.25 1.5 -0.5\n3 0\n0 1\n1 0 1\n0 0\n1 1\n2 1\n"
                          "0 0 1 0 0\n1 1 0 1 0\n1 0\n7 8\n4\n2\nany\nthing\n\n9\nx\n\n"
                          "0\nt\nt\n2 0\nt\n0\n1\n0 0\n1 1\n";

} // namespace

TEST(ZpaReader, PlaneRecordsBuildTheTree) {
    PlotDocument doc;
    ASSERT_EQ(load(doc, plane), 0);
    Arbor::Element* canvas = doc.documentElement();
    ASSERT_EQ(canvas->tagName(), tok_Canvas);
    EXPECT_NE(child(canvas, tok_ObjStyle), nullptr) << "the style library is there";
    PlotElement* system = coordinateSystem(doc, 2);
    ASSERT_NE(system, nullptr);

    // Curves take palette entries 0, 1, 2, 3 (the list takes none); m = 5, s = 2 gives 13.
    const RGBA expected[] = {{0xff, 0, 0, 255}, {0xff, 0x99, 0, 255}, {0x99, 0xcc, 0, 255}};
    PlotElement* first = child(system, tok_Obj2d, 0);
    EXPECT_EQ(first->getAttribute(tok_Type).as<Arbor::TokenVariant>()->val(), tok_Curve2d);
    EXPECT_EQ(color(first, tok_LineColor), expected[0]);
    EXPECT_EQ(color(child(system, tok_Obj2d, 1), tok_LineColor), expected[1]);
    EXPECT_EQ(color(child(system, tok_Obj2d, 3), tok_LineColor), expected[2]);
    EXPECT_FALSE(first->getAttribute(tok_Filled).as<Arbor::BoolVariant>()->val());
    EXPECT_EQ(first->getAttribute(tok_USubmesh).as<Arbor::LongVariant>()->val(), 2);
    EXPECT_EQ(exprText(first, tok_XFunction), L"sin(t)");
    EXPECT_EQ(exprText(first, tok_UMax), L"6.28") << "a carriage return inside a line is dropped";
    EXPECT_EQ(exprText(child(system, tok_Obj2d, 1), tok_UMax), L" 1 trailing");
    auto* poly = dynamic_cast<P2List*>(child(child(first, tok_Img2d), tok_Poly2d));
    ASSERT_NE(poly, nullptr);
    EXPECT_EQ(poly->size(), 13u);
    EXPECT_FALSE(poly->colored());

    // The primitive list: a coloured point whose fractions wrap, an open filled triangle
    // (the plane keeps closed as given), a coloured segment, a plain point.
    PlotElement* list = child(system, tok_Obj2d, 2);
    EXPECT_EQ(list->getAttribute(tok_Type).as<Arbor::TokenVariant>()->val(), tok_PrimitiveList2d);
    PlotElement* image = child(list, tok_Img2d);
    PlotElement* pt = child(image, tok_Pt2d);
    EXPECT_EQ(color(pt, tok_PointColor), RGBA(63, 126, 129, 255)) << "0.25, 1.5, -0.5";
    EXPECT_EQ(pt->getAttribute(tok_Position).as<P2Variant>()->val().y, 0.25);
    EXPECT_TRUE(pt->getAttribute(tok_PointsVisible).as<Arbor::BoolVariant>()->val());
    PlotElement* triangle = child(image, tok_Poly2d, 0);
    EXPECT_TRUE(triangle->getAttribute(tok_Filled).as<Arbor::BoolVariant>()->val());
    EXPECT_FALSE(triangle->hasAttribute(tok_Closed));
    EXPECT_FALSE(triangle->hasAttribute(tok_LinesVisible));
    EXPECT_EQ(dynamic_cast<P2List*>(triangle)->size(), 3u);
    auto* segment = dynamic_cast<P2List*>(child(image, tok_Poly2d, 1));
    ASSERT_TRUE(segment->colored());
    EXPECT_EQ(segment->colorAt(1), RGBA(0, 255, 0, 255));
    EXPECT_TRUE(child(image, tok_Poly2d, 1)
                    ->getAttribute(tok_LinesVisible)
                    .as<Arbor::BoolVariant>()
                    ->val());
    EXPECT_EQ(child(image, tok_Pt2d, 1)->getAttribute(tok_Position).as<P2Variant>()->val().x, 7);

    // The same text gives the same tree through every source, and as ZPX it reads back.
    const std::string written = ZpxTest::xml(doc);
    for (Path path : {Path::Stream, Path::Chars}) {
        PlotDocument other;
        ASSERT_EQ(load(other, plane, path), 0);
        EXPECT_EQ(ZpxTest::xml(other), written);
    }
    PlotDocument reread;
    Grafel::ZpxParserHandler handler(&reread, false, nullptr);
    Grafel::ZpxParser parser(&handler, true, nullptr);
    // ZPX trims texts and drops a zero submesh; what it reads holds the same objects.
    ASSERT_TRUE(parser.parseSave(written.data(), static_cast<int>(written.size()), true));
    EXPECT_EQ(
        dynamic_cast<P2List*>(
            child(child(child(coordinateSystem(reread, 2), tok_Obj2d), tok_Img2d), tok_Poly2d))
            ->size(),
        13u);
}

TEST(ZpaReader, PaletteWrapsAfterSixteenColours) {
    std::string text = "Zeph-Ascii-Data\n\n2 17\n";
    for (int i = 0; i < 17; ++i) text += "0\nt\nt\n2 0\nt\n0\n1\n0 0\n1 1\n";
    PlotDocument doc;
    ASSERT_EQ(load(doc, text), 0);
    PlotElement* system = coordinateSystem(doc, 2);
    EXPECT_EQ(color(child(system, tok_Obj2d, 15), tok_LineColor), RGBA(0x80, 0x80, 0x80, 255));
    EXPECT_EQ(color(child(system, tok_Obj2d, 16), tok_LineColor), RGBA(0xff, 0, 0, 255));
}

TEST(ZpaReader, SpaceRecordsBuildTheTree) {
    if (!canCreate({tok_Poly3d, tok_Pts3d, tok_Mesh3d}))
        GTEST_SKIP() << "the 3D primitives are not in this build";
    // Three curves take palette entries 0 to 2, the surface 3 and 4.
    const std::string curve = "0\nt\nt\nt\n2 0\nt\n0\n1\n0 0 0\n1 1 1\n";
    const std::string text = "Zeph-Ascii-Data\n\n3 5\n" + curve + curve + curve +
                             "2\nu\nv\nu*v\n2 0\n2 0\nu\n0\n1\nv\n0\n1\n" + repeat("1 2 3\n", 4) +
                             "1\n2\n1 1\n1 2 3 1 0 0\n4 0\n0 1\n0 0 0\n1 0 0\n1 1 0\n0 1 0\n";
    PlotDocument doc;
    ASSERT_EQ(load(doc, text), 0);
    PlotElement* scene = child(doc.documentElement(), tok_Scene3d);
    EXPECT_EQ(scene->getProperty(tok_Lighting).as<Arbor::TokenVariant>()->val(), tok_Automatic);
    PlotElement* system = coordinateSystem(doc, 3);
    PlotElement* surface = child(system, tok_Obj3d, 3);
    EXPECT_EQ(color(surface, tok_LineColor), RGBA(0x33, 0x99, 0x66, 255)) << "entry 3";
    EXPECT_EQ(color(surface, tok_FillColor), RGBA(0x33, 0xcc, 0xcc, 255)) << "entry 4";
    EXPECT_TRUE(surface->hasAttribute(tok_USubmesh));
    PlotElement* mesh = child(child(surface, tok_Img3d), tok_Mesh3d);
    EXPECT_EQ(dynamic_cast<P3List*>(mesh)->size(), 4u);
    EXPECT_FALSE(mesh->hasAttribute(tok_USubmesh));
    EXPECT_FALSE(mesh->hasAttribute(tok_VSubmesh));
    PlotElement* image = child(child(system, tok_Obj3d, 4), tok_Img3d);
    PlotElement* pts = child(image, tok_Pts3d);
    // A point cloud keeps its colour as PointColor: it has no LineColor.
    EXPECT_EQ(color(pts, tok_PointColor), RGBA(255, 0, 0, 255));
    EXPECT_EQ(dynamic_cast<P3List*>(pts)->numColors(), 1);
    PlotElement* quad = child(image, tok_Poly3d);
    EXPECT_TRUE(quad->getAttribute(tok_Closed).as<Arbor::BoolVariant>()->val())
        << "filled in space forces closed";
}

// Each case ends in a clean failed load with its cause, and leaves an empty page.
TEST(ZpaReader, BadInputFailsCleanlyWithItsCause) {
    const std::string head2 = "Zeph-Ascii-Data\n\n2 1\n";
    const std::string curve = "0\nt\nt\n2 0\nt\n0\n1\n";
    struct Case {
        const char* what;
        std::string text;
        int cause;
    };
    std::string garbage(4096, '\0');
    std::mt19937 random(7);
    for (char& c : garbage) c = static_cast<char>(random());
    const std::vector<Case> cases = {
        {"empty input", "", 2},
        {"only carriage returns", std::string(100000, '\r'), 2},
        {"last line without its line feed", head2 + curve + "0 0\n1 1", 2},
        {"a skipped record cut short", head2 + "4\n2\na\nb\nc\n", 2},
        {"wrong first line", "Zeph-Ascii-Dxta\n\n2 1\n", 3},
        {"binary garbage", garbage, 3},
        {"header with one number", "Zeph-Ascii-Data\n\n2\n", 3},
        {"kind not a number", head2 + "x\n", 3},
        {"point with one field", head2 + curve + "0\n1 1\n", 3},
        {"range line not a number", head2 + "0\nt\nt\n2 0\nt\nzero\n", 3},
        {"primitive head with one number", head2 + "1\n1\n1\n", 3},
        {"polygon flags missing", head2 + "1\n1\n3 0\nx\n", 3},
        {"coloured point without colour", head2 + "1\n1\n1 1\n0 0\n", 3},
        {"a line of a million characters", head2 + curve + std::string(1000000, '7') + "\n", 3},
        {"dimension 4", "Zeph-Ascii-Data\n\n4 1\n", 4},
        {"no records", "Zeph-Ascii-Data\n\n2 0\n", 4},
        {"kind 3", head2 + "3\n", 4},
        {"kind 5", head2 + "5\n", 4},
        {"kind -1", head2 + "-1\n", 4},
        {"mesh below 2", head2 + "0\nt\nt\n1 0\n", 4},
        {"negative submesh", head2 + "0\nt\nt\n2 -1\n", 4},
        {"surface in the plane, before its lines", head2 + "2\n", 4},
        {"primitive without vertices", head2 + "1\n1\n0 0\n", 4},
        {"negative skip", head2 + "4\n-1\n", 4},
        {"record count 2^31", "Zeph-Ascii-Data\n\n2 2147483648\n" + curve + "0 0\n1 1\n", 2},
        {"point count 2^31", head2 + "0\nt\nt\n2147483648 0\nt\n0\n1\n0 0\n", 2},
        {"point count beyond long", head2 + "0\nt\nt\n9223372036854775807 9\nt\n0\n1\n", 2},
        {"vertex count 2^31", head2 + "1\n1\n2147483648 0\n0 0\n1 1\n", 2},
        {"vertex count -1", head2 + "1\n1\n-1 0\n", 4},
    };
    for (const Case& c : cases) {
        for (Path path : {Path::Memory, Path::Chars}) {
            SCOPED_TRACE(c.what);
            PlotDocument doc;
            EXPECT_EQ(load(doc, c.text, path), c.cause);
            EXPECT_TRUE(isFreshCanvas(doc));
        }
    }
    // A delivered -1 is a character out of place, wherever it stands.
    PlotDocument doc;
    EXPECT_EQ(load(doc, "Zeph-Ascii-Data\n\x01\n2 1\n", Path::Chars), 3);
    EXPECT_TRUE(isFreshCanvas(doc));
    // A failed allocation mid-load is a value out of range.
    struct Exhausted : CharParser {
        using CharParser::CharParser;
        bool readChar(int& c) override {
            if (++read_ > 40) throw std::bad_alloc();
            return CharParser::readChar(c);
        }
        int read_ = 0;
    } exhausted(&doc, plane);
    EXPECT_FALSE(exhausted.parse());
    EXPECT_EQ(exhausted.errorCause(), 4);
    EXPECT_TRUE(isFreshCanvas(doc));
    EXPECT_EQ(doc.batchDepth(), 0);
    // A list count of -1 is an empty list, not a failure.
    EXPECT_EQ(load(doc, head2 + "1\n-1\n"), 0);
}

TEST(ZpaReader, EveryTruncationFailsWithCauseTwo) {
    for (std::size_t n = 0; n < plane.size(); ++n) {
        PlotDocument doc;
        ASSERT_EQ(load(doc, plane.substr(0, n), n % 2 ? Path::Stream : Path::Memory), 2) << n;
        ASSERT_TRUE(isFreshCanvas(doc)) << n;
    }
}

TEST(ZpaReader, CauseOutlivesALaterSuccess) {
    PlotDocument doc;
    CharParser bad(&doc, "nothing\n");
    EXPECT_FALSE(bad.parse());
    EXPECT_EQ(bad.lineNumber(), 1);
    bad.setText(plane);
    EXPECT_TRUE(bad.parse());
    EXPECT_EQ(bad.errorCause(), 3);
    EXPECT_NE(child(doc.documentElement(), tok_Scene2d), nullptr);
}
