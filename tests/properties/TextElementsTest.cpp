#include <grafel/arbor/DocumentFragment.h>
#include <grafel/arbor/DomException.h>
#include <grafel/arbor/Text.h>
#include <grafel/foundation/NaN.h>
#include <grafel/properties/AfterPropertyChangeEvent.h>
#include <grafel/properties/ElementClass.h>
#include <grafel/properties/Expr.h>
#include <grafel/properties/ExprHolders.h>
#include <grafel/properties/MemberTable.h>
#include <grafel/properties/PropertyTypes.h>
#include <grafel/properties/VExpr.h>

#include "support/Forms.h"
#include "support/Reports.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <sstream>

using namespace Grafel;
using Arbor::Ref;
using Arbor::Token;
using TestSupport::cmd;
using TestSupport::domCode;
using TestSupport::xml;

// Tags of the stand-ins below.
namespace Grafel {
constexpr int id_FakeSystem = id_CoordinateSystem2d;
constexpr int id_FakeScene = id_Scene2d;
constexpr int id_FakeTick = id_TickPos;
} // namespace Grafel

namespace {

// Stand-ins for a coordinate system (and an element of another tag with the same mask), and
// for a tick that writes its value as an item.
#define FAKE_SYSTEM_TABLE(P) P(Optional, LongProperty, AutoViewingBox, 0L, 0L)

class FakeSystem : public PlotElement {
public:
    explicit FakeSystem(Arbor::Document* d) : PlotElement(d) {}
    GRAFEL_ELEMENT_CLASS_UNLISTED(FakeSystem)
    GRAFEL_MEMBER_PROPERTIES(FakeSystem, FAKE_SYSTEM_TABLE)
};
GRAFEL_DEFINE_MEMBER_PROPERTIES(FakeSystem, FAKE_SYSTEM_TABLE)

class FakeScene : public PlotElement {
public:
    explicit FakeScene(Arbor::Document* d) : PlotElement(d) {}
    GRAFEL_ELEMENT_CLASS_UNLISTED(FakeScene)
    GRAFEL_MEMBER_PROPERTIES(FakeScene, FAKE_SYSTEM_TABLE)
};
GRAFEL_DEFINE_MEMBER_PROPERTIES(FakeScene, FAKE_SYSTEM_TABLE)

class FakeTick : public PlotElement {
public:
    explicit FakeTick(Arbor::Document* d) : PlotElement(d) {}
    GRAFEL_ELEMENT_CLASS_UNLISTED(FakeTick)
    void putCmd(CmdOStream& out) override {
        out.beginItem();
        out << indexInParent();
        out.endItem();
    }
};

std::vector<std::string>& reports = TestSupport::reports();
constexpr auto collect = &TestSupport::collectReport;

struct Events : Arbor::IDocObserver {
    std::vector<std::pair<Arbor::Element*, Token>> heard;
    void handleEvent(Arbor::DomEvent& e) override {
        heard.emplace_back(e.target(), static_cast<Arbor::DomAttributeEvent&>(e).attribute());
    }
};

struct TextDoc : ElementDocument {
    TextDoc() {
        reports.clear();
        domErrorHdl(collect);
    }

    /// A new element of the registered class of `tag`, with a Text child when `text` is given.
    template <class T = PlotElement> Ref<T> make(Token tag, const wchar_t* text = nullptr) {
        Ref<Arbor::Element> element(createElement(tag));
        Ref<T> typed(dynamic_cast<T*>(element.get()));
        EXPECT_TRUE(typed) << tag.text();
        if (typed && text) typed->appendChild(createTextNode(text));
        return typed;
    }
    Ref<IExpr> item(const wchar_t* text) { return make<IExpr>(tok_IExpr, text); }
};

/// Puts an entry with `text` in the place of entry `index` of a holder.
void setItem(TextDoc& doc, PlotElement* holder, unsigned index, const wchar_t* text) {
    holder->replaceChild(doc.item(text).get(), holder->findChild(index));
}

} // namespace

TEST(TextPCData, OnlyTheHeadOfAnIncomingChainIsChecked) {
    TextDoc doc;
    // A Text followed by an element passes: the element behind the head is not looked at.
    Ref<Title> title = doc.make<Title>(tok_Title);
    Ref<Arbor::DocumentFragment> chain(doc.createDocumentFragment());
    chain->appendChild(doc.createTextNode(L"a"));
    chain->appendChild(doc.item(L"b").get());
    title->appendChild(chain.get());
    EXPECT_EQ(title->items(), 2u);
    EXPECT_FALSE(title->isEmpty(true));
    EXPECT_TRUE(reports.empty());

    Ref<Title> other = doc.make<Title>(tok_Title);
    EXPECT_EQ(domCode([&] { other->appendChild(doc.item(L"b").get()); }), 3);
    EXPECT_EQ(reports, std::vector<std::string>{"not a text node child [parent 'Title']\n"});
    EXPECT_EQ(other->items(), 0u);
}

