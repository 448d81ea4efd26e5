#include <grafel/arbor/DomException.h>
#include <grafel/structure/CoordinateSystem2d.h>
#include <grafel/structure/CoordinateSystem3d.h>
#include <grafel/structure/CoordinateSystemStyles.h>
#include <grafel/structure/Hints.h>
#include <grafel/structure/Scene2d.h>
#include <grafel/structure/TickPos.h>

#include "support/Plots.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

using namespace TestSupport;
using Arbor::DomException;

namespace {

// A system of the tag in a new scene of its dimension.
template <class T> T* systemIn(Page& p, Token sceneTag, Token tag) {
    return p.add<T>(p.add(p.canvas, sceneTag), tag);
}

} // namespace

TEST(CoordinateSystem, StyleOfTheSceneThenOfThePage) {
    Page p;
    auto* cs = systemIn<CoordinateSystem2d>(p, tok_Scene2d, tok_CoordinateSystem2d);
    auto* pageStyle = p.add<CoordinateSystem2dStyle>(p.canvas, tok_CoordinateSystem2dStyle);
    auto* sceneStyle =
        p.add<CoordinateSystem2dStyle>(cs->parentNode(), tok_CoordinateSystem2dStyle);
    set(pageStyle, tok_Axes, "Frame");
    // The scene's style lacks Axes: the page's answers, to the system and to the scene's style.
    EXPECT_EQ(cs->getAxes(), tok_Frame);
    EXPECT_EQ(cs->inheritingFrom(tok_Axes), pageStyle);
    EXPECT_EQ(sceneStyle->inheritingFrom(tok_Axes), pageStyle);
    EXPECT_EQ(pageStyle->inheritingFrom(tok_Axes), nullptr);
    set(sceneStyle, tok_Axes, "Origin");
    EXPECT_EQ(cs->getAxes(), tok_Origin);
    set(cs, tok_Axes, "None");
    EXPECT_EQ(cs->getAxes(), tok_None);
    std::vector<PlotElement*> chain;
    cs->getInheritanceChain(chain);
    sceneStyle->getInheritanceChain(chain);
    pageStyle->getInheritanceChain(chain);
    EXPECT_EQ(chain, (std::vector<PlotElement*>{sceneStyle, pageStyle, pageStyle}));
    // Giving a style the value stated below drops that value.
    set(cs, tok_XGridVisible, "1");
    sceneStyle->setProperty(tok_XGridVisible, Arbor::BoolVariant(true));
    EXPECT_FALSE(cs->hasAttribute(tok_XGridVisible));

    // The style of the other dimension is never consulted, and each class knows the values of
    // its own dimension only; a style knows no viewing box.
    auto* cs3 = systemIn<CoordinateSystem3d>(p, tok_Scene3d, tok_CoordinateSystem3d);
    auto* pageStyle3 = p.add<CoordinateSystem3dStyle>(p.canvas, tok_CoordinateSystem3dStyle);
    set(pageStyle3, tok_TicksLength, "3");
    EXPECT_EQ(cs3->getTicksLength(), 3.0);
    EXPECT_EQ(cs3->getAxes(), tok_Boxed);
    EXPECT_EQ(cs->getTicksLength(), 1.5);
    EXPECT_THROW(cs->getZAxisVisible(), DomException);
    EXPECT_EQ(reports().back(), "unknown property 'ZAxisVisible' [node 'CoordinateSystem2d']\n");
    EXPECT_THROW(cs3->getCoordinateType(), DomException);
    EXPECT_THROW(pageStyle->getAutoViewingBox(), DomException);
    EXPECT_TRUE(cs3->getZAxisVisible());
    EXPECT_THROW(set(cs, tok_AxesLineWidth, "0"), DomException);
    EXPECT_EQ(reports().back(), "illegal value [attribute 'AxesLineWidth']\n");
}

