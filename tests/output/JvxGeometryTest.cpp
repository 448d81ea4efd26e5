// The geometry of JavaView model files: the shapes the writer tessellates, the face and line
// lists of surfaces and meshes, colours, transforms, and the failures with what was already
// written. Every model written here also passes the structure checker.
#include "document/ZpxTestHelpers.h"
#include "support/JvxChecker.h"

#include <grafel/output/JVXWriter.h>
#include <grafel/output/detail/JvxColors.h>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <sstream>

namespace {

using namespace Grafel;

struct Model {
    std::string geometries; // the text between <geometries> and </geometries>
    std::string error;      // the export error, empty for none
    std::string whole;
};

/// The model of a 3D (or 2D) scene whose coordinate system holds `content`.
Model model(const std::string& content, bool is2d = false, bool check = true) {
    const std::string d = is2d ? "2d" : "3d";
    PlotDocument doc;
    EXPECT_TRUE(ZpxTest::load(doc, "<Canvas version=\"1\"><Scene" + d + "><CoordinateSystem" + d +
                                       ">" + content + "</CoordinateSystem" + d + "></Scene" + d +
                                       "></Canvas>"))
        << ::testing::PrintToString(ZpxTest::calls());
    JVXWriter writer(&doc);
    writer.setFixedDate("today");
    std::ostringstream out;
    Model m;
    try {
        writer.write(&out, JavaViewWriter::noTime);
    } catch (const JavaViewExportError& e) {
        m.error = e.what();
    }
    m.whole = out.str();
    const auto begin = m.whole.find("<geometries>\n");
    if (begin != std::string::npos) {
        const auto end = m.whole.find("</geometries>", begin);
        m.geometries =
            m.whole.substr(begin + 13, end == std::string::npos ? end : end - begin - 13);
    }
    if (check && m.error.empty()) {
        EXPECT_EQ(TestSupport::joinedJvxProblems(m.whole), "") << m.whole;
    }
    return m;
}

std::string object(const std::string& primitive, bool is2d = false) {
    return is2d ? "<Obj2d Type=\"Curve2d\"><Img2d>" + primitive + "</Img2d></Obj2d>"
                : "<Obj3d Type=\"Surface\"><Img3d>" + primitive + "</Img3d></Obj3d>";
}

std::size_t count(const std::string& text, const std::string& piece) {
    std::size_t n = 0;
    for (auto at = text.find(piece); at != std::string::npos; at = text.find(piece, at + 1)) ++n;
    return n;
}

std::string points3(int n) {
    std::string text;
    for (int i = 0; i < n; ++i)
        text += "<P3>" + std::to_string(i) + " " + std::to_string(i % 2) + " 0</P3>";
    return text;
}

const std::string material =
    ">\n<ambientIntensity>0.2</ambientIntensity>\n<diffuse><color>128 128 128</color></diffuse>\n"
    "<emissive><color>0 0 0</color></emissive>\n<shininess>0.9</shininess>\n"
    "<specular><color>128 128 128</color></specular>\n";

TEST(JvxGeometry, SegmentUnderTransformsIsWrittenInFinalCoordinates) {
    // Two nested shifts and a scale: the file holds (2*1+1+10, 2*2+2, 0) and so on.
    const Model m = model("<Transform3d Type=\"Translate3d\"><Tr3d Shift=\"10 0 0\"/><Transform3d "
                          "Type=\"Translate3d\"><Tr3d Shift=\"1 2 "
                          "0\" Row1=\"2 0 0\" Row2=\"0 2 0\"/>" +
                          object("<Line3d From=\"1 2 0\" To=\"0 0 0.5\" LineColor=\"#ff000080\" "
                                 "LineWidth=\"1\"/>") +
                          "</Transform3d></Transform3d>");
    EXPECT_EQ(m.geometries,
              "<geometry>\n<pointSet dim=\"3\" point=\"hide\">\n<points num=\"2\">\n<p>13 6 0</p>\n"
              "<p>11 2 0.5</p>\n<color>255 0 0</color>\n</points>\n</pointSet>\n<lineSet>\n"
              "<lines num=\"1\">\n<l>0 1</l>\n<thickness>3.54331</thickness>\n<color>255 0 "
              "0</color>\n</lines>\n</lineSet>\n<material" +
                  material +
                  "<transparency visible=\"show\">0.498039</transparency>\n</material>\n"
                  "</geometry>\n");
}

TEST(JvxGeometry, TessellatedShapesHaveTheirPointCounts) {
    struct Case {
        std::string primitive;
        bool is2d;
        std::vector<std::string> pieces; // each must occur in the geometries
        std::size_t points;              // number of <p> elements in all
    } cases[] = {
        // The default end angle stops short of a turn: centre first, 102 points, twice (face
        // and lines).
        {"<Arc2d Filled=\"1\"/>", true, {"<points num=\"102\">\n<p>0 0</p>\n<p>1 0</p>"}, 204},
        // A whole turn: 100 points without a centre, the line closed.
        {"<Arc2d StartAngle=\"0\" EndAngle=\"6.283185307179586\"/>",
         true,
         {"<points num=\"100\">\n<p>1 0</p>", " 98 99 0</l>"},
         200},
        {"<Circle3d Filled=\"1\"/>", false, {"<l>0 1 2", " 36 37 0</l>", "<f>0 1 2"}, 76},
        {"<Cone/>",
         false,
         {"<f>37 0 38 75</f>", "<nb>0 -1 36 -1</nb>", "shading=\"gouraud\""},
         152},
        {"<Sphere/>",
         false,
         {"<points num=\"841\">", "<faces num=\"784\">", "<nb>1 28 -1 -1</nb>"},
         841},
        // Negative sizes write nothing.
        {"<Sphere Radius=\"-1\"/><Cone TopRadius=\"-1\"/>", false, {}, 0},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.primitive);
        const Model m = model(object(c.primitive, c.is2d), c.is2d);
        EXPECT_EQ(m.error, "");
        for (const std::string& piece : c.pieces)
            EXPECT_NE(m.geometries.find(piece), std::string::npos) << piece;
        EXPECT_EQ(count(m.geometries, "<p>"), c.points);
    }
}

