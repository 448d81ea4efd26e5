// The rules of groups and transforms: who may stand in them, where a transform's span comes
// from, how they write themselves, and that a deep nesting needs no deep stack.
#include <grafel/arbor/DomException.h>
#include <grafel/document/PlotDocument.h>
#include <grafel/foundation/ValueVariants.h>
#include <grafel/structure/Groups.h>
#include <grafel/structure/TransformFrames.h>
#include <grafel/structure/Transforms.h>

#include "document/ZpxTestHelpers.h"
#include "support/Reports.h"

#include <gtest/gtest.h>

#include <cmath>
#include <sstream>
#include <streambuf>
#include <string>

using namespace Grafel;
using Arbor::Ref;
using Arbor::Token;

namespace {

std::vector<std::string>& reports = TestSupport::reports();

struct Plot {
    PlotDocument doc;
    Ref<PlotElement> canvas, scene, system;
    explicit Plot(bool space = false) {
        reports.clear();
        doc.domErrorHdl(&TestSupport::collectReport);
        canvas = doc.createPlotElement(tok_Canvas);
        doc.appendChild(canvas.get());
        scene = add(canvas.get(), space ? tok_Scene3d : tok_Scene2d);
        system = add(scene.get(), space ? tok_CoordinateSystem3d : tok_CoordinateSystem2d);
    }
    Ref<PlotElement> make(Token tag, Token type = Token()) {
        Ref<PlotElement> e = doc.createPlotElement(tag);
        if (!type.isNull()) e->setAttribute(tok_Type, Arbor::TokenVariant(type));
        return e;
    }
    Ref<PlotElement> add(Arbor::Node* parent, Token tag, Token type = Token()) {
        Ref<PlotElement> e = make(tag, type);
        parent->appendChild(e.get());
        return e;
    }
    std::string cmd() {
        std::ostringstream out;
        doc.putCmd(out, false);
        return out.str();
    }
};

double timeEnd(PlotElement* e) {
    return e->getProperty(tok_TimeEnd).as<Arbor::DoubleVariant>()->val();
}

/// Whether appending `child` to `parent` is refused with the content child report.
bool refused(PlotElement* parent, PlotElement* child) {
    reports.clear();
    try {
        parent->appendChild(child);
    } catch (const Arbor::DomException& e) {
        return e.code() == Arbor::DomException::HierarchyRequestErr && reports.size() == 1 &&
               reports[0].starts_with("not a valid content child");
    }
    return false;
}

} // namespace

TEST(GroupTransform, CamerasLightsAndClippingStandOnlyInTheCoordinateSystem) {
    Plot p(true);
    Ref<PlotElement> group = p.add(p.system.get(), tok_Group3d);
    Ref<PlotElement> transform = p.add(group.get(), tok_Transform3d, tok_Rotate3d);
    for (Token type : {tok_Camera, tok_AmbientLight, tok_PointLight, tok_DistantLight,
                       tok_SpotLight, tok_ClippingBox}) {
        SCOPED_TRACE(type.text());
        EXPECT_TRUE(refused(group.get(), p.make(tok_Obj3d, type).get()));
        EXPECT_TRUE(refused(transform.get(), p.make(tok_Obj3d, type).get()));
        p.system->appendChild(p.make(tok_Obj3d, type).get());
    }
    // The Type must be there before the object goes in.
    EXPECT_TRUE(refused(group.get(), p.make(tok_Obj3d).get()));
    EXPECT_TRUE(refused(transform.get(), p.make(tok_Obj3d).get()));
    transform->appendChild(p.make(tok_Obj3d, tok_Surface).get());
    group->appendChild(p.make(tok_Group3d).get());
    // Nothing of the other dimension, and a transform holds no style.
    EXPECT_TRUE(refused(group.get(), p.make(tok_Obj2d, tok_Curve2d).get()));
    EXPECT_TRUE(refused(transform.get(), p.make(tok_ObjStyle, tok_Default).get()));
    EXPECT_TRUE(refused(transform.get(), p.make(tok_Transform2d, tok_Rotate2d).get()));
    // Each transform takes its own dimension's matrix only.
    reports.clear();
    EXPECT_THROW(transform->appendChild(p.make(tok_Matrix2d).get()), Arbor::DomException);
    EXPECT_EQ(reports, std::vector<std::string>{"illegal option child [parent 'Transform3d']\n"});
    transform->appendChild(p.make(tok_Matrix3d).get());
}

