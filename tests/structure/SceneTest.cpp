#include <grafel/arbor/DomException.h>
#include <grafel/document/ZpxParser.h>
#include <grafel/document/ZpxParserHandler.h>
#include <grafel/properties/VExpr.h>
#include <grafel/structure/Canvas.h>
#include <grafel/structure/CoordinateSystem2d.h>
#include <grafel/structure/Obj2d.h>
#include <grafel/structure/Scene2d.h>
#include <grafel/structure/Scene3d.h>
#include <grafel/structure/SceneStyles.h>

#include "support/Plots.h"

#include <gtest/gtest.h>

#include <cmath>
#include <sstream>
#include <string>
#include <vector>

using namespace TestSupport;
using Arbor::DomException;

namespace {

template <class Base> struct Probe : Base {
    explicit Probe(Arbor::Document* d) : Base(d) {}
    using Base::allowedOptionChildren;
};

} // namespace

TEST(Scene, OneStepFromThePageStyleOfItsOwnKind) {
    Page p;
    auto* a = p.add<Scene2d>(p.canvas, tok_Scene2d);
    auto* c = p.add<Scene3d>(p.canvas, tok_Scene3d);
    auto* style2 = p.add<Scene2dStyle>(p.canvas, tok_Scene2dStyle);
    // A style without the value gives way to the descriptor at once, though it is in the chain.
    EXPECT_EQ(a->getWidth(), 100.0);
    EXPECT_EQ(a->inheritingFrom(tok_Width), nullptr);
    std::vector<PlotElement*> chain;
    a->getInheritanceChain(chain);
    EXPECT_EQ(chain, std::vector<PlotElement*>{style2});
    set(style2, tok_Width, "80");
    EXPECT_EQ(a->getWidth(), 80.0);
    // A 3D scene never sees the 2D style; it has one of its own for the 3D values too.
    EXPECT_EQ(c->getWidth(), 100.0);
    auto* style3 = p.add<Scene3dStyle>(p.canvas, tok_Scene3dStyle);
    set(style3, tok_Lighting, "None");
    EXPECT_EQ(c->getLighting(), tok_None);
    EXPECT_EQ(c->getBackgroundStyle(), tok_Flat);
    EXPECT_THROW(a->getLighting(), DomException);
    EXPECT_EQ(reports().back(), "unknown property 'Lighting' [node 'Scene2d']\n");
    EXPECT_THROW(style2->getZXRatio(), DomException);
    // Styles inherit from nothing; the scene's own value goes first, and becomes redundant
    // when the style is given the same.
    EXPECT_EQ(style2->inheritingFrom(tok_Width), nullptr);
    set(a, tok_Width, "50");
    EXPECT_EQ(a->getWidth(), 50.0);
    style2->setProperty(tok_Width, Arbor::DoubleVariant(50.0));
    EXPECT_FALSE(a->hasAttribute(tok_Width));
    // Unlike the page's sizes, a scene's refuse zero and negative values.
    EXPECT_THROW(set(a, tok_Width, "0"), DomException);
    EXPECT_EQ(reports().back(), "illegal value [attribute 'Width']\n");
    EXPECT_THROW(set(a, tok_TopMargin, "-1"), DomException);
    set(a, tok_LegendPlacement, "Sideways"); // vocabularies are not enforced
    EXPECT_STREQ(a->getLegendPlacement().c_str(), "Sideways");
}

