// Cameras, lights, clipping boxes and scene views: their values on their own and in a loaded
// plot, the input they refuse, and the room they take.
#include "document/ZpxTestHelpers.h"

#include <grafel/arbor/DomException.h>
#include <grafel/primitives/Camera.h>
#include <grafel/primitives/ClippingBox.h>
#include <grafel/primitives/Lights.h>
#include <grafel/structure/Views.h>

#include <gtest/gtest.h>

#include <cmath>

using namespace ZpxTest;
using Arbor::Ref;

namespace {

template <class T> Ref<T> make(PlotDocument& doc, Arbor::Token tag) {
    return Ref<T>(static_cast<T*>(doc.createPlotElement(tag)));
}

const char* const plot = R"(<Canvas version="1">
<ObjStyle Type="Camera" KeepUpVector="0"/>
<ObjStyle Type="Default" LightColor="#FF8000" KeepUpVector="1"/>
<Scene3d>
<View3d ViewPositionX="4" ViewKeepUpVector="0"/>
<CoordinateSystem3d>
<Obj3d Type="Camera"><Img3d><Camera Position="1 2 3" FocalPoint="0 0 1" ViewingAngle="0.5"/></Img3d></Obj3d>
<Obj3d Type="SpotLight" CameraCoordinates="1"><Img3d><SpotLight LightIntensity="2" Position="0 0 5" Target="0 0 0" SpotAngle="0.25"/></Img3d></Obj3d>
<Obj3d Type="AmbientLight"><Img3d><AmbientLight LightIntensity="-1" LightColor="#202020"/></Img3d></Obj3d>
<Obj3d Type="ClippingBox"><Img3d><ClippingBox XMax="3"/></Img3d></Obj3d>
</CoordinateSystem3d>
</Scene3d>
</Canvas>
)";

} // namespace

// The constructor's values, which differ from the descriptor's defaults on purpose; clamping;
// copies that start over; and removal of a Mandatory value, refused with the kind's report.
TEST(CamerasLightsViews, NewElementsHoldTheConstructorsValues) {
    PlotDocument doc;
    calls().clear();
    doc.domErrorHdl(&collect);
    Ref<Camera> camera = make<Camera>(doc, tok_Camera);
    EXPECT_EQ(camera->getViewingAngle(), 30.0);
    EXPECT_TRUE(camera->hasAttribute(tok_ViewingAngle));
    EXPECT_FALSE(camera->hasAttribute(tok_UpVector));
    EXPECT_FALSE(camera->getKeepUpVector()); // the descriptor says true, once in a tree
    camera->setAttribute(tok_Position, P3Variant(P3(1, 2, 3)));
    Ref<Camera> copy(static_cast<Camera*>(camera->cloneNode(true)));
    EXPECT_EQ(copy->getPosition(), P3(10, 0, 0));
    EXPECT_EQ(Camera(*camera).getPosition(), P3(1, 2, 3)); // the copy constructor copies

    Ref<SpotLight> spot = make<SpotLight>(doc, tok_SpotLight);
    EXPECT_EQ(spot->getPosition(), P3(1, 1, 1));
    EXPECT_EQ(spot->getTarget(), P3(0, 0, 0));
    EXPECT_EQ(spot->getSpotAngle(), 15.0);
    EXPECT_EQ(spot->getLightColor(), RGBA::Black);
    for (auto [given, held] : {std::pair{2.0, 1.0}, {-1.0, 0.0}, {0.25, 0.25}}) {
        spot->setAttribute(tok_LightIntensity, Arbor::DoubleVariant(given));
        EXPECT_EQ(spot->getLightIntensity(), held);
    }

    Ref<ClippingBox> box = make<ClippingBox>(doc, tok_ClippingBox);
    EXPECT_EQ(box->getXMin(), -1.0);
    EXPECT_EQ(box->getZMax(), 1.0);

    Ref<View3d> view = make<View3d>(doc, tok_View3d);
    EXPECT_EQ(view->getViewUpVectorZ(), 1.0);
    EXPECT_FALSE(view->hasAttribute(tok_ViewUpVectorZ));
    EXPECT_TRUE(std::isnan(view->getViewPositionX()));

    // Refused by the kind without a report; the value stays.
    for (auto [element, name] : {std::pair<PlotElement*, Arbor::Token>{camera.get(), tok_Position},
                                 {spot.get(), tok_LightIntensity},
                                 {spot.get(), tok_Target},
                                 {box.get(), tok_XMax}}) {
        SCOPED_TRACE(name.text());
        calls().clear();
        EXPECT_THROW(element->removeAttribute(name), Arbor::DomException);
        EXPECT_TRUE(element->hasAttribute(name));
        EXPECT_TRUE(messages().empty());
    }
}

