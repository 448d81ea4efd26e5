// The space primitives on point lists: the grid of a mesh, the faces and segments that a kind
// cuts out of the points, which colour list serves lines and faces, and what the reader does
// with their bad values and oversized grids.
#include "document/ZpxTestHelpers.h"

#include <grafel/primitives/Lines3d.h>
#include <grafel/primitives/Mesh3d.h>
#include <grafel/primitives/Surf3d.h>

#include <gtest/gtest.h>

#include <stdexcept>

using namespace Grafel;
using namespace ZpxTest;

namespace {

/// `primitive` in the image of an object of a space scene.
std::string page(const std::string& primitive) {
    return "<Canvas version='1'><Scene3d><CoordinateSystem3d><Obj3d Type='Surface3d'><Img3d>" +
           primitive + "</Img3d></Obj3d></CoordinateSystem3d></Scene3d></Canvas>";
}

/// The one primitive of a page loaded from `primitive`, or null when the load failed.
template <class T> T* loaded(PlotDocument& doc, const std::string& primitive) {
    if (!load(doc, page(primitive))) return nullptr;
    Arbor::Node* n = doc.documentElement();
    for (int depth = 0; n && depth < 5; ++depth) n = n->firstChild();
    return dynamic_cast<T*>(n);
}

std::string points(int n, const char* extra = "") {
    std::string out;
    for (int i = 0; i < n; ++i) out += "<P3>" + std::to_string(i) + " 0 0" + extra + "</P3>";
    return out;
}

} // namespace

TEST(MeshSurface, MeshGridAndRefinement) {
    struct Case {
        const char* attributes;
        long nU, nV, faces;
        bool refined;
    } cases[] = {
        {"", 20, 20, 19 * 19, false},
        {"UMesh='1' VMesh='1' USubmesh='4' VSubmesh='2'", 1, 1, 0, false},
        {"UMesh='3' VMesh='4' USubmesh='0' VSubmesh='0'", 3, 4, 6, false},
        {"UMesh='3' VMesh='2' USubmesh='2'", 7, 2, 6, true},
        {"UMesh='2' VMesh='3' VSubmesh='1'", 2, 5, 4, true},
        {"UMesh='100000' VMesh='100000'", 100000, 100000, 99999L * 99999L, false},
    };
    PlotDocument doc;
    for (const Case& c : cases) {
        SCOPED_TRACE(c.attributes);
        Mesh3d* mesh = loaded<Mesh3d>(doc, "<Mesh3d " + std::string(c.attributes) + "/>");
        ASSERT_TRUE(mesh);
        EXPECT_EQ(mesh->nU(), c.nU);
        EXPECT_EQ(mesh->nV(), c.nV);
        EXPECT_EQ(mesh->gridPoints(), c.nU * c.nV);
        EXPECT_EQ(mesh->numFaces(), c.faces);
        EXPECT_EQ(mesh->isRefined(), c.refined);
    }
    // A new mesh sets no presence bit, its grid's neither (as Mandatory, UMesh still counts as
    // present); a new Lines3d sets the bit of its kind.
    PlotDocument blank;
    Tessel::Ref<Arbor::Element> fresh(blank.createElement(tok_Mesh3d));
    EXPECT_EQ(static_cast<Mesh3d*>(fresh.get())->*Mesh3d::meshAttributeFlags(), 0u);
    EXPECT_TRUE(fresh->hasAttribute(tok_UMesh));
    Tessel::Ref<Arbor::Element> segments(blank.createElement(tok_Lines3d));
    EXPECT_NE(static_cast<Lines3d*>(segments.get())->*Lines3d::lineAttributeFlags(), 0u);

    // A cell's corners run along its row, then back along the next one (nU = 5 here).
    Mesh3d* mesh = loaded<Mesh3d>(doc, "<Mesh3d UMesh='3' VMesh='3' USubmesh='1'/>");
    EXPECT_EQ(mesh->faceCorners(1, 2), (std::array<std::int64_t, 4>{7, 8, 13, 12}));

    // Lines show by one pair of switches, as a pair.
    struct Lines {
        const char* attributes;
        bool visible;
    } lines[] = {
        {"ULinesVisible='0' VLinesVisible='0'", false},
        {"ULinesVisible='0' XLinesVisible='0' YLinesVisible='0'", true},
        {"UseXYLinesVisible='1' XLinesVisible='0' YLinesVisible='0'", false},
        {"UseXYLinesVisible='1' ULinesVisible='0' VLinesVisible='0' YLinesVisible='0'", true},
    };
    for (const Lines& l : lines)
        EXPECT_EQ(
            loaded<Mesh3d>(doc, "<Mesh3d " + std::string(l.attributes) + "/>")->meshLinesVisible(),
            l.visible)
            << l.attributes;
}