TEST(CoordinateSystem, ScalingAndHints) {
    Page p;
    auto* cs = systemIn<CoordinateSystem2d>(p, tok_Scene2d, tok_CoordinateSystem2d);
    EXPECT_FALSE(cs->getConstrainedScaling()); // Automatic, no Hints
    auto* hints = p.add<Hints>(cs, tok_Hints);
    EXPECT_FALSE(cs->getConstrainedScaling()); // Hints never told
    set(hints, tok_Scaling, "Constrained");
    EXPECT_TRUE(cs->getConstrainedScaling());
    set(cs, tok_Scaling, "Unconstrained");
    EXPECT_FALSE(cs->getConstrainedScaling());
    set(hints, tok_Scaling, "Unconstrained");
    set(cs, tok_Scaling, "Constrained");
    EXPECT_TRUE(cs->getConstrainedScaling());
    set(hints, tok_Scaling, "Constrained");
    set(cs, tok_Scaling, "Sometimes"); // outside the set: the Hints decide
    EXPECT_TRUE(cs->getConstrainedScaling());

    EXPECT_EQ(cmd(hints), "");
    EXPECT_THROW(p.add(hints, tok_Title), DomException);
    // A copy of the system reads its own values and keeps its option children.
    Ref<CoordinateSystem2d> deep = static_cast<CoordinateSystem2d*>(cs->cloneNode(true));
    EXPECT_EQ(deep->thisElem(), deep.get());
    EXPECT_EQ(deep->optionChildren(), 2097152);
}

TEST(CoordinateSystem, OptionChildrenAndCommandText) {
    Page p;
    auto* cs = systemIn<CoordinateSystem2d>(p, tok_Scene2d, tok_CoordinateSystem2d);
    auto* cs3 = systemIn<CoordinateSystem3d>(p, tok_Scene3d, tok_CoordinateSystem3d);
    const Token thirdAxis[] = {tok_ViewingBoxZMin, tok_ViewingBoxZMax, tok_AxesOriginZ,
                               tok_ZAxisTitle,     tok_ZTicksAnchor,   tok_ZTicksDistance,
                               tok_ZTicksAt};
    for (Token tag : thirdAxis) {
        EXPECT_THROW(p.add(cs, tag), DomException) << tag;
        EXPECT_EQ(reports().back(), "illegal option child [parent 'CoordinateSystem2d']\n");
    }
    EXPECT_THROW(p.add(cs, tok_Obj3d), DomException);
    EXPECT_EQ(reports().back(),
              "not a valid content child 'Obj3d' [parent 'CoordinateSystem2d']\n");
    EXPECT_THROW(p.add(cs3, tok_Obj2d), DomException);

    set(cs3, tok_Consistent, "1");
    auto limit = [&](Token tag, const char* val, const wchar_t* text) {
        p.add(cs3, tag, text)->setAttributeString(tok_Val, val);
    };
    limit(tok_ViewingBoxXMin, "0", L"0");
    limit(tok_ViewingBoxZMax, "1", L"1");
    limit(tok_AxesOriginZ, "0.5", L"1/2");
    p.add(cs3, tok_ZAxisTitle, L"z");
    p.add(cs3, tok_XTicksAt);
    auto* ticks = p.add(cs3, tok_ZTicksAt);
    p.add(ticks, tok_TickPos)->firstChild()->appendChild(p.doc.createTextNode(L"1"));
    set(p.add(cs3, tok_Hints), tok_Scaling, "Constrained");
    EXPECT_THROW(p.add(cs3, tok_Hints), DomException);
    EXPECT_EQ(reports().back(),
              "option child 'Hints' defined twice [parent 'CoordinateSystem3d']\n");
    EXPECT_EQ(cs3->optionChildren(), 1 | 32 | 256 | 2048 | 262144 | 1048576 | 2097152);
    // With the default mask the lower x limit was found automatically and is left out, the
    // upper z limit is written. The mask never is, nor Consistent; an empty holder is NIL.
    EXPECT_EQ(cmd(cs3), "  plot::CoordinateSystem3d(\r\n"
                        "    ViewingBoxZMax=(1),\r\n"
                        "    AxesOriginZ=(1/2),\r\n"
                        "    ZAxisTitle=\"z\",\r\n"
                        "    XTicksAt=NIL,\r\n"
                        "    ZTicksAt=[      1])");
    set(cs3, tok_AutoViewingBox, "0");
    EXPECT_NE(cmd(cs3).find("    ViewingBoxXMin=(0),\r\n"), std::string::npos);
    EXPECT_EQ(cmd(cs3).find("AutoViewingBox"), std::string::npos);
    std::ostringstream xml;
    cs3->putAttributesXml(xml);
    EXPECT_EQ(xml.str(), " Consistent=\"1\" AutoViewingBox=\"0\"");

    auto* style = p.add(p.canvas, tok_CoordinateSystem3dStyle);
    set(style, tok_ZTicksNumber, "High");
    EXPECT_THROW(p.add(style, tok_Hints), DomException);
    Ref<PlotElement> styleCopy = static_cast<PlotElement*>(style->cloneNode(false));
    EXPECT_EQ(cmd(styleCopy.get()), "  plot::CoordinateSystem3d::ZTicksNumber=High");
}