TEST(JvxGeometry, SurfacesMeshesAndPolygonsByKind) {
    struct Case {
        std::string primitive;
        std::vector<std::string> pieces;
        std::string error;
        bool check = true; // false: the output is known to fail the structure check
    } cases[] = {
        {"<Poly3d Filled=\"1\">" + points3(4) + "</Poly3d>", {}, ""},
        {"<Surf3d Type=\"TriangleStrip\">" + points3(4) + "</Surf3d>",
         {"<faces num=\"2\">\n<f>0 1 2</f>\n<f>1 3 2</f>",
          "<neighbours num=\"2\">\n<nb>1 -1 -1</nb>\n<nb>-1 0 -1</nb>"},
         ""},
        {"<Surf3d Type=\"TriangleStrip\">" + points3(3) + "</Surf3d>",
         {"<faces num=\"1\">", "<neighbours num=\"0\"/>\n"},
         ""},
        {"<Surf3d Type=\"QuadStrip\" Filled=\"0\" MeshVisible=\"1\">" + points3(6) + "</Surf3d>",
         {"<lines num=\"7\">\n<l>1 2</l>\n<l>2 3</l>\n<l>3 0</l>\n<l>3 4</l>"},
         "",
         false}, // the declared line count of a quad strip is one above its pairs
        // USubmesh 1 on a 2 by 2 grid: 3 points along U, 2 along V, two cells.
        {"<Mesh3d UMesh=\"2\" VMesh=\"2\" USubmesh=\"1\" PointsVisible=\"0\">" + points3(6) +
             "</Mesh3d>",
         {"<faces num=\"2\">\n<f>0 1 4 3</f>\n<f>1 2 5 4</f>",
          "<nb>1 -1 -1 -1</nb>\n<nb>-1 -1 0 -1</nb>"},
         ""},
        {"<Mesh3d UMesh=\"2\" VMesh=\"2\" USubmesh=\"1\">" + points3(5) + "</Mesh3d>",
         {},
         "not enough points in Mesh3d"},
        {"<Surf3d>" + points3(3) + "</Surf3d>", {"<points num=\"3\">"}, "unknown Surf3d type"},
        {"<Transform3d Type=\"Translate3d\">" + object("<Line3d/>") + "</Transform3d>",
         {},
         "no Tr3d"},
        {"<Box Filled=\"0\"/>", {" face=\"hide\" edge=\"show\">", "<f>0 3 7 4</f>\n<color>"}, ""},
        // A refined grid shows its nodes alone: columns by 2, rows by 1.
        {"<Mesh3d UMesh=\"2\" VMesh=\"2\" USubmesh=\"1\">" + points3(6) + "</Mesh3d>",
         {"<pointSet dim=\"3\" pointOutline=\"hide\" color=\"hide\">\n<points num=\"4\">\n<p>0 0 "
          "0</p>\n<p>2 0 "
          "0</p>\n<p>3 1 0</p>\n<p>5 1 0</p>\n",
          "<faces num=\"2\">"},
         ""},
        // A cone along x: both circles stand across the axis, the top one at x = 2.
        {"<Cone Base=\"0 0 0\" Top=\"2 0 0\"/>",
         {"<points num=\"76\">\n<p>2 ", "<faces num=\"38\">"},
         ""},
        {"<Group3d Visible=\"0\">" + object("<Line3d/>") + "</Group3d>", {}, ""},
        {"<Lines3d Type=\"Lines\" LineColorType=\"Dichromatic\">" + points3(3) + "</Lines3d>",
         {"<lines num=\"1\">\n<l>0 1</l>\n<l>2 3</l>", "<colors num=\"1\">\n<c>"},
         "",
         false}, // an odd count of separate segments writes a pair one past the points
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.primitive);
        const bool raw =
            c.primitive.rfind("<Transform", 0) == 0 || c.primitive.rfind("<Group", 0) == 0;
        const Model m = model(raw ? c.primitive : object(c.primitive), false, c.check);
        EXPECT_EQ(m.error, c.error);
        if (c.pieces.empty() && c.error.empty()) {
            EXPECT_EQ(m.geometries, "");
        }
        for (const std::string& piece : c.pieces)
            EXPECT_NE(m.geometries.find(piece), std::string::npos) << piece << "\n" << m.geometries;
        if (!c.error.empty()) {
            EXPECT_NE(m.whole.find("<geometries>\n"), std::string::npos);
        }
    }
}