TEST(TextPCData, BlanksCountOnlyWhenAsked) {
    TextDoc doc;
    Ref<IExpr> e = doc.make<IExpr>(tok_IExpr);
    EXPECT_TRUE(e->isEmpty(false));
    e->appendChild(doc.createTextNode(L"")); // an empty text counts for nothing
    EXPECT_TRUE(e->isEmpty(false));
    e->appendChild(doc.createTextNode(L" \t\r\n"));
    EXPECT_TRUE(e->isEmpty(true));
    EXPECT_FALSE(e->isEmpty(false));
    e->appendChild(doc.createTextNode(L"!"));
    EXPECT_FALSE(e->isEmpty(true));
    EXPECT_EQ(cmd(e.get()), " \t\r\n!"); // the bare text, unescaped
}

TEST(TextVExpr, ReadsInfAsNaNAndLimitsTheViewingBoxByTag) {
    TextDoc doc;
    auto read = [&](Token tag, const char* text) {
        Ref<VExpr> v = doc.make<VExpr>(tag);
        v->setAttributeString(tok_Val, text);
        return v->getVal();
    };
    EXPECT_TRUE(std::isnan(doc.make<VExpr>(tok_VExpr)->getVal()));
    // A maximum is limited from above only, a minimum from below; NaN passes the bound tests.
    const std::tuple<Token, const char*, double> reads[] = {{tok_VExpr, " 2.5 ", 2.5},
                                                            {tok_VExpr, "-inf", NaN()},
                                                            {tok_VExpr, "12inf", NaN()},
                                                            {tok_AxesOriginX, "1e31", 1e31},
                                                            {tok_ViewingBoxXMax, "1e31", 1e30},
                                                            {tok_ViewingBoxZMax, "-1e31", -1e31},
                                                            {tok_ViewingBoxYMin, "-1e31", -1e30},
                                                            {tok_ViewingBoxXMin, "1e31", 1e31},
                                                            {tok_ViewingBoxXMax, "nan", NaN()}};
    for (auto [tag, text, value] : reads) {
        const double got = read(tag, text);
        EXPECT_TRUE(got == value || (std::isnan(got) && std::isnan(value))) << tag << text;
    }
    EXPECT_TRUE(reports.empty());

    Ref<VExpr> v = doc.make<VExpr>(tok_VExpr);
    v->setAttributeString(tok_Val, "3");
    EXPECT_EQ(domCode([&] { v->setAttributeString(tok_Val, "x1"); }), 15);
    EXPECT_EQ(domCode([&] { v->setAttributeString(tok_Opt, "1"); }), 15);
    EXPECT_EQ(domCode([&] { v->getAttribute(tok_Opt); }), 15);
    EXPECT_EQ(reports,
              (std::vector<std::string>{"illegal value string [Val='x1']\n",
                                        "illegal attribute 'Opt'\n", "illegal attribute 'Opt'\n"}));
    EXPECT_EQ(v->getVal(), 3.0);
    // Val takes a double only.
    EXPECT_EQ(domCode([&] { v->setAttribute(tok_Val, Arbor::LongVariant(1)); }), 15);
}

TEST(TextVExpr, BlankTextWritesNilAndTheValueStaysInXml) {
    TextDoc doc;
    Ref<VExpr> v = doc.make<VExpr>(tok_VExpr, L"  ");
    v->setAttributeString(tok_Val, "2");
    EXPECT_EQ(cmd(v.get()), "NIL");
    EXPECT_EQ(xml(v.get()), "<VExpr Val=\"2\">  </VExpr>");
    Ref<VExpr> unset = doc.make<VExpr>(tok_VExpr, L"a");
    EXPECT_EQ(xml(unset.get()), "<VExpr>a</VExpr>");
}