TEST(Scene, ChildrenAndCameraFlags) {
    Page p;
    auto* a = p.add<Scene2d>(p.canvas, tok_Scene2d);
    auto* c = p.add<Scene3d>(p.canvas, tok_Scene3d);
    for (Token tag : {tok_CoordinateSystem2d, tok_Header, tok_CoordinateSystem2dStyle})
        p.add(a, tag);
    EXPECT_TRUE(reports().empty());
    EXPECT_THROW(p.add(a, tok_CoordinateSystem3d), DomException);
    EXPECT_EQ(reports().back(),
              "not a valid content child 'CoordinateSystem3d' [parent 'Scene2d']\n");
    EXPECT_THROW(p.add(a, tok_CoordinateSystem3dStyle), DomException);
    EXPECT_EQ(reports().back(), "illegal option child [parent 'Scene2d']\n");
    EXPECT_THROW(p.add(p.add(p.canvas, tok_Scene2dStyle), tok_Header), DomException);
    // The option children each dimension takes, as a mask.
    EXPECT_EQ((Ref<Probe<Scene2d>>(new Probe<Scene2d>(&p.doc))->allowedOptionChildren()), 23);
    EXPECT_EQ((Ref<Probe<Scene3d>>(new Probe<Scene3d>(&p.doc))->allowedOptionChildren()), 43);

    // No object style anywhere: false, though the objects' default of KeepUpVector is true.
    EXPECT_FALSE(c->getKeepUpVector());
    auto style = [&](Node* parent, Token type, Token name, const char* value) {
        auto* s = p.add(parent, tok_ObjStyle);
        s->setAttribute(tok_Type, Arbor::TokenVariant(type));
        if (value) set(s, name, value);
        return s;
    };
    style(p.canvas, tok_Default, tok_KeepUpVector, "1");
    EXPECT_TRUE(c->getKeepUpVector());
    // A Camera style goes before every Default one; the scene's own children count, the first
    // in document order that holds the value.
    style(p.canvas, tok_Camera, tok_OrthogonalProjection, "1");
    style(c, tok_Camera, tok_KeepUpVector, nullptr);
    style(c, tok_Camera, tok_KeepUpVector, "0");
    EXPECT_FALSE(c->getKeepUpVector());
    EXPECT_TRUE(c->getOrthogonalProjection());
}

TEST(Scene, LayoutConvertsPlacesIntoAndOutOfRelative) {
    Page p;
    set(p.canvas, tok_Width, "160");
    set(p.canvas, tok_Height, "90");
    auto* style = p.add(p.canvas, tok_Scene2dStyle);
    set(style, tok_Width, "70");
    auto* own = p.add<Scene2d>(p.canvas, tok_Scene2d);
    set(own, tok_Left, "7.3");
    set(own, tok_Bottom, "11.1");
    set(own, tok_Width, "51.7");
    set(own, tok_Height, "33.3");
    auto* inherits = p.add<Scene3d>(p.canvas, tok_Scene3d);
    auto* follows = p.add<Scene2d>(p.canvas, tok_Scene2d);

    // Between layouts other than Relative, and by a plain set, nothing is converted.
    p.canvas->setLayout(tok_Horizontal);
    p.canvas->setProperty(tok_Layout, Arbor::TokenVariant(tok_Relative));
    EXPECT_EQ(own->getLeft(), 7.3);
    EXPECT_EQ(own->attributes().size(), 4u);
    p.canvas->setProperty(tok_Layout, Arbor::TokenVariant(tok_Tabular));

    p.canvas->setLayout(tok_Relative);
    EXPECT_DOUBLE_EQ(own->getLeft(), 7.3 / 160);
    EXPECT_DOUBLE_EQ(own->getHeight(), 33.3 / 90);
    // The resolved sizes were converted and are the scenes' own now.
    EXPECT_EQ(inherits->findAttribute(tok_Height)->as<Arbor::DoubleVariant>()->val(), 75.0 / 90);
    EXPECT_EQ(follows->findAttribute(tok_Width)->as<Arbor::DoubleVariant>()->val(), 70.0 / 160);

    p.canvas->setLayout(tok_Absolute);
    EXPECT_DOUBLE_EQ(own->getLeft(), 7.3);
    EXPECT_DOUBLE_EQ(own->getBottom(), 11.1);
    EXPECT_DOUBLE_EQ(own->getWidth(), 51.7);
    EXPECT_DOUBLE_EQ(own->getHeight(), 33.3);
    EXPECT_DOUBLE_EQ(inherits->getHeight(), 75.0);
    // Back on the style's value exactly, the scene follows the style again.
    EXPECT_FALSE(follows->hasAttribute(tok_Width));

    // Without a positive page size nothing changes.
    const std::vector<AttributeValue> before = own->attributes();
    own->setPositionRelative(true, 0, 90);
    own->setPositionRelative(true, 160, std::nan(""));
    ASSERT_EQ(own->attributes().size(), before.size());
    for (std::size_t i = 0; i < before.size(); ++i)
        EXPECT_TRUE(own->attributes()[i].value == before[i].value) << before[i].name;
}

