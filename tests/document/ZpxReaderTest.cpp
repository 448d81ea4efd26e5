#include "document/ZpxTestHelpers.h"

#include <grafel/catalogue/Prop.h>
#include <grafel/catalogue/PropCat.h>
#include <grafel/properties/Expr.h>
#include <grafel/structure/ObjType.h>
#include <grafel/structure/TimeRange.h>

#include <gtest/gtest.h>

#include <new>
#include <random>
#include <set>
#include <stdexcept>

using namespace Grafel;
using namespace ZpxTest;

namespace ZpxTest {
// The tables of the stand-ins, defined once for the test program.
GRAFEL_DEFINE_MEMBER_PROPERTIES(TestPoly2, ZPX_TEST_POLY_TABLE)
} // namespace ZpxTest

namespace {

const std::string ns = "http://grafel.org/xml/Orthelia";

std::wstring textOf(Arbor::Node* element) {
    std::wstring out;
    for (Arbor::Node* n = element->firstChild(); n; n = n->nextSibling())
        if (n->asText()) out += n->nodeValue();
    return out;
}

std::vector<Arbor::Node*> children(Arbor::Node* parent) {
    std::vector<Arbor::Node*> out;
    for (Arbor::Node* n = parent->firstChild(); n; n = n->nextSibling()) out.push_back(n);
    return out;
}

struct ZpxReader : ::testing::Test {
    TestClasses classes;
    PlotDocument doc;
    PlotElement* root() { return PlotElement::from(doc.documentElement()); }
    // Loads and expects a failure that leaves an empty page behind.
    void fails(const std::string& text) {
        SCOPED_TRACE(text.substr(0, 200));
        EXPECT_FALSE(load<TestHandler>(doc, text));
        EXPECT_TRUE(isFreshCanvas(doc));
    }
    // ... with this one report.
    void fails(const std::string& text, const std::string& report) {
        fails(text);
        EXPECT_EQ(messages(), std::vector<std::string>{report}) << text.substr(0, 200);
    }
};

} // namespace

TEST_F(ZpxReader, NamesAreResolvedWithFourReports) {
    const std::pair<std::string, std::string> cases[] = {
        {"<Canvas xmlns='http://other.org/x'/>", "unknown namespace 'http://other.org/x'\n"},
        {"<Canvas xmlns:o='http://other.org/x' o:Width='3'/>",
         "unknown namespace 'http://other.org/x'\n"},
        {"<Canvas><Nonsense/></Canvas>", "unknown element 'Nonsense'\n"},
        {"<Canvas Nonsense='1'/>", "unknown attribute 'Nonsense'\n"},
        {"<Canvas><Width/></Canvas>", "not an element 'Width'\n"},
        {"<Canvas Obj2d='1'/>", "not an attribute 'Obj2d'\n"},
        {"<Canvas><Dashed/></Canvas>", "not an element 'Dashed'\n"},
    };
    for (const auto& [text, report] : cases) {
        fails(text, report);
        // The prefix arrives as a call of its own, before the message.
        ASSERT_EQ(calls().size(), 2u);
        EXPECT_EQ(calls()[0], "ZPX error: ");
    }
    // The dialect's namespace, by default or by prefix, and no namespace, are all read.
    for (std::string text :
         {"<Canvas xmlns='" + ns + "' Width='50'/>",
          "<z:Canvas xmlns:z='" + ns + "' z:Width='50'/>", std::string("<Canvas Width='50'/>")}) {
        ASSERT_TRUE(load(doc, text)) << text;
        EXPECT_EQ(root()->getProperty(tok_Width).as<Arbor::DoubleVariant>()->val(), 50.0);
    }
}