TEST(GroupTransform, TheSpanOfATransformComesFromTheStylesOfItsType) {
    Plot p;
    Ref<PlotElement> transform = p.make(tok_Transform2d, tok_Rotate2d);
    Ref<PlotElement> group = p.add(p.system.get(), tok_Group2d);
    group->appendChild(transform.get());
    EXPECT_EQ(timeEnd(transform.get()), 4.0); // no style at all

    Ref<PlotElement> byDefault = p.add(group.get(), tok_ObjStyle, tok_Default);
    byDefault->setAttribute(tok_TimeEnd, Arbor::DoubleVariant(6));
    EXPECT_EQ(timeEnd(transform.get()), 6.0);
    // A style of its Type, however far up, goes before every Default one.
    Ref<PlotElement> typed = p.make(tok_ObjStyle, tok_Rotate2d);
    typed->setAttribute(tok_TimeEnd, Arbor::DoubleVariant(8));
    p.canvas->insertBefore(typed.get(), p.scene.get());
    // A style coming in is no change of a value: the member is renewed by the next change.
    EXPECT_EQ(timeEnd(transform.get()), 6.0);
    typed->setAttribute(tok_TimeEnd, Arbor::DoubleVariant(9));
    EXPECT_EQ(timeEnd(transform.get()), 9.0);
    // An own value equal to the inherited one is dropped by normalisation.
    transform->setAttribute(tok_TimeEnd, Arbor::DoubleVariant(9));
    transform->normalizeAttributes();
    EXPECT_FALSE(transform->hasAttribute(tok_TimeEnd));

    // An object inside the transform sees past it to the styles of the group.
    Ref<PlotElement> object = p.add(transform.get(), tok_Obj2d, tok_Curve2d);
    EXPECT_EQ(timeEnd(object.get()), 6.0);

    reports.clear();
    EXPECT_THROW(transform->setAttribute(tok_Frames, Arbor::LongVariant(-1)), Arbor::DomException);
    EXPECT_EQ(reports.size(), 1u);
    EXPECT_EQ(transform->getProperty(tok_Frames), Arbor::LongVariant(0));
}