TEST(Scene, CommandTextPlacesInUnitsOrFractions) {
    Page p;
    auto* style = p.add(p.canvas, tok_Scene2dStyle);
    set(style, tok_Width, "25.4");
    set(style, tok_LegendVisible, "0");
    auto* a = p.add<Scene2d>(p.canvas, tok_Scene2d, "a");
    set(a, tok_Left, "50.8");
    set(a, tok_Consistent, "1");
    EXPECT_EQ(cmd(style, tok_In), "  plot::Scene2d::Width=1,\r\n"
                                  "  plot::Scene2d::LegendVisible=FALSE");
    EXPECT_EQ(cmd(a, tok_In), "  plot::Scene2d(\r\n"
                              "    id=\"a\",\r\n"
                              "    Left=2)");
    // Under a Relative page the place is a bare fraction; a size still goes through the unit.
    p.canvas->setLayout(tok_Relative);
    EXPECT_EQ(cmd(a, tok_In), "  plot::Scene2d(\r\n"
                              "    id=\"a\",\r\n"
                              "    Width=0.01,\r\n"
                              "    Left=0.508,\r\n"
                              "    Height=0.0393701,\r\n"
                              "    Bottom=0)");
}

// A whole 2D plot read from ZPX: a page with its styles, a scene, a coordinate system with
// viewing box, ticks and hints, and a function graph with its computed polygon.
namespace {

const char* const plotText = R"(<?xml version="1.0" encoding="UTF-8"?>
<Canvas version="1" Width="160" Height="100">
<Header>Sine</Header>
<Scene2dStyle Width="70" BorderWidth="0.5" LegendVisible="0"/>
<CoordinateSystem2dStyle Axes="Frame" TicksLength="2" XGridVisible="1" GridLineColor="#708090"/>
<ObjStyle Type="Default" LineWidth="0.35" LinesVisible="1"/>
<Scene2d id="scene" Name="left" Bottom="10" Left="5" Height="60">
<CoordinateSystem2dStyle Axes="Origin" AxesTips="0"/>
<CoordinateSystem2d id="cs" AutoViewingBox="12" YGridVisible="1">
<ViewingBoxXMin Val="-3.14159">-PI</ViewingBoxXMin>
<ViewingBoxXMax Val="3.14159">PI</ViewingBoxXMax>
<ViewingBoxYMin Val="-1.2">-1.2</ViewingBoxYMin>
<ViewingBoxYMax Val="1.2">1.2</ViewingBoxYMax>
<AxesOriginX Val="0">0</AxesOriginX>
<XAxisTitle>x</XAxisTitle>
<XTicksDistance Val="1.5708">PI/2</XTicksDistance>
<YTicksAt>
<TickPos><VExpr Val="-1">-1</VExpr></TickPos>
<TickPos><VExpr Val="1">1</VExpr><Title>one</Title></TickPos>
</YTicksAt>
<Hints Scaling="Constrained"/>
<ObjStyle Type="Function2d" LineColor="#C0392B"/>
<Obj2d id="sine" Type="Function2d" Name="sine">
<Expr Opt="Function">sin(x)</Expr>
<Img2d><Poly2d><P2>0 0</P2><P2>1.5708 1</P2></Poly2d></Img2d>
</Obj2d>
</CoordinateSystem2d>
</Scene2d>
</Canvas>)";

struct ScenePlot : ::testing::Test {
    Heard heard; // outlives the document it observes
    PlotDocument doc;
    Canvas* canvas = nullptr;
    Scene2d* scene = nullptr;
    CoordinateSystem2d* cs = nullptr;
    Obj2d* sine = nullptr;