TEST_F(ZpxReader, GroupsAttachAsTheirTagsSay) {
    const std::string text = R"(<Canvas>
        <TimeRange TimeBegin="1" TimeEnd="2"/>
        <TimeRange TimeBegin="3" TimeEnd="4"/>
        <ObjStyle Type="Curve2d" LineWidth="2"/>
        <Obj2d Type="Function2d" id="a">
          <Title>  first  </Title>
          <Title>second</Title>
          <Expr Opt="Function">  sin( x )
          </Expr>
          <ColorFunc Opt="LineColorFunction"><IExpr>u</IExpr><IExpr>v</IExpr></ColorFunc>
          <ExprSeq Opt="Levels"><IExpr>1</IExpr><IExpr/><IExpr>3</IExpr></ExprSeq>
          <ParameterBegin Val="-1">a</ParameterBegin>
          <Prop Opt="Mesh" Val=""/>
        </Obj2d>
        <Obj2d Type="Curve2d"/>
        <ObjType Type="Curve2d"><PropCat Name="Main"><PropCat Name="Sub"/></PropCat></ObjType>
      </Canvas>)";
    ASSERT_TRUE(load(doc, text)) << ::testing::PrintToString(messages());
    EXPECT_TRUE(messages().empty());
    EXPECT_EQ(doc.batchDepth(), 0);

    // A second single replaces the first; typed elements are appended; texts are trimmed; items
    // overwrite the default children position by position, then append.
    std::ostringstream out;
    root()->putXml(out);
    EXPECT_EQ(
        out.str(),
        "<Canvas xmlns=\"" + ns +
            "\"><TimeRange TimeEnd=\"4\" TimeBegin=\"3\"></TimeRange>"
            "<ObjStyle Type=\"Curve2d\" LineWidth=\"2\"></ObjStyle><Obj2d Type=\"Function2d\">"
            "<Title>second</Title><Expr Opt=\"Function\">sin( x )</Expr>"
            "<ColorFunc Opt=\"LineColorFunction\"><IExpr>u</IExpr><IExpr>v</IExpr></ColorFunc>"
            "<ExprSeq Opt=\"Levels\"><IExpr>1</IExpr><IExpr></IExpr><IExpr>3</IExpr></ExprSeq>"
            "<ParameterBegin Val=\"-1\">a</ParameterBegin><Prop Val=\"\" Opt=\"Mesh\"></Prop>"
            "</Obj2d><Obj2d Type=\"Curve2d\"></Obj2d><ObjType Type=\"Curve2d\"><PropCat "
            "Name=\"Main\"><PropCat Name=\"Sub\"></PropCat></PropCat></ObjType></Canvas>");
    PlotElement* obj = PlotElement::from(root()->findChild(tok_Obj2d));
    EXPECT_EQ(obj->getProperty(tok_id).as<Arbor::FixedStringVariant>()->val().view(), "a");
    ASSERT_EQ(children(obj->findChild(tok_Expr)).size(), 1u); // the trimmed text alone
    // An empty element gets an empty text child.
    Arbor::Node* empty = children(obj->findChild(tok_ExprSeq))[1];
    ASSERT_EQ(children(empty).size(), 1u);
    EXPECT_EQ(textOf(empty), L"");
}

TEST_F(ZpxReader, DroppedIdsAndVersions) {
    ASSERT_TRUE(load(doc, "<Canvas id='p'><Obj2d Type='Curve2d' id='o'/></Canvas>", true));
    EXPECT_FALSE(root()->hasAttribute(tok_id));
    EXPECT_FALSE(PlotElement::from(root()->firstChild())->hasAttribute(tok_id));

    // A newer file is reported and read as far as its names are known.
    ASSERT_TRUE(load(doc, "<Canvas version='2' Width='70'><TimeRange/></Canvas>"));
    EXPECT_EQ(messages(), std::vector<std::string>{"unknown version '2'\n"});
    EXPECT_EQ(root()->getProperty(tok_Width).as<Arbor::DoubleVariant>()->val(), 70.0);
    EXPECT_TRUE(root()->hasChildNodes());
    ASSERT_TRUE(load(doc, "<Canvas version='1'/>"));
    EXPECT_TRUE(messages().empty());
}