TEST(CoordinateSystem, TickPosAlwaysHoldsItsValue) {
    Page p;
    auto* ticks =
        p.add(systemIn<PlotElement>(p, tok_Scene2d, tok_CoordinateSystem2d), tok_XTicksAt);
    auto* tick = p.add<TickPos>(ticks, tok_TickPos);
    ASSERT_EQ(tick->items(), 1u);
    EXPECT_EQ(tick->firstChild()->nodeName(), tok_VExpr);
    EXPECT_EQ(cmd(tick), "  NIL");
    // The value may be exchanged, not taken away nor doubled; only a Title may join it.
    Ref<PlotElement> value = p.doc.createPlotElement(tok_VExpr);
    value->appendChild(p.doc.createTextNode(L"PI"));
    tick->replaceChild(value.get(), tick->firstChild());
    EXPECT_THROW(tick->removeChild(value.get()), DomException);
    EXPECT_EQ(reports().back(), "missing option child [parent 'TickPos']\n");
    EXPECT_THROW(p.add(tick, tok_VExpr), DomException);
    EXPECT_THROW(p.add(tick, tok_IExpr), DomException);
    EXPECT_EQ(cmd(tick), "  PI");
    p.add(tick, tok_Title, L"half turn");
    EXPECT_EQ(cmd(tick), "  (PI)=\"half turn\"");
    // The holder takes ticks only, without a report.
    reports().clear();
    EXPECT_THROW(p.add(ticks, tok_VExpr), DomException);
    EXPECT_TRUE(reports().empty());
    // Copies keep the value (deep) or start with an empty one; never two.
    Ref<TickPos> deep = static_cast<TickPos*>(tick->cloneNode(true));
    Ref<TickPos> shallow = static_cast<TickPos*>(tick->cloneNode(false));
    Ref<TickPos> copy = new TickPos(*tick);
    EXPECT_EQ(cmd(deep.get()), "  (PI)=\"half turn\"");
    EXPECT_EQ(cmd(copy.get()), "  (PI)=\"half turn\"");
    EXPECT_EQ(deep->optionChildren(), 3);
    EXPECT_EQ(shallow->items(), 1u);
}