TEST(JvxGeometry, PlaneRastersFieldsLabelsAndPolygons) {
    const std::string box = " XMin=\"0\" XMax=\"2\" YMin=\"0\" YMax=\"1\"";
    struct Case {
        std::string primitive;
        std::vector<std::string> pieces;
        std::string error;
    } cases[] = {
        {"<ColorArray2d XMesh=\"2\" YMesh=\"1\"" + box + ">#ff0000 #00ff00</ColorArray2d>",
         {"<points>\n<p>0 0</p>\n<p>1 0</p>\n<p>2 0</p>\n<p>0 1</p>",
          "<f>0 1 4 3</f>\n<f>1 2 5 4</f>", "<nb>1 -1 -1 -1 </nb>\n<nb>-1 -1 0 -1 </nb>",
          "<colors num=\"2\">\n<c>255 0 0</c>\n<c>0 255 0</c>",
          "<transparency visible=\"hide\">0</transparency>"},
         ""},
        // The second colour marks the bottom of the values' own range, the first its top.
        {"<DensityArray2d XMesh=\"2\" YMesh=\"1\" FillColorType=\"Dichromatic\" "
         "FillColor=\"#ff0000\" FillColor2=\"#0000ff\"" +
             box + ">1 3</DensityArray2d>",
         {"<c>0 0 255</c>\n<c>255 0 0</c>"},
         ""},
        {"<Field2d XMesh=\"2\" YMesh=\"1\" Delta=\"0.5 2\"><P2>1 0</P2><P2>0 1</P2></Field2d>",
         {"<points num=\"2\">\n<p>0 0</p>\n<p>0.5 0</p>\n<color>0 0 0</color>",
          "<vectors num=\"2\">\n<v>1 0</v>\n<v>0 1</v>", "<length>0.2</length>"},
         ""},
        {"<Field2d XMesh=\"2\" YMesh=\"2\"><P2>1 0</P2></Field2d>", {}, ""},
        {"<Text2d Position=\"1 2\" HorizontalAlignment=\"Right\">a&lt;b</Text2d>",
         {"<p name=\"a&lt;b\">1 2</p>", "horAlign=\"head\" verAlign=\"middle\" style=\"plain\""},
         ""},
        {"<Poly2d Closed=\"1\" LinesVisible=\"1\" LineColorType=\"Monochrome\" "
         "LineColor=\"#ff0000\"><P2>0 0</P2><P2>1 1</P2><P2>2 0</P2></Poly2d>",
         {"<lines num=\"3\">\n<l>0 1</l>\n<l>1 2</l>\n<l>2 0</l>", "<colors num=\"3\">"},
         ""},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.primitive);
        const Model m = model(object(c.primitive, true), true);
        EXPECT_EQ(m.error, c.error);
        if (c.pieces.empty() && c.error.empty()) {
            EXPECT_EQ(m.geometries, "");
        }
        for (const std::string& piece : c.pieces)
            EXPECT_NE(m.geometries.find(piece), std::string::npos) << piece << "\n" << m.geometries;
    }
}