TEST_F(ZpxReader, RefusedContentLeavesAnEmptyPage) {
    // A tree from before is lost once the load reaches the Canvas.
    ASSERT_TRUE(load(doc, "<Canvas Width='50'><TimeRange/></Canvas>"));
    // Missing mandatory values: refused without a report.
    for (const char* text : {"<Canvas><Obj2d/></Canvas>",
                             "<Canvas><Obj2d Type='Curve2d'><Expr>x</Expr></Obj2d></Canvas>",
                             "<Canvas><Obj2d Type='Curve2d'><ExprSeq/></Obj2d></Canvas>",
                             "<Canvas><Obj2d Type='Curve2d'><Prop Val='1'/></Obj2d></Canvas>",
                             "<Canvas><ObjType Type='A'><PropCat/></ObjType></Canvas>",
                             "<Canvas><ObjType Type='A'><PropCat Name=''/></ObjType></Canvas>",
                             "<Canvas><ObjType Type='A'><PropCat Name='c'><PropInfo/></PropCat>"
                             "</ObjType></Canvas>"}) {
        fails(text);
        EXPECT_TRUE(messages().empty()) << text;
    }
    // A child its parent refuses, and a bad value, report what the elements say.
    fails("<Canvas><ObjType Type='A'><Prop Opt='a' Val=''/></ObjType></Canvas>");
    fails("<Canvas Width='wide'/>");
    EXPECT_FALSE(messages().empty());
    fails("<Canvas><TimeRange><TimeRange/></TimeRange></Canvas>");
}

// A failed allocation deep in a load, as any exception the reader did not throw itself, ends
// the load like a refused document: an empty page, a closed batch and one report.
template <bool allocation> struct ThrowingHandler : TestHandler {
    using TestHandler::TestHandler;
    void startElement(int ns, int id, const std::vector<Tessel::Xml::Attribute>& a) override {
        if (id == id_Obj2d && allocation) throw std::bad_alloc();
        if (id == id_Obj2d) throw std::length_error("no room");
        TestHandler::startElement(ns, id, a);
    }
};

TEST_F(ZpxReader, ForeignExceptionsFailTheLoad) {
    const std::string text = "<Canvas Width='50'><TimeRange/><Scene2d/>"
                             "<Obj2d Type='Curve2d'/></Canvas>";
    ASSERT_TRUE(load(doc, "<Canvas Width='40'><TimeRange/></Canvas>"));
    EXPECT_FALSE(load<ThrowingHandler<true>>(doc, text, false, 7));
    EXPECT_TRUE(isFreshCanvas(doc));
    EXPECT_EQ(doc.batchDepth(), 0);
    EXPECT_EQ(messages(), std::vector<std::string>{"out of memory\n"});
    EXPECT_FALSE(load<ThrowingHandler<false>>(doc, text));
    EXPECT_TRUE(isFreshCanvas(doc));
    EXPECT_EQ(messages(), std::vector<std::string>{"load failed: no room\n"});
}

TEST_F(ZpxReader, RootAndClassProblems) {
    fails("<Obj2d Type='Curve2d'/>", "document element 'Obj2d' is no Canvas\n");
    fails("<P2>1 2</P2>");
    fails("<Canvas><Canvas/></Canvas>", "illegal Canvas [parent Canvas]\n");
    fails("<Canvas><P2>1 2</P2></Canvas>", "illegal P2 [parent Canvas]\n");
    fails("<Canvas><P3>1 2 3</P3></Canvas>", "illegal P3 [parent Canvas]\n");

    // A tag whose class this build lacks.
    const ElementMaker maker = elementMaker(id_TimeRange);
    registerElementClass(id_TimeRange, nullptr);
    fails("<Canvas><TimeRange/></Canvas>", "element 'TimeRange' is not supported\n");
    registerElementClass(id_TimeRange, maker);
}

TEST_F(ZpxReader, ArraysNeedTheirInterface) {
    // The array tags take their words only into an element that keeps an array.
    const ElementMaker maker = elementMaker(id_ColorArray2d);
    registerElementClass(id_ColorArray2d, &TestPoly2::create);
    fails("<Canvas><ColorArray2d>#ff0000</ColorArray2d></Canvas>",
          "element 'ColorArray2d' keeps no array\n");
    registerElementClass(id_ColorArray2d, maker);
}

TEST_F(ZpxReader, ABatchSpansTheLoad) {
    struct Counter : Arbor::IDocObserver {
        int events = 0;
        int depthSeen = -1;
        PlotDocument* doc = nullptr;
        void handleEvent(Arbor::DomEvent&) override {
            if (!events++) depthSeen = doc->batchDepth();
        }
    } counter;
    counter.doc = &doc;
    doc.addObserver(&counter);
    ZpxParserHandler handler(&doc, false, &collect);
    EXPECT_EQ(doc.batchDepth(), 1);
    ZpxParser parser(&handler, true, nullptr);
    const std::string text = "<Canvas Width='60'><TimeRange TimeEnd='3'/></Canvas>";
    ASSERT_TRUE(parser.parseSave(text.data(), static_cast<int>(text.size()), true));
    EXPECT_EQ(doc.batchDepth(), 0);
    EXPECT_GT(counter.events, 0);
    EXPECT_EQ(counter.depthSeen, 0); // delivered when the batch closed
    doc.removeObserver(&counter);
}