TEST(TextExpr, OptIsATokenThatAlwaysShows) {
    TextDoc doc;
    Ref<Expr> e = doc.make<Expr>(tok_Expr, L"x^2");
    EXPECT_EQ(xml(e.get()), "<Expr Opt=\"\">x^2</Expr>");
    const Tessel::FixedStringBase<wchar_t> name(L"Function");
    EXPECT_EQ(domCode([&] { e->setAttribute(tok_Opt, Arbor::FixedUStringVariant(name)); }), 15);
    EXPECT_TRUE(e->getOpt().isNull());

    e->setAttributeString(tok_Opt, "Function");
    EXPECT_EQ(e->getOpt(), tok_Function);
    EXPECT_EQ(xml(e.get()), "<Expr Opt=\"Function\">x^2</Expr>");
    EXPECT_EQ(cmd(e.get()), "  Function=(x^2)");
    EXPECT_EQ(cmd(doc.make<Expr>(tok_Expr, L"\n").get()), "  =NIL");
    EXPECT_TRUE(reports.empty());

    EXPECT_EQ(domCode([&] { e->setAttributeString(tok_Opt, ""); }), 15);
    EXPECT_EQ(domCode([&] { e->setAttributeString(tok_Val, "1"); }), 15);
    EXPECT_EQ(domCode([&] { e->getProperty(tok_Val); }), 15);
    EXPECT_EQ(domCode([&] { e->removeAttribute(tok_Opt); }), 15);
    EXPECT_EQ(reports, (std::vector<std::string>{"empty option name\n", "illegal attribute 'Val'\n",
                                                 "illegal attribute 'Val'\n"}));
    EXPECT_EQ(e->getOpt(), tok_Function);
    EXPECT_TRUE(e->hasAttribute(tok_Opt));
    EXPECT_FALSE(e->hasAttribute(tok_Val));
}

TEST(TextExpr, ChangesFireOnTheElementItselfAndStopThere) {
    TextDoc doc;
    Events events;
    doc.addObserver(&events, tok_AfterPropertyChange);
    Ref<Expr> e = doc.make<Expr>(tok_Expr);
    Ref<VExpr> v = doc.make<VExpr>(tok_VExpr);
    e->setAttributeString(tok_Opt, "Radius");
    v->setAttributeString(tok_Val, "1");
    using Heard = std::vector<std::pair<Arbor::Element*, Token>>;
    EXPECT_EQ(events.heard, (Heard{{e.get(), tok_Opt}, {v.get(), tok_Val}}));

    events.heard.clear();
    EXPECT_FALSE(e->afterAttributeChange(e.get(), tok_Opt));
    EXPECT_FALSE(e->afterAttributeChange(v.get(), tok_Opt)); // from elsewhere: silent
    EXPECT_FALSE(v->afterAttributeChange(e.get(), tok_Val));
    EXPECT_EQ(events.heard, (Heard{{e.get(), tok_Opt}}));
    doc.removeObserver(&events);
}

TEST(TextStrings, QuotedEscapedAndSeparatedAsItems) {
    TextDoc doc;
    Ref<Title> title = doc.make<Title>(tok_Title, L"");
    Ref<Header> header = doc.make<Header>(tok_Header, L"say \"hi\"\n");
    std::ostringstream out;
    CmdOStream stream(out, tok_MM);
    title->putCmd(stream);
    header->putCmd(stream);
    EXPECT_EQ(out.str(), "  Title=\"\",\r\n  Header=\"say \\\"hi\\\"\\n\"");
}

TEST(TextNamedExpr, ParenthesesOrNil) {
    TextDoc doc;
    EXPECT_EQ(cmd(doc.make(tok_ParameterName, L"u").get()), "  ParameterName=(u)");
    EXPECT_EQ(cmd(doc.make(tok_TitlePositionX, L" ").get()), "  TitlePositionX=NIL");
    EXPECT_EQ(cmd(doc.make(tok_AxesOriginY, L"a+1").get()), "  AxesOriginY=(a+1)");
    EXPECT_EQ(cmd(doc.make(tok_ParameterEnd).get()), "  ParameterEnd=NIL");
}

TEST(TextHolders, FreshHoldersAreCompleteAndVoid) {
    TextDoc doc;
    const std::tuple<Token, unsigned, const char*> holders[] = {
        {tok_Matrix3d, 9, "  Matrix3d=NIL"},
        {tok_Matrix2d, 4, "  Matrix2d=NIL"},
        {tok_TextOrientation, 6, "  TextOrientation=NIL"},
        {tok_ColorFunc, 1, "  =NIL"}};
    for (auto [tag, items, text] : holders) {
        Ref<PlotElement> holder = doc.make(tag);
        EXPECT_EQ(holder->items(), items) << tag;
        for (Arbor::Node* n = holder->firstChild(); n; n = n->nextSibling()) {
            ASSERT_EQ(n->nodeName(), tok_IExpr);
            EXPECT_FALSE(n->hasChildNodes());
        }
        EXPECT_EQ(xml(holder.get()), "");
        EXPECT_EQ(cmd(holder.get()), text);
    }
}