TEST(MeshSurface, KindsCutThePointsIntoFacesAndSegments) {
    struct Case {
        const char* type;
        int points;
        std::size_t count;
        std::size_t item;
        std::vector<std::size_t> corners;
    } surfaces[] =
        {
            {"Triangles", 7, 2, 1, {3, 4, 5}},     {"TriangleStrip", 5, 3, 1, {1, 3, 2}},
            {"TriangleStrip", 5, 3, 2, {2, 3, 4}}, {"TriangleFan", 5, 3, 2, {0, 3, 4}},
            {"Quads", 9, 2, 1, {4, 5, 6, 7}},      {"QuadStrip", 7, 2, 1, {2, 3, 5, 4}},
            {"TriangleStrip", 1, 0, 0, {}},        {"QuadStrip", 0, 0, 0, {}},
        },
      lines[] = {
          {"Lines", 5, 2, 1, {2, 3}},
          {"LineStrip", 4, 3, 2, {2, 3}},
          {"LineLoop", 4, 4, 3, {3, 0}},
          {"LineStrip", 0, 0, 0, {}},
      };
    PlotDocument doc;
    for (const Case& c : surfaces) {
        SCOPED_TRACE(std::string(c.type) + " " + std::to_string(c.points));
        Surf3d* surf = loaded<Surf3d>(doc, "<Surf3d Type='" + std::string(c.type) + "'>" +
                                               points(c.points) + "</Surf3d>");
        ASSERT_TRUE(surf);
        EXPECT_EQ(surf->numFaces(), c.count);
        if (c.count == 0) {
            EXPECT_THROW(surf->face(0), std::out_of_range);
            continue;
        }
        const SurfFace face = surf->face(c.item);
        EXPECT_EQ(std::vector<std::size_t>(face.corner.begin(), face.corner.begin() + face.count),
                  c.corners);
        EXPECT_EQ(surf->cornersPerFace(), face.count);
        EXPECT_THROW(surf->face(c.count), std::out_of_range);
    }
    for (const Case& c : lines) {
        SCOPED_TRACE(std::string(c.type) + " " + std::to_string(c.points));
        Lines3d* l = loaded<Lines3d>(doc, "<Lines3d Type='" + std::string(c.type) + "'>" +
                                              points(c.points) + "</Lines3d>");
        ASSERT_TRUE(l);
        EXPECT_EQ(l->numSegments(), c.count);
        if (c.count > 0) {
            const auto [a, b] = l->segment(c.item);
            EXPECT_EQ((std::vector<std::size_t>{a, b}), c.corners);
        }
        EXPECT_THROW(l->segment(c.count), std::out_of_range);
    }
}