// The point lists, through stand-in list classes.

TEST_F(ZpxReader, P2Points) {
    auto list = [&] { return static_cast<TestPoly2*>(root()->firstChild()); };
    // Each point's numbers and colour are checked against sscanf by the random test; here, what
    // concerns the whole list.
    ASSERT_TRUE(load<TestHandler>(doc, "<Canvas><Row1 Closed='1'>"
                                       "<P2> 1 2 </P2><P2>inf 3</P2><P2>-1.5e3\n.25</P2>"
                                       "</Row1></Canvas>"));
    ASSERT_EQ(list()->size(), 2u); // the "inf" point is dropped without a word
    EXPECT_TRUE(messages().empty());
    EXPECT_EQ(list()->pointAt(1), P2(-1500, 0.25));
    EXPECT_FALSE(list()->colored());
    EXPECT_EQ(list()->capacity(), list()->size()); // trimmed at the end of the list

    const char* colouredThenPlain =
        "<Canvas><Row1><P2>0 1 #ff0000</P2><P2>2 3</P2></Row1></Canvas>";
    fails(colouredThenPlain, "illegal P2 [parent Row1]\n");
    fails("<Canvas><Row1><P2>0 1</P2><P2>2 3 #ff0000</P2></Row1></Canvas>",
          "illegal P2 [parent Row1]\n");
    for (const char* bad : {"1 x", "1", "", "1 2 #zz0000", "1 2 #", "- 1"}) {
        fails(std::string("<Canvas><Row1><P2>") + bad + "</P2></Row1></Canvas>",
              std::string("P2 data corrupted: '") + bad + "'\n");
    }
}

TEST_F(ZpxReader, P3Points) {
    auto list = [&] { return static_cast<TestPoly3*>(root()->firstChild()); };
    ASSERT_TRUE(load<TestHandler>(doc, "<Canvas><Row2>"
                                       "<P3>1 2 3 0 0 1 #ff0000 #0000ff80</P3>"
                                       "<P3>1e31 -1e31 1e999 0 inf 1 #000000 #000000</P3>"
                                       "<P3>4e30 -4e30 1e999 nan 0 1 #ffffff #ffffff</P3>"
                                       "</Row2></Canvas>"));
    ASSERT_EQ(list()->size(), 2u);
    EXPECT_TRUE(list()->hasNormals());
    EXPECT_EQ(list()->numColors(), 2);
    EXPECT_EQ(list()->pointAt(1), P3(3e30, -3e30, 3e30)); // clamped
    EXPECT_EQ(list()->capacity(), list()->size());

    // The pattern of the first point binds the rest; it is tested before the "inf".
    fails("<Canvas><Row2><P3>1 2 3</P3><P3>1 2 3 4 5 6</P3></Row2></Canvas>",
          "P3 data corrupted: '1 2 3 4 5 6'\n");
    fails("<Canvas><Row2><P3>1 2 3</P3><P3>1 2 inf #ffffff</P3></Row2></Canvas>",
          "P3 data corrupted: '1 2 inf #ffffff'\n");
    for (const char* bad :
         {"", "1 2", "1 2 3 4", "1 2 3 #a #b #c", "1 2 x", "#ff0000 1 2 3", "1 2 3 #ff0000 #zz"}) {
        fails(std::string("<Canvas><Row2><P3>") + bad + "</P3></Row2></Canvas>",
              std::string("P3 data corrupted: '") + bad + "'\n");
    }
}

// Bad input of every kind ends in a clean failure.