TEST(GroupTransform, CommandTextAndXml) {
    Plot p;
    ASSERT_TRUE(ZpxTest::load(p.doc, R"(<Canvas version="1"><Scene2d><CoordinateSystem2d>
        <Group2d id="g" Name="group" Consistent="1" Visible="0">
          <Transform2d Type="Scale2d" id="t" Consistent="1" Frames="2">
            <Expr Opt="ScaleX">2</Expr><Matrix2d/><Tr2d Param="0.5" Row2="3 4"/>
            <Obj2d Type="Point2d"/>
          </Transform2d>
        </Group2d></CoordinateSystem2d></Scene2d></Canvas>)"));
    std::string cmd = p.cmd();
    EXPECT_NE(cmd.find("plot::Group2d(\r\n"
                       "          id=\"g\",\r\n"
                       "          Visible=FALSE,\r\n"
                       "          Name=\"group\",\r\n"
                       "          plot::Scale2d(\r\n"
                       "            id=\"t\",\r\n"
                       "            Frames=2,\r\n"
                       "            ScaleX=(2),\r\n"
                       "            Matrix2d=NIL,\r\n"
                       "            plot::Point2d(\r\n"
                       "))))))):"),
              std::string::npos)
        << cmd;
    const std::string xml = ZpxTest::xml(p.doc);
    EXPECT_NE(xml.find("<Group2d Visible=\"0\" Name=\"group\" Consistent=\"1\"><Transform2d "
                       "Type=\"Scale2d\" Frames=\"2\" Consistent=\"1\"><Expr Opt=\"ScaleX\">2</"
                       "Expr><Tr2d Row2=\"3 4\" Param=\"0.5\"></Tr2d><Obj2d "
                       "Type=\"Point2d\"></Obj2d></Transform2d></Group2d>"),
              std::string::npos)
        << xml;
}

// The frames write no command text (above); here what they are and where they may stand.
TEST(GroupTransform, FramesAreIdentityMapsOfTheirOwnDimension) {
    Plot p(true);
    Ref<PlotElement> transform = p.add(p.system.get(), tok_Transform3d, tok_Rotate3d);
    Ref<PlotElement> frame = p.add(transform.get(), tok_Tr3d);
    const auto* tr3 = static_cast<Tr3d*>(frame.get());
    EXPECT_EQ(tr3->getShift(), P3(0, 0, 0));
    EXPECT_EQ(tr3->getRow1(), P3(1, 0, 0));
    EXPECT_EQ(tr3->getRow2(), P3(0, 1, 0));
    EXPECT_EQ(tr3->getRow3(), P3(0, 0, 1));
    EXPECT_TRUE(std::isnan(tr3->getParam()));
    Ref<PlotElement> flat = p.make(tok_Tr2d);
    const auto* tr2 = static_cast<Tr2d*>(flat.get());
    EXPECT_EQ(tr2->getShift(), P2(0, 0));
    EXPECT_EQ(tr2->getRow1(), P2(1, 0));
    EXPECT_EQ(tr2->getRow2(), P2(0, 1));

    EXPECT_TRUE(refused(transform.get(), flat.get()));
    Ref<PlotElement> plane = p.make(tok_Transform2d, tok_Rotate2d);
    EXPECT_TRUE(refused(plane.get(), p.make(tok_Tr3d).get()));
    plane->appendChild(flat.get());
    // A frame holds nothing at all.
    EXPECT_THROW(frame->appendChild(p.make(tok_Expr).get()), Arbor::DomException);
    EXPECT_FALSE(frame->hasChildNodes());
}

TEST(GroupTransform, ADeepNestingIsWalkedWithoutADeepStack) {
    Plot p;
    constexpr int depth = 10000;
    // Groups with a transform at every tenth level, built apart, then moved in with one change.
    Ref<PlotElement> top = p.make(tok_Group2d);
    PlotElement* level = top.get();
    for (int i = 1; i < depth; ++i) {
        Ref<PlotElement> inner =
            i % 10 ? p.make(tok_Group2d) : p.make(tok_Transform2d, tok_Translate2d);
        level->appendChild(inner.get());
        level = inner.get();
    }
    Ref<PlotElement> transform = p.add(level, tok_Transform2d, tok_Translate2d);
    Ref<PlotElement> object = p.add(transform.get(), tok_Obj2d, tok_Point2d);
    Ref<PlotElement> style = p.add(p.canvas.get(), tok_ObjStyle, tok_Translate2d);
    style->setAttribute(tok_TimeEnd, Arbor::DoubleVariant(7));
    transform->setAttribute(tok_TimeEnd, Arbor::DoubleVariant(7));
    p.system->appendChild(top.get()); // normalises what came in: the own value goes
    EXPECT_FALSE(transform->hasAttribute(tok_TimeEnd));
    EXPECT_EQ(timeEnd(transform.get()), 7.0);
    style->setAttribute(tok_TimeEnd, Arbor::DoubleVariant(8));
    EXPECT_EQ(timeEnd(transform.get()), 8.0);

    p.add(p.canvas.get(), tok_TimeRange);
    EXPECT_EQ(p.doc.getNextAnimationTime(0, false), 10.0);

    // The command text indents each level, so it grows with the square of the depth: counted,
    // not kept.
    struct Counter : std::streambuf {
        std::size_t count = 0;
        int overflow(int c) override {
            ++count;
            return c;
        }
        std::streamsize xsputn(const char*, std::streamsize n) override {
            count += static_cast<std::size_t>(n);
            return n;
        }
    } counter;
    std::ostream out(&counter);
    p.doc.putCmd(out, false);
    EXPECT_GT(counter.count, std::size_t(depth) * depth);
}