// A plot read from ZPX: values clamp, Inherited values come from the object above the image
// and the object styles of its Type, nothing reaches the command text, and the XML written
// reads back to the same bytes.
TEST(CamerasLightsViews, ALoadedPlotResolvesAndWritesBack) {
    PlotDocument doc;
    ASSERT_TRUE(load(doc, plot));
    EXPECT_TRUE(messages().empty());
    auto* camera = static_cast<Camera*>(find(&doc, tok_Camera));
    auto* spot = static_cast<SpotLight*>(find(&doc, tok_SpotLight));
    auto* ambient = static_cast<AmbientLight*>(find(&doc, tok_AmbientLight));
    auto* view = static_cast<View3d*>(find(&doc, tok_View3d));
    ASSERT_TRUE(camera && spot && ambient && view);
    EXPECT_EQ(camera->getPosition(), P3(1, 2, 3));
    EXPECT_EQ(camera->getViewingAngle(), 0.5);
    EXPECT_FALSE(camera->getKeepUpVector()); // the Camera style before the Default one
    EXPECT_EQ(spot->getLightIntensity(), 1.0);
    EXPECT_EQ(ambient->getLightIntensity(), 0.0);
    EXPECT_EQ(spot->getLightColor(), RGBA(0xFF, 0x80, 0x00, 0xFF));
    EXPECT_EQ(ambient->getLightColor(), RGBA(0x20, 0x20, 0x20, 0xFF));
    EXPECT_TRUE(spot->getCameraCoordinates()); // from its object
    EXPECT_EQ(view->getViewPositionX(), 4.0);
    EXPECT_FALSE(view->getViewKeepUpVector());
    EXPECT_EQ(view->getViewUpVectorZ(), 1.0); // not the default: a view inherits nothing

    const std::string once = xml(doc);
    // A light's own values first, then its bases'.
    EXPECT_NE(once.find("<SpotLight SpotAngle=\"0.25\" Target=\"0 0 0\" Position=\"0 0 5\" "
                        "LightIntensity=\"1\"></SpotLight>"),
              std::string::npos)
        << once;
    std::ostringstream cmd;
    doc.putCmd(cmd, false);
    EXPECT_EQ(cmd.str().find("View3d"), std::string::npos) << cmd.str();
    ASSERT_TRUE(load(doc, once));
    EXPECT_EQ(xml(doc), once);
}

// Each refusal leaves a fresh page and says what it refused.
TEST(CamerasLightsViews, RefusedInputLeavesAFreshPage) {
    const std::string scene3 = "<Canvas><Scene3d><CoordinateSystem3d>";
    const std::string end3 = "</CoordinateSystem3d></Scene3d></Canvas>";
    const struct {
        std::string text;
        std::vector<std::string> reports;
    } cases[] = {
        {scene3 + "<Group3d><Obj3d Type='Camera'/></Group3d>" + end3,
         {"not a valid content child 'Obj3d' [parent 'Group3d']\n"}},
        {scene3 + "<Transform3d Type='Translate3d'><Obj3d Type='SpotLight'/></Transform3d>" + end3,
         {"not a valid content child 'Obj3d' [parent 'Transform3d']\n"}},
        {scene3 + "<Obj3d Type='Camera'><Img3d><Camera><Camera/></Camera></Img3d></Obj3d>" + end3,
         {}},
        {"<Canvas><Scene2d><View2d><Header>h</Header></View2d></Scene2d></Canvas>", {}},
        {"<Canvas><Scene2d><View3d/></Scene2d></Canvas>",
         {"illegal option child [parent 'Scene2d']\n"}},
        {scene3 + "<Obj3d Type='Camera'><Img3d><Camera Position='1 2'/></Img3d></Obj3d>" + end3,
         {"illegal value string [attribute 'Position']\n"}},
        {scene3 + "<Obj3d Type='SpotLight'><Img3d><SpotLight SpotAngle='wide'/></Img3d></Obj3d>" +
             end3,
         {"illegal value string [attribute 'SpotAngle']\n"}},
    };
    PlotDocument doc;
    for (const auto& c : cases) {
        SCOPED_TRACE(c.text);
        ASSERT_TRUE(load(doc, plot));
        EXPECT_FALSE(load(doc, c.text));
        EXPECT_TRUE(isFreshCanvas(doc));
        EXPECT_EQ(messages(), c.reports);
    }
}

// No class wastes more than 8 bytes on padding: its size against the base's and the sum of its
// members, that is its presence word and the value of each row of its table and its bases'.
TEST(CamerasLightsViews, MembersLeaveLittlePadding) {
    constexpr std::size_t word = sizeof(std::uint32_t);
#define ROW_BYTES(K, Type, Name, ...) +sizeof(typename Type<Self, Kind::K>::Value)
#define CASE(Class, ...)                                                                           \
    {                                                                                              \
#Class, sizeof(Class), [] {                                                                   \
         using Self = Class;                                                                       \
         return word __VA_ARGS__;                                                                  \
     }()    \
    }
    const struct {
        const char* name;
        std::size_t size, members;
    } cases[] = {
        CASE(Camera, GRAFEL_CAMERA_TABLE(ROW_BYTES)),
        CASE(ClippingBox, GRAFEL_CLIPPINGBOX_TABLE(ROW_BYTES)),
        CASE(AmbientLight, GRAFEL_AMBIENTLIGHT_TABLE(ROW_BYTES)),
        CASE(PointLight, GRAFEL_AMBIENTLIGHT_TABLE(ROW_BYTES) GRAFEL_POINTLIGHT_TABLE(ROW_BYTES)),
        CASE(DistantLight, GRAFEL_AMBIENTLIGHT_TABLE(ROW_BYTES) GRAFEL_POINTLIGHT_TABLE(ROW_BYTES)
                               GRAFEL_DISTANTLIGHT_TABLE(ROW_BYTES)),
        CASE(SpotLight, GRAFEL_AMBIENTLIGHT_TABLE(ROW_BYTES) GRAFEL_POINTLIGHT_TABLE(ROW_BYTES)
                            GRAFEL_DISTANTLIGHT_TABLE(ROW_BYTES) GRAFEL_SPOTLIGHT_TABLE(ROW_BYTES)),
        CASE(View2d, GRAFEL_VIEW2D_TABLE(ROW_BYTES)),
        CASE(View3d, GRAFEL_VIEW3D_TABLE(ROW_BYTES)),
    };
#undef CASE
#undef ROW_BYTES
    for (const auto& c : cases) EXPECT_LE(c.size, sizeof(PlotElement) + c.members + 8) << c.name;
}