TEST(JvxGeometry, ColourFunctionsOverTheRange) {
    using detail::ColorWriter;
    const RGBA red(255, 0, 0, 255), blue(0, 0, 255, 255);
    const Arbor::Token rainbow = getToken(id_Rainbow);
    // Red to red goes once around the circle: half way is cyan; the hue is not wrapped at the
    // top, which takes the last sector's formula.
    const ColorWriter turn(rainbow, red, red, 0, 1);
    EXPECT_EQ(turn.colorOf(0), red);
    EXPECT_EQ(turn.colorOf(0.5), RGBA(0, 255, 255, 255));
    EXPECT_EQ(turn.colorOf(1), RGBA(255, 0, 255, 255));
    EXPECT_EQ(ColorWriter(getToken(id_Dichromatic), red, blue, 0, 2).colorOf(0.5),
              RGBA(64, 0, 191, 255));
    EXPECT_EQ(ColorWriter(getToken(id_Monochrome), red, blue, 0, 4).colorOf(1),
              RGBA(64, 0, 0, 255));
    // A flat range keeps the first colour with its alpha.
    EXPECT_EQ(ColorWriter(rainbow, RGBA(1, 2, 3, 4), blue, 1, 1).colorOf(7), RGBA(1, 2, 3, 4));
    // A value or range that is not finite gives black rather than an undefined conversion
    // (found by fuzzing: a raster cell "inf").
    const double inf = std::numeric_limits<double>::infinity();
    for (const ColorWriter& w : {ColorWriter(rainbow, red, blue, 0, inf),
                                 ColorWriter(getToken(id_Dichromatic), red, blue, 0, inf),
                                 ColorWriter(getToken(id_Monochrome), red, blue, -inf, 1)})
        EXPECT_EQ(w.colorOf(inf), RGBA(0, 0, 0, 255));
    EXPECT_EQ(ColorWriter(getToken(id_Monochrome), red, blue, 0, 1).colorOf(std::nan("")),
              RGBA(0, 0, 0, 255));

    // Without a viewing box the range is 0 to 0: the asymptote has no length.
    const Model m = model(
        object("<VerticalAsymptote Position=\"2\" VerticalAsymptotesVisible=\"1\"/>", true), true);
    EXPECT_NE(m.geometries.find("<p>2 0</p>\n<p>2 0</p>"), std::string::npos) << m.geometries;
}

} // namespace