TEST(TextHolders, Matrix2dExchangesEntriesOneForOne) {
    TextDoc doc;
    Ref<PlotElement> m = doc.make(tok_Matrix2d);
    setItem(doc, m.get(), 0, L"1");
    EXPECT_EQ(domCode([&] { m->appendChild(doc.item(L"5").get()); }), 3);
    EXPECT_EQ(domCode([&] { m->removeChild(m->firstChild()); }), 3);
    EXPECT_EQ(domCode([&] { m->replaceChild(doc.make(tok_VExpr).get(), m->firstChild()); }), 3);
    EXPECT_TRUE(reports.empty());
    EXPECT_EQ(m->items(), 4u);

    setItem(doc, m.get(), 3, L"1");
    EXPECT_EQ(cmd(m.get()), "  Matrix2d=[1,NIL,NIL,1]");
    EXPECT_EQ(
        xml(m.get()),
        "<Matrix2d><IExpr>1</IExpr><IExpr></IExpr><IExpr></IExpr><IExpr>1</IExpr></Matrix2d>");
    // Only the first entry is looked at: with it blank, the rest is not written.
    setItem(doc, m.get(), 0, L" ");
    EXPECT_EQ(xml(m.get()), "");
    EXPECT_EQ(cmd(m.get()), "  Matrix2d=NIL");
}

TEST(TextHolders, AnEntryMovedFromASequenceComesAlone) {
    TextDoc doc;
    Ref<Expr> seq = doc.make<Expr>(tok_ExprSeq);
    seq->appendChild(doc.item(L"a").get());
    seq->appendChild(doc.item(L"b").get());
    Ref<PlotElement> m = doc.make(tok_Matrix2d);
    // The entry's next sibling stays in the sequence and must not count as incoming.
    m->replaceChild(seq->firstChild(), m->firstChild());
    EXPECT_EQ(m->items(), 4u);
    EXPECT_EQ(seq->items(), 1u);
    EXPECT_EQ(cmd(m.get()), "  Matrix2d=[a,NIL,NIL,NIL]");
}

TEST(TextHolders, CopiesHaveTheirEntriesOnce) {
    TextDoc doc;
    Ref<PlotElement> m = doc.make(tok_Matrix2d);
    setItem(doc, m.get(), 0, L"1");
    setItem(doc, m.get(), 1, L"2");
    Ref<PlotElement> deep(static_cast<PlotElement*>(m->cloneNode(true)));
    EXPECT_EQ(cmd(deep.get()), "  Matrix2d=[1,2,NIL,NIL]");
    Ref<PlotElement> shallow(static_cast<PlotElement*>(m->cloneNode(false)));
    EXPECT_EQ(shallow->items(), 4u);
    EXPECT_EQ(cmd(shallow.get()), "  Matrix2d=NIL");
    Ref<Matrix2d> copied(new Matrix2d(*static_cast<Matrix2d*>(m.get())));
    EXPECT_EQ(cmd(copied.get()), "  Matrix2d=[1,2,NIL,NIL]");

    Ref<ColorFunc> colors = doc.make<ColorFunc>(tok_ColorFunc);
    colors->setAttributeString(tok_Opt, "FillColorFunction");
    setItem(doc, colors.get(), 0, L"r");
    colors->appendChild(doc.item(L"g").get());
    Ref<ColorFunc> copy(static_cast<ColorFunc*>(colors->cloneNode(true)));
    EXPECT_EQ(copy->items(), 2u);
    Ref<ColorFunc> same(new ColorFunc(*colors));
    EXPECT_EQ(cmd(same.get()), "  FillColorFunction=[r,g]");
}