// One list serves lines or faces as HasLineColors says; two serve lines, then faces.
TEST(MeshSurface, ColourListsOfLinesAndFaces) {
    enum Which { none, first, second };
    struct Case {
        const char* extra;
        bool hasLineColors;
        Which lines, faces;
    } cases[] = {
        {"", false, none, none},
        {"", true, none, none},
        {" #ff0000", false, none, first},
        {" #ff0000", true, first, none},
        {" #ff0000 #00ff00", false, first, second},
        {" #ff0000 #00ff00", true, first, second},
    };
    PlotDocument doc;
    for (const Case& c : cases) {
        const std::string flag = c.hasLineColors ? "1" : "0";
        SCOPED_TRACE(c.extra + (" HasLineColors=" + flag));
        Mesh3d* mesh = loaded<Mesh3d>(doc, "<Mesh3d UMesh='2' VMesh='1' HasLineColors='" + flag +
                                               "'>" + points(2, c.extra) + "</Mesh3d>");
        ASSERT_TRUE(mesh);
        auto list = [&](Which w) {
            return w == first ? mesh->firstColors() : w == second ? mesh->secondColors() : nullptr;
        };
        EXPECT_EQ(mesh->lineColors(), list(c.lines));
        EXPECT_EQ(mesh->faceColors(), list(c.faces));
        Surf3d* surf = loaded<Surf3d>(doc, "<Surf3d Type='Quads' HasLineColors='" + flag + "'>" +
                                               points(2, c.extra) + "</Surf3d>");
        EXPECT_EQ(surf->lineColors() != nullptr, c.lines != none);
        EXPECT_EQ(surf->faceColors() != nullptr, c.faces != none);
        Lines3d* lines =
            loaded<Lines3d>(doc, "<Lines3d Type='Lines'>" + points(2, c.extra) + "</Lines3d>");
        EXPECT_EQ(lines->lineColors(), lines->firstColors());
    }
}

// A value out of its set or range fails the load with its report, and leaves an empty page.
TEST(MeshSurface, RefusedValuesThroughTheReader) {
    struct Case {
        const char* primitive;
        const char* report;
    } cases[] = {
        {"<Mesh3d UMesh='0'/>", "illegal value [attribute 'UMesh']\n"},
        {"<Mesh3d VMesh='-3'/>", "illegal value [attribute 'VMesh']\n"},
        {"<Mesh3d USubmesh='-1'/>", "illegal value [attribute 'USubmesh']\n"},
        {"<Surf3d Type='LineStrip'/>", "illegal value [attribute 'Type']\n"},
        {"<Surf3d Type='Lines'/>", "illegal value [attribute 'Type']\n"},
        {"<Lines3d Type='Quads'/>", "illegal value [attribute 'Type']\n"},
        {"<Lines3d Type='Lines' LineWidth='0'/>", "illegal value [attribute 'LineWidth']\n"},
    };
    PlotDocument doc;
    for (const Case& c : cases) {
        SCOPED_TRACE(c.primitive);
        EXPECT_FALSE(load(doc, page(c.primitive)));
        EXPECT_EQ(messages(), std::vector<std::string>{c.report});
        EXPECT_TRUE(isFreshCanvas(doc));
    }
    // A Surf3d without Type reads Lines, none of its kinds: it has no faces.
    Surf3d* surf = loaded<Surf3d>(doc, "<Surf3d>" + points(4) + "</Surf3d>");
    ASSERT_TRUE(surf);
    EXPECT_EQ(surf->getType(), tok_Lines);
    EXPECT_EQ(surf->numFaces(), 0u);
    EXPECT_EQ(surf->cornersPerFace(), 0);
    // The accepted ends of the ranges.
    EXPECT_TRUE(loaded<Mesh3d>(doc, "<Mesh3d UMesh='1' VMesh='1' USubmesh='0'/>"));
}

// A grid declares how many points it wants; storage follows the points that come.
TEST(MeshSurface, HugeGridOverFewPointsTakesLittleStorage) {
    PlotDocument doc;
    Mesh3d* mesh = loaded<Mesh3d>(doc, "<Mesh3d UMesh='100000' VMesh='100000' USubmesh='9'>" +
                                           points(3, " 0 0 1 #ff0000 #00ff00") + "</Mesh3d>");
    ASSERT_TRUE(mesh);
    EXPECT_EQ(mesh->gridPoints(), 999991LL * 100000LL);
    EXPECT_EQ(mesh->size(), 3u);
    EXPECT_LE(mesh->capacity(), 16u);
    // Counts beyond 64 bits saturate instead of wrapping.
    mesh = loaded<Mesh3d>(doc, "<Mesh3d UMesh='9223372036854775807' VMesh='9223372036854775807' "
                               "USubmesh='9223372036854775807'/>");
    ASSERT_TRUE(mesh);
    EXPECT_EQ(mesh->nU(), INT64_MAX);
    EXPECT_EQ(mesh->numFaces(), INT64_MAX);
}