    void SetUp() override {
        reports().clear();
        doc.domErrorHdl(collectReport);
        ASSERT_TRUE(load(doc, plotText)) << ::testing::PrintToString(reports());
        canvas = dynamic_cast<Canvas*>(doc.documentElement());
        scene = dynamic_cast<Scene2d*>(canvas->findChild(tok_Scene2d));
        cs = dynamic_cast<CoordinateSystem2d*>(scene->findChild(tok_CoordinateSystem2d));
        sine = dynamic_cast<Obj2d*>(cs->findChild(tok_Obj2d));
        ASSERT_TRUE(scene && cs && sine);
        doc.addObserver(&heard, tok_AfterPropertyChange);
    }
    static bool load(PlotDocument& into, const std::string& text) {
        ZpxParserHandler handler(&into, false, collectReport);
        ZpxParser parser(&handler, true, nullptr);
        return parser.parseSave(text.data(), static_cast<int>(text.size()), true);
    }
    static PlotElement* child(Node* parent, Token tag) {
        return PlotElement::from(parent->findChild(tag));
    }
    PlotElement* poly() { return child(child(sine, tok_Img2d), tok_Poly2d); }
    // The events that setting `name` of `e` from `text` fires.
    std::vector<std::string> changes(PlotElement* e, Token name, const char* text) {
        heard.events.clear();
        set(e, name, text);
        return heard.events;
    }
};

} // namespace

TEST_F(ScenePlot, EveryValueFromItsOwnLevelAndNothingWrittenBack) {
    const std::string written = xml(&doc);
    // The scene: its own place and height, the page style's width, the default margin.
    EXPECT_EQ(scene->getBottom(), 10.0);
    EXPECT_EQ(scene->getHeight(), 60.0);
    EXPECT_EQ(scene->getWidth(), 70.0);
    EXPECT_FALSE(scene->getLegendVisible());
    EXPECT_EQ(scene->getTopMargin(), 0.0);
    // The system: its own value, the scene's style, the page's style, the default.
    EXPECT_TRUE(cs->getYGridVisible());
    EXPECT_EQ(cs->getAxes(), tok_Origin);
    EXPECT_FALSE(cs->getAxesTips());
    EXPECT_EQ(cs->getTicksLength(), 2.0);
    EXPECT_EQ(cs->getGridLineColor(), RGBA(0x70, 0x80, 0x90, 0xFF));
    EXPECT_EQ(cs->getGridLineWidth(), 0.2);
    EXPECT_TRUE(cs->getConstrainedScaling()); // Automatic, so the Hints decide
    EXPECT_EQ(static_cast<VExpr*>(child(cs, tok_ViewingBoxXMax))->getVal(), 3.14159);
    // The object and its polygon: the system's style of the type, the page's Default style.
    EXPECT_EQ(sine->getLineColor(), RGBA(0xC0, 0x39, 0x2B, 0xFF));
    EXPECT_EQ(poly()->getProperty(tok_LineWidth), Arbor::DoubleVariant(0.35));

    // Only what was stated is written, and it reads back to the same text.
    EXPECT_EQ(xml(&doc), written);
    for (const char* stated : {"<Scene2d Name=\"left\" Left=\"5\" Height=\"60\" Bottom=\"10\">",
                               "<CoordinateSystem2d YGridVisible=\"1\" AutoViewingBox=\"12\">",
                               "<CoordinateSystem2dStyle AxesTips=\"0\" Axes=\"Origin\">",
                               "<TickPos><VExpr Val=\"1\">1</VExpr><Title>one</Title></TickPos>"})
        EXPECT_NE(written.find(stated), std::string::npos) << stated;
    PlotDocument again;
    ASSERT_TRUE(load(again, written));
    EXPECT_EQ(xml(&again), written);

    // In command text the y limits (found automatically, by the mask 12), the mask itself and
    // the hints are left out.
    std::ostringstream text;
    doc.putCmd(text, false);
    EXPECT_EQ(text.str(),
              "plot(\r\n"
              "  plot::Canvas(\r\n"
              "    version=1,\r\n"
              "    Width=160,\r\n"
              "    Height=100,\r\n"
              "    Header=\"Sine\",\r\n"
              "    plot::Scene2d::Width=70,\r\n"
              "    plot::Scene2d::LegendVisible=FALSE,\r\n"
              "    plot::Scene2d::BorderWidth=0.5,\r\n"
              "    plot::CoordinateSystem2d::XGridVisible=TRUE,\r\n"
              "    plot::CoordinateSystem2d::TicksLength=2,\r\n"
              "    plot::CoordinateSystem2d::GridLineColor=[0.439216,0.501961,0.564706],\r\n"
              "    plot::CoordinateSystem2d::Axes=Frame,\r\n"
              "    LinesVisible=TRUE,\r\n"
              "    LineWidth=0.35,\r\n"
              "    plot::Scene2d(\r\n"
              "      id=\"scene\",\r\n"
              "      Name=\"left\",\r\n"
              "      Left=5,\r\n"
              "      Height=60,\r\n"
              "      Bottom=10,\r\n"
              "      plot::CoordinateSystem2d::AxesTips=FALSE,\r\n"
              "      plot::CoordinateSystem2d::Axes=Origin,\r\n"
              "      plot::CoordinateSystem2d(\r\n"
              "        id=\"cs\",\r\n"
              "        YGridVisible=TRUE,\r\n"
              "        ViewingBoxXMin=(-PI),\r\n"
              "        ViewingBoxXMax=(PI),\r\n"
              "        AxesOriginX=(0),\r\n"
              "        XAxisTitle=\"x\",\r\n"
              "        XTicksDistance=(PI/2),\r\n"
              "        YTicksAt=[          -1,\r\n"
              "          (1)=\"one\"],\r\n"
              "        plot::Function2d::LineColor=[0.752941,0.223529,0.168627],\r\n"
              "        plot::Function2d(\r\n"
              "          id=\"sine\",\r\n"
              "          Name=\"sine\",\r\n"
              "          Function=(sin(x))))))):");
    EXPECT_TRUE(reports().empty());
}