namespace {

// Whether `style` holds exactly the values of `parts`, each a list "Name=text|Name=text|...",
// as their text reads.
::testing::AssertionResult holdsExactly(PlotDocument& doc, PlotElement* style,
                                        std::initializer_list<std::string> parts) {
    Ref<PlotElement> expected = doc.createPlotElement(style->tagName());
    for (const std::string& part : parts) {
        std::istringstream entries(part);
        for (std::string entry; std::getline(entries, entry, '|');) {
            const std::size_t eq = entry.find('=');
            expected->setAttributeString(getToken(getTokenId(entry.substr(0, eq).c_str())),
                                         entry.c_str() + eq + 1);
        }
    }
    const auto& want = expected->asAttributeList()->attributes();
    const auto& have = style->asAttributeList()->attributes();
    if (want.size() != have.size())
        return ::testing::AssertionFailure() << have.size() << " values, not " << want.size();
    for (std::size_t i = 0; i < want.size(); ++i)
        if (want[i].name != have[i].name || !(want[i].value == have[i].value))
            return ::testing::AssertionFailure() << want[i].name << " differs";
    return ::testing::AssertionSuccess();
}

const char* const sceneCommon = "BackgroundTransparent=0|LegendPlacement=Bottom|"
                                "LegendFont='sans-serif' 12|LegendAlignment=Center|YXRatio=1|"
                                "LegendVisible=0";
const char* const scene3d = "Lighting=Automatic|BackgroundColor2=#C0C0C0|BackgroundStyle=Flat|"
                            "ZXRatio=1";
const char* const systemCommon =
    "Axes=Boxed|Scaling=Automatic|XAxisVisible=1|YAxisVisible=1|AxesTips=1|"
    "AxesLineColor=#000000|AxesLineWidth=0.25|AxesTitleFont='sans-serif' 10|XTicksVisible=1|"
    "YTicksVisible=1|XTicksLabelsVisible=1|YTicksLabelsVisible=1|XTicksNumber=Normal|"
    "YTicksNumber=Normal|XTicksBetween=1|YTicksBetween=1|XTicksLabelStyle=Horizontal|"
    "YTicksLabelStyle=Horizontal|TicksLength=2|TicksLabelFont='sans-serif' 8|XGridVisible=0|"
    "YGridVisible=0|XSubgridVisible=0|YSubgridVisible=0|GridLineStyle=Solid|"
    "SubgridLineStyle=Solid|GridLineColor=#708090|GridLineWidth=0.1|SubgridLineColor=#C0C0C0|"
    "SubgridLineWidth=0.05";
const char* const system2d = "CoordinateType=LinLin|AxesInFront=0|GridInFront=0|"
                             "XAxisTitleAlignment=End|YAxisTitleAlignment=End|"
                             "YAxisTitleOrientation=Horizontal";
const char* const system3d =
    "XAxisTitleAlignment=Center|YAxisTitleAlignment=Center|ZAxisTitleAlignment=Center|"
    "ZAxisVisible=1|ZTicksVisible=1|ZTicksLabelsVisible=1|ZTicksNumber=Normal|ZTicksBetween=1|"
    "ZTicksLabelStyle=Horizontal|ZGridVisible=0|ZSubgridVisible=0";

} // namespace

TEST(CoordinateSystem, StandardLibraryOfThePage) {
    Page p;
    p.canvas->setDefaults();
    EXPECT_TRUE(reports().empty()) << reports().front();
    auto style = [&](Token tag) { return PlotElement::from(p.canvas->findChild(tag)); };
    EXPECT_TRUE(holdsExactly(p.doc, style(tok_Scene2dStyle), {sceneCommon}));
    EXPECT_TRUE(holdsExactly(p.doc, style(tok_Scene3dStyle), {sceneCommon, scene3d}));
    EXPECT_TRUE(holdsExactly(p.doc, style(tok_CoordinateSystem2dStyle), {systemCommon, system2d}));
    EXPECT_TRUE(holdsExactly(p.doc, style(tok_CoordinateSystem3dStyle), {systemCommon, system3d}));
    // What a fresh tree of each dimension reads from it.
    auto* cs = systemIn<CoordinateSystem2d>(p, tok_Scene2d, tok_CoordinateSystem2d);
    auto* cs3 = systemIn<CoordinateSystem3d>(p, tok_Scene3d, tok_CoordinateSystem3d);
    EXPECT_EQ(static_cast<Scene2d*>(cs->parentNode())->getYXRatio(), 1.0);
    EXPECT_EQ(cs->getXAxisTitleAlignment(), tok_End);
    EXPECT_EQ(cs3->getXAxisTitleAlignment(), tok_Center);
    EXPECT_EQ(cs3->getZTicksBetween(), 1);
    EXPECT_TRUE(reports().empty());
}