TEST_F(ZpxReader, TruncatedAndSplitInput) {
    const std::string text =
        "<?xml version='1.0'?>\n<Canvas Width='80' Name='\xc3\xa9t\xc3\xa9'>"
        "<ObjStyle Type='Curve2d'/><Obj2d Type='Curve2d'><Title>t &amp; u</Title>"
        "<Expr Opt='Function'>x^2</Expr></Obj2d>"
        "<Row1><P2>1 2</P2><P2>3 4</P2></Row1><Row2><P3>1 2 3 #ffffff</P3></Row2></Canvas>";
    ASSERT_TRUE(load<TestHandler>(doc, text));
    const std::string whole = xml(doc);
    for (std::size_t cut = 0; cut < text.size(); ++cut) {
        SCOPED_TRACE(cut);
        ASSERT_FALSE(load<TestHandler>(doc, text.substr(0, cut)));
        ASSERT_TRUE(isFreshCanvas(doc));
    }
    for (std::size_t piece = 1; piece < 40; piece += 3) {
        ASSERT_TRUE(load<TestHandler>(doc, text, false, piece));
        EXPECT_EQ(xml(doc), whole);
    }
}

TEST_F(ZpxReader, MalformedAndHostileInput) {
    fails("<Canvas Name='\xff\xfe'/>");                    // not UTF-8
    fails("<Canvas Name='\xc3'/>");                        // cut inside a character
    fails("<Canvas><Title>\xed\xa0\x80</Title></Canvas>"); // a surrogate
    fails("");
    fails("   ");
    fails("<Canvas/>junk");
    fails("<!DOCTYPE x [<!ENTITY e SYSTEM 'file:///etc/passwd'>]><Canvas Name='&e;'/>");

    std::mt19937 random(7);
    for (int round = 0; round < 200; ++round) {
        std::string garbage(1 + random() % 300, '\0');
        for (char& c : garbage) c = static_cast<char>(random());
        if (round % 2) garbage = "<Canvas>" + garbage;
        fails(garbage);
    }

    // A huge value is read as it stands, or refused with a report.
    const std::string big(4 << 20, 'n');
    ASSERT_TRUE(load(doc, "<Canvas Name='" + big + "'/>"));
    EXPECT_EQ(root()->getProperty(tok_Name).as<Arbor::FixedUStringVariant>()->val().size(),
              big.size());
    fails("<Canvas Width='x" + std::string(1 << 20, '9') + "'/>");
    EXPECT_FALSE(messages().empty());
}

TEST_F(ZpxReader, DeepNesting) {
    auto nested = [](int depth) {
        std::string text = "<Canvas><ObjType Type='T'>";
        for (int i = 0; i < depth; ++i) text += "<PropCat Name='c'>";
        for (int i = 0; i < depth; ++i) text += "</PropCat>";
        return text + "</ObjType></Canvas>";
    };
    const int deepest = ZpxParserHandler::maxDepth - 2;
    ASSERT_TRUE(load(doc, nested(deepest)));
    // What was read can be written and read again.
    const std::string written = xml(doc);
    ASSERT_TRUE(load(doc, written));
    EXPECT_EQ(xml(doc), written);

    fails(nested(deepest + 1), "elements nested deeper than 4096 levels\n");
    fails(nested(100000));
    // No node is ever made for a point, but the levels count all the same.
    std::string points = "<Canvas>";
    for (int i = 0; i < 100000; ++i) points += "<P2>";
    fails(points);
}

TEST(ZpxNames, TablesAgreeWithTheCatalogueAndTheClasses) {
    const auto elements = zpxTags();
    const auto attributes = zpxAttributeNames();
    const std::set<int> tags(elements.begin(), elements.end());
    const std::set<int> names(attributes.begin(), attributes.end());
    for (int id : {id_P2, id_P3, id_Canvas, id_Prop, id_ColorArray2d}) EXPECT_TRUE(tags.count(id));
    std::set<int> both;
    for (int id : tags)
        if (names.count(id)) both.insert(id);
    EXPECT_EQ(both, (std::set<int>{id_TitlePositionX, id_TitlePositionY, id_TitlePositionZ}));

    // Every class that is registered has its tag in the list, and every property it knows is
    // an attribute name.
    PlotDocument doc;
    for (int id = 1; id <= tokenCount; ++id) {
        if (!elementMaker(id)) continue;
        EXPECT_TRUE(tags.count(id)) << getToken(id);
        Arbor::Ref<PlotElement> element(doc.createPlotElement(getToken(id)));
        for (int name = 1; name <= tokenCount; ++name) {
            if (element->propertyInfo(getToken(name))) {
                EXPECT_TRUE(names.count(name)) << getToken(name) << " of " << getToken(id);
            }
        }
    }
}
