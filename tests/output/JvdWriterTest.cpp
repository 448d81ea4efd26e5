#include "document/ZpxTestHelpers.h"
#include "support/JvdChecker.h"

#include <grafel/output/JVDWriter.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>

namespace {

using namespace Grafel;

/// Stores an attribute past the checks of its type, for values no reader or setter lets in.
struct RawAttribute : Arbor::Element {
    static void set(Arbor::Element* e, Arbor::Token name, const Arbor::Variant& value) {
        (e->*&RawAttribute::setAttributeRaw)(name, value);
    }
};

using Edit = void (*)(PlotDocument&);

/// The display of `zpx` from "<displays>" on, after the structure check.
std::string display(const std::string& zpx, Edit edit = nullptr) {
    PlotDocument doc;
    EXPECT_TRUE(ZpxTest::load(doc, zpx)) << zpx;
    if (edit) edit(doc);
    JVDWriter writer(&doc);
    writer.setFixedDate("D");
    std::ostringstream out;
    writer.write(&out, JavaViewWriter::noTime);
    const std::string text = out.str();
    EXPECT_EQ(TestSupport::checkJvd(text), "") << text;
    return text.substr(text.find("<displays>"));
}

std::string box(const char* x, const char* y, const char* z = nullptr) {
    std::string text;
    const auto pair = [&](const char* axis, const char* bounds) {
        std::istringstream in(bounds);
        std::string low, high;
        in >> low >> high;
        for (const auto& [end, value] : {std::pair{"Min", low}, std::pair{"Max", high}})
            text += std::string("<ViewingBox") + axis + end + " Val=\"" + value + "\">" + value +
                    "</ViewingBox" + axis + end + ">";
    };
    pair("X", x);
    pair("Y", y);
    if (z) pair("Z", z);
    return text;
}

std::string plot3d(const std::string& sceneAttrs, const std::string& systemAttrs,
                   const std::string& body, const std::string& canvasBody = "") {
    return "<Canvas>" + canvasBody + "<Scene3d " + sceneAttrs + "><CoordinateSystem3d " +
           systemAttrs + ">" + body + "</CoordinateSystem3d></Scene3d></Canvas>";
}

std::string plot2d(const std::string& systemAttrs, const std::string& body) {
    return R"(<Canvas Width="120" Height="40"><Scene2d><CoordinateSystem2d )" + systemAttrs + ">" +
           body + "</CoordinateSystem2d></Scene2d></Canvas>";
}

std::string object(const char* type, const std::string& primitive, const char* attrs = "") {
    return std::string("<Obj3d Type=\"") + type + "\" " + attrs + "><Img3d><" + primitive +
           "/></Img3d></Obj3d>";
}

std::string camera(const char* position, const char* up, const char* more = "") {
    return object("Camera", std::string("Camera Position=\"") + position +
                                "\" FocalPoint=\"0 0 1\" UpVector=\"" + up +
                                "\" ViewingAngle=\"0.6\" " + more);
}

const std::string cube = box("-1 1", "-1 1", "-1 1");

TEST(JvdWriter, SceneWithAxesCameraLightsAndClippingBox) {
    const std::string zpx = plot3d(
        R"(BackgroundColor="#102030")", "",
        box("-1 1", "-2 2", "0 4") + R"(<XAxisTitle>x &amp; "t"</XAxisTitle>)" +
            R"(<XTicksDistance Val="0.5">0.5</XTicksDistance>)" +
            object("Camera", R"(Camera Position="10 0 0" UpVector="0 1 1" ViewingAngle="0.6")") +
            object("AmbientLight", R"(AmbientLight LightIntensity="0.3" LightColor="#ffffff")") +
            object("PointLight",
                   R"(PointLight LightIntensity="0.8" LightColor="#fff4e0" Position="4 -3 6")") +
            object("DistantLight", R"(DistantLight Position="4 -3 6")", R"(Visible="0")") +
            object("SpotLight", R"(SpotLight Position="1 2 3" Target="0 0 1")") +
            object("ClippingBox", "ClippingBox"));
    const std::string rulerEnd = "<color>0 0 0</color>\n<thickness>1</thickness>\n</ruler>\n";
    EXPECT_EQ(display(zpx),
              "<displays>\n"
              "<display antiAlias=\"hide\" border=\"hide\" depthcue=\"hide\" sorting=\"show\">\n"
              "<axes autoHashing=\"show\" autoBounds=\"show\" visible=\"show\" dim=\"3\" "
              "type=\"bndbox\">\n"
              "<ruler visible=\"show\" label=\"show\" name=\"x &amp; &quot;t&quot;\" "
              "numbers=\"show\" ticksMajor=\"show\" ticksMinor=\"show\">\n"
              "<minValue>-1</minValue>\n<maxValue>1</maxValue>\n"
              "<minorUnit>0.5</minorUnit>\n<majorUnit>0.5</majorUnit>\n" +
                  rulerEnd +
                  "<ruler visible=\"show\" numbers=\"show\" ticksMajor=\"show\" "
                  "ticksMinor=\"show\">\n<minValue>-2</minValue>\n<maxValue>2</maxValue>\n" +
                  rulerEnd +
                  "<ruler visible=\"show\" numbers=\"show\" ticksMajor=\"show\" "
                  "ticksMinor=\"show\">\n<minValue>0</minValue>\n<maxValue>4</maxValue>\n" +
                  rulerEnd +
                  "</axes>\n"
                  "<bndbox visible=\"show\">\n<color>0 0 0</color>\n<thickness>1</thickness>\n"
                  "</bndbox>\n"
                  "<boxRatio visible=\"show\">1 0.5 0.333333</boxRatio>\n"
                  "<clipRange visible=\"show\" autoBounds=\"hide\">\n"
                  "<range type=\"X\">-1.2 1.2</range>\n<range type=\"Y\">-2.4 2.4</range>\n"
                  "<range type=\"Z\">-0.4 4.4</range>\n</clipRange>\n"
                  "<cameras select=\"Perspective\">\n<camera projection=\"Perspective\">\n"
                  "<position>6.18672 0 0</position>\n<interest>0 0 0</interest>\n"
                  "<fieldOfView>0.618672</fieldOfView>\n<roll>45</roll>\n</camera>\n</cameras>\n"
                  "<lights lightingModel=\"Light\">\n"
                  "<ambient><color>255 255 255</color></ambient>\n"
                  "<light type=\"ambient\">\n<color>255 255 255</color>\n"
                  "<intensity>0.3</intensity>\n</light>\n"
                  "<light type=\"point\">\n<position>4 -3 6</position>\n"
                  "<color>255 244 224</color>\n<intensity>0.8</intensity>\n</light>\n"
                  "<light type=\"spot\">\n<position>1 2 3</position>\n"
                  "<interest>0 0 1</interest>\n<color>255 255 255</color>\n"
                  "<intensity>1</intensity>\n</light>\n</lights>\n"
                  "<background>\n<color>16 32 48</color>\n</background>\n"
                  "</display>\n</displays>\n</jv-disp>\n");
}

TEST(JvdWriter, PlaneScene) {
    const std::string zpx = plot2d(R"(Axes="Origin" XGridVisible="1" XTicksBetween="3")",
                                   box("-1 3", "-1 1") + "<YAxisTitle>y</YAxisTitle>" +
                                       R"(<XTicksDistance Val="1">1</XTicksDistance>)");
    // A page of height 0 takes the ratio 1 to 2/3.
    const Edit flatPage = [](PlotDocument& doc) {
        RawAttribute::set(doc.documentElement(), tok_Height, Arbor::DoubleVariant(0));
    };
    const std::string rulerEnd = "<color>0 0 0</color>\n<thickness>1</thickness>\n</ruler>\n";
    EXPECT_EQ(display(zpx, flatPage),
              "<displays>\n"
              "<display antiAlias=\"hide\" border=\"hide\" depthcue=\"hide\" sorting=\"hide\">\n"
              "<axes autoHashing=\"show\" autoBounds=\"show\" visible=\"show\" dim=\"2\" "
              "span=\"xy\" type=\"corner\" longHash=\"ttfttf\">\n"
              "<ruler visible=\"show\" numbers=\"show\" ticksMajor=\"show\" ticksMinor=\"show\">\n"
              "<minValue>-1</minValue>\n<maxValue>3</maxValue>\n"
              "<minorUnit>0.25</minorUnit>\n<majorUnit>1</majorUnit>\n" +
                  rulerEnd +
                  "<ruler visible=\"show\" label=\"show\" name=\"y\" numbers=\"show\" "
                  "ticksMajor=\"show\" ticksMinor=\"show\">\n"
                  "<minValue>-1</minValue>\n<maxValue>1</maxValue>\n" +
                  rulerEnd +
                  "<ruler visible=\"hide\" name=\"z\" label=\"hide\" hashsUp=\"show\"/>\n"
                  "</axes>\n"
                  "<bndbox visible=\"hide\">\n<color>0 0 0</color>\n<thickness>1</thickness>\n"
                  "</bndbox>\n"
                  "<boxRatio visible=\"show\">0.75 1 1</boxRatio>\n"
                  "<clipRange visible=\"show\" autoBounds=\"hide\">\n"
                  "<range type=\"X\">-1.4 3.4</range>\n<range type=\"Y\">-1.2 1.2</range>\n"
                  "</clipRange>\n"
                  "<cameras select=\"X-Y\">\n<camera projection=\"X-Y\" sceneRatio=\"show\">\n"
                  "<position>1 0 3.6</position>\n<interest>1 0 0</interest>\n"
                  "<fieldOfView>0</fieldOfView>\n</camera>\n</cameras>\n"
                  "<background>\n<color>255 255 255</color>\n</background>\n"
                  "</display>\n</displays>\n</jv-disp>\n");
}

struct Case {
    const char* name;
    std::string zpx;
    std::vector<std::string> present;
    std::vector<std::string> absent;
};

TEST(JvdWriter, EdgeCases) {
    const Case cases[] = {
        {"no viewing box: no bounds, clipping, cameras or automatic lights",
         plot3d(R"(Lighting="Automatic")", "",
                camera("0 0 5", "0 0 1", R"(OrthogonalProjection="1")")),
         {"<ruler visible=\"show\" numbers"},
         {"<minValue>", "<clipRange", "<cameras", "<lights", "<boxRatio"}},
        {"Axes None without grid hides the axes",
         plot3d("", R"(Axes="None")", cube),
         {"visible=\"hide\" dim=\"3\" type=\"center\">\n", "<bndbox visible=\"hide\">"},
         {}},
        {"centred axes inside the 3D box keep the clip range",
         plot3d("", R"(Axes="Origin")", cube),
         {"type=\"center\">\n", "<range type=\"X\">-1 1</range>\n"},
         {}},
        {"centred 2D axes always widen it",
         plot2d(R"(Axes="Origin")", box("-1 1", "-1 1")),
         {"type=\"center\">\n", "<range type=\"X\">-1.2 1.2</range>\n"},
         {}},
        {"an inverted pair is not known",
         plot3d("", "", box("1 -1", "-1 1", "-1 1")),
         {"<range type=\"Y\">-1.2 1.2</range>\n"},
         {"<range type=\"X\">", "<boxRatio", "<minValue>1<"}},
        {"an up vector along z has no roll",
         plot3d("", "", camera("0 5 1", "0 0 1")),
         {"<fieldOfView>0.618672</fieldOfView>\n</camera>\n</cameras>\n"},
         {"<roll>"}},
        {"an up vector against z rolls half a turn",
         plot3d("", "", camera("0 5 1", "0 0 -1")),
         {"<roll>180</roll>\n</camera>\n"},
         {}},
        {"an orthogonal camera without a scale gives way to the next",
         plot3d("", "",
                camera("0 0 5", "0 0 1", R"(OrthogonalProjection="1")") + camera("0 5 1", "0 0 1")),
         {"<position>0 3.09336 1</position>\n"},
         {"<position>0 0 "}},
        {"an orthogonal camera is placed at 1.5 scales in its direction",
         plot3d("", "", cube + camera("0 0 5", "0 0 1", R"(OrthogonalProjection="1")")),
         {"<position>0 0 3</position>\n<interest>0 0 1</interest>\n<fieldOfView>0<"},
         {}},
        {"without a camera object the default camera sees the box",
         plot3d("", "", cube),
         {"<camera projection=\"Perspective\">\n<position>-1.62729 -2.55467 1.03237</position>\n"
          "<interest>0 0 0</interest>\n<fieldOfView>0.174977</fieldOfView>\n"},
         {}},
        {"automatic lights surround the box",
         plot3d(R"(Lighting="Automatic")", "", cube),
         {"<light type=\"ambient\">\n<color>255 255 255</color>\n<intensity>0.125</intensity>\n",
          "<light type=\"point\">\n<position>5 6 -8</position>\n<interest>0 0 0</interest>\n"
          "<color>255 255 255</color>\n<intensity>0.4</intensity>\n<exponent>50</exponent>\n",
          "<position>-5 6 8</position>\n"},
         {}},
        {"lighting None writes no lights",
         plot3d(R"(Lighting="None")", "", object("AmbientLight", "AmbientLight")),
         {},
         {"<lights"}},
        {"constrained scaling hides the ratio and keeps the camera square",
         plot2d(R"(Scaling="Constrained")", box("0 4", "0 1")),
         {"<boxRatio visible=\"hide\">0.75 1 1</boxRatio>\n", "<position>2 0.5 4.8</position>\n"},
         {}},
        {"an animation leaves the bounds to the viewer",
         "<Canvas><TimeRange TimeBegin=\"0\" TimeEnd=\"1\"/><Scene3d><CoordinateSystem3d/>"
         "</Scene3d></Canvas>",
         {"autoBounds=\"hide\" visible"},
         {}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        const std::string text = display(c.zpx);
        for (const std::string& part : c.present)
            EXPECT_NE(text.find(part), std::string::npos) << part << "\nin\n" << text;
        for (const std::string& part : c.absent)
            EXPECT_EQ(text.find(part), std::string::npos) << part << "\nin\n" << text;
    }
}

TEST(JvdWriter, CameraWithoutImageFails) {
    PlotDocument doc;
    ASSERT_TRUE(ZpxTest::load(doc, plot3d("", "", R"(<Obj3d Type="Camera"/>)")));
    JVDWriter writer(&doc);
    std::ostringstream out;
    try {
        writer.write(&out, JavaViewWriter::noTime);
        ADD_FAILURE() << "no error";
    } catch (const JavaViewExportError& e) {
        EXPECT_STREQ(e.what(), "no Img3d");
    }
}

TEST(JvdWriter, EveryExampleWithASceneExportsAWellFormedDisplay) {
    const auto examples = std::filesystem::path(GRAFEL_SOURCE_DIR) / "examples";
    int exported = 0;
    for (const auto& entry : std::filesystem::directory_iterator(examples)) {
        if (entry.path().extension() != ".zpx") continue;
        std::ifstream in(entry.path());
        std::stringstream text;
        text << in.rdbuf();
        if (text.str().find("<Scene") == std::string::npos) continue;
        SCOPED_TRACE(entry.path().filename().string());
        display(text.str());
        ++exported;
    }
    EXPECT_GE(exported, 8);
}

TEST(JvdChecker, FindsBrokenDisplays) {
    const std::string good = display(plot3d("", "", cube));
    const std::string head = "<!DOCTYPE jv-disp SYSTEM \"http://h/rsrc/jv-disp.dtd\">\n<jv-disp>\n";
    const std::pair<std::string, std::string> breaks[] = {
        {"<color>0 0 0</color>", "<color>0 0</color>"},
        {"sorting=\"show\"", "sorting=\"yes\""},
        {"<range type=\"X\">-1.2 1.2</range>", "<range type=\"X\">1.2 -1.2</range>"},
        {"<background>", "<backdrop>"},
        {"</bndbox>\n", "</bndbox>\n<bndbox visible=\"show\"><color>0 0 0</color></bndbox>\n"},
    };
    EXPECT_EQ(TestSupport::checkJvd(head + good), "");
    for (const auto& [from, to] : breaks) {
        std::string bad = head + good;
        bad.replace(bad.find(from), from.size(), to);
        EXPECT_NE(TestSupport::checkJvd(bad), "") << to;
    }
    EXPECT_NE(TestSupport::checkJvd("<jvx-model/>"), "");
    EXPECT_NE(TestSupport::checkJvd("<jv-disp>\n" + good), "");
}

} // namespace