TEST(TextColorFunc, RoundForOneEntrySquareForMoreAndOneToFour) {
    TextDoc doc;
    Ref<ColorFunc> colors = doc.make<ColorFunc>(tok_ColorFunc);
    colors->setAttributeString(tok_Opt, "LineColorFunction");
    EXPECT_EQ(cmd(colors.get()), "  LineColorFunction=NIL");
    setItem(doc, colors.get(), 0, L"t");
    EXPECT_EQ(cmd(colors.get()), "  LineColorFunction=(t)");
    EXPECT_EQ(xml(colors.get()),
              "<ColorFunc Opt=\"LineColorFunction\"><IExpr>t</IExpr></ColorFunc>");
    colors->appendChild(doc.item(L"u").get());
    EXPECT_EQ(cmd(colors.get()), "  LineColorFunction=[t,u]");
    colors->appendChild(doc.item(L"v").get());
    colors->appendChild(doc.item(L"w").get());
    EXPECT_EQ(domCode([&] { colors->appendChild(doc.item(L"x").get()); }), 3);
    Ref<Arbor::Text> text(doc.createTextNode(L"x"));
    EXPECT_EQ(domCode([&] { colors->appendChild(text.get()); }), 3);
    EXPECT_EQ(colors->items(), 4u);
    while (colors->items() > 1) colors->removeChild(colors->lastChild());
    EXPECT_EQ(domCode([&] { colors->removeChild(colors->firstChild()); }), 3);
    EXPECT_TRUE(reports.empty());
    setItem(doc, colors.get(), 0, L" \n ");
    EXPECT_EQ(xml(colors.get()), "");
}

TEST(TextExprSeq, IExprChildrenInSquareBrackets) {
    TextDoc doc;
    Ref<Expr> seq = doc.make<Expr>(tok_ExprSeq);
    seq->setAttributeString(tok_Opt, "Contours");
    EXPECT_EQ(cmd(seq.get()), "  Contours=NIL");
    seq->appendChild(doc.item(L"1").get());
    seq->appendChild(doc.item(L"").get());
    EXPECT_EQ(cmd(seq.get()), "  Contours=[1,NIL]");
    Ref<Arbor::Text> text(doc.createTextNode(L"2"));
    EXPECT_EQ(domCode([&] { seq->appendChild(text.get()); }), 3);
    EXPECT_EQ(domCode([&] { seq->appendChild(doc.make(tok_VExpr).get()); }), 3);
    seq->removeChild(seq->firstChild());
    EXPECT_TRUE(reports.empty());
    EXPECT_EQ(xml(seq.get()), "<ExprSeq Opt=\"Contours\"><IExpr></IExpr></ExprSeq>");
}

TEST(TextTicksAt, TickPosChildrenOnlyEachAnItemOfItsOwn) {
    TextDoc doc;
    Ref<PlotElement> ticks = doc.make(tok_YTicksAt);
    EXPECT_EQ(cmd(ticks.get()), "  YTicksAt=NIL");
    EXPECT_EQ(domCode([&] { ticks->appendChild(doc.item(L"1").get()); }), 3);
    EXPECT_TRUE(reports.empty());
    ticks->appendChild(FakeTick::create(&doc));
    ticks->appendChild(FakeTick::create(&doc));
    EXPECT_EQ(cmd(ticks.get()), "  YTicksAt=[    0,\r\n    1]");
    ticks->removeChild(ticks->firstChild());
    EXPECT_EQ(ticks->items(), 1u);
}

TEST(TextViewingBox, LimitsFoundAutomaticallyStayOutOfTheCommandText) {
    TextDoc doc;
    Ref<PlotElement> system(FakeSystem::create(&doc));
    Ref<PlotElement> xMin = doc.make(tok_ViewingBoxXMin, L"0");
    Ref<PlotElement> zMax = doc.make(tok_ViewingBoxZMax, L"1");
    system->appendChild(xMin.get());
    system->appendChild(zMax.get());
    EXPECT_EQ(cmd(xMin.get()), "  ViewingBoxXMin=(0)");
    system->setAttribute(tok_AutoViewingBox, Arbor::LongVariant(31));
    EXPECT_EQ(cmd(xMin.get()), "");
    EXPECT_EQ(cmd(zMax.get()), "  ViewingBoxZMax=(1)");

    // The same mask on an element of another tag does not count.
    Ref<PlotElement> scene(FakeScene::create(&doc));
    scene->setAttribute(tok_AutoViewingBox, Arbor::LongVariant(31));
    scene->appendChild(xMin.get());
    EXPECT_EQ(cmd(xMin.get()), "  ViewingBoxXMin=(0)");

    // Each limit has its bit of the mask.
    std::vector<long> flags;
    for (Token tag : {tok_ViewingBoxXMin, tok_ViewingBoxXMax, tok_ViewingBoxYMin,
                      tok_ViewingBoxYMax, tok_ViewingBoxZMin, tok_ViewingBoxZMax})
        flags.push_back(doc.make<ViewingBoxExprElement>(tag)->partFlag());
    EXPECT_EQ(flags, (std::vector<long>{1, 2, 4, 8, 16, 32}));
}