TEST_F(ScenePlot, ChangesReachExactlyTheValuesThatFollowThem) {
    using Events = std::vector<std::string>;
    PlotElement* pageScene = child(canvas, tok_Scene2dStyle);
    PlotElement* pageSystem = child(canvas, tok_CoordinateSystem2dStyle);
    PlotElement* sceneSystem = child(scene, tok_CoordinateSystem2dStyle);

    EXPECT_EQ(changes(pageScene, tok_Width, "80"),
              (Events{"Scene2dStyle@Canvas.Width", "scene.Width"}));
    EXPECT_EQ(scene->getWidth(), 80.0);
    // The scene states its height: the change stops at the style.
    EXPECT_EQ(changes(pageScene, tok_Height, "50"), Events{"Scene2dStyle@Canvas.Height"});
    // The scene's style hands the page's change on to its sibling the system, and the walk
    // through the scene reaches the system as well.
    EXPECT_EQ(changes(pageSystem, tok_TicksLength, "3"),
              (Events{"CoordinateSystem2dStyle@Canvas.TicksLength",
                      "CoordinateSystem2dStyle@Scene2d.TicksLength", "cs.TicksLength",
                      "cs.TicksLength"}));
    EXPECT_EQ(changes(sceneSystem, tok_GridLineWidth, "0.3"),
              (Events{"CoordinateSystem2dStyle@Scene2d.GridLineWidth", "cs.GridLineWidth"}));
    EXPECT_EQ(cs->getGridLineWidth(), 0.3);
    EXPECT_EQ(changes(sceneSystem, tok_YGridVisible, "0"),
              Events{"CoordinateSystem2dStyle@Scene2d.YGridVisible"});
    // An object style on the page reaches the object and its polygon through scene and system;
    // the system's style of the object's type follows it and hands it on too.
    EXPECT_EQ(changes(child(canvas, tok_ObjStyle), tok_LineWidth, "0.4"),
              (Events{"ObjStyle@Canvas.LineWidth", "ObjStyle@CoordinateSystem2d.LineWidth",
                      "sine.LineWidth", "Poly2d@Img2d.LineWidth", "sine.LineWidth",
                      "Poly2d@Img2d.LineWidth"}));
    EXPECT_EQ(poly()->getProperty(tok_LineWidth), Arbor::DoubleVariant(0.4));
    EXPECT_EQ(changes(child(cs, tok_Hints), tok_Scaling, "Unconstrained"),
              Events{"Hints@CoordinateSystem2d.Scaling"});
    EXPECT_FALSE(cs->getConstrainedScaling());
    EXPECT_TRUE(reports().empty());
}
