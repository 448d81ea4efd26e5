// The model writer's rasters and fields: colour and density arrays as coloured cells, vector
// fields as arrows on their grid nodes.
#include <grafel/output/JVXWriter.h>

#include <grafel/foundation/TextRun.h>
#include <grafel/foundation/Tokens.h>
#include <grafel/output/detail/JvxColors.h>
#include <grafel/primitives/ColorArray2d.h>
#include <grafel/primitives/DensityArray2d.h>
#include <grafel/primitives/Field2d.h>
#include <grafel/primitives/Field3d.h>

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

namespace Grafel {

namespace {
/// The product of the mesh counts: 0 when one of them is not positive, -1 when it exceeds
/// `available`, so that a mesh larger than its data is never multiplied out.
std::int64_t cellsWithin(std::initializer_list<long> meshes, std::size_t available) {
    std::int64_t count = 1;
    for (long m : meshes) {
        if (m <= 0) return 0;
        if (std::uint64_t(count) > available / std::uint64_t(m)) return -1;
        count *= m;
    }
    return count;
}
} // namespace

template <class Array, class CellColor>
void JVXWriter::putRaster(Array& e, CellColor cellColor, unsigned long alpha) {
    const long xMesh = e.getXMesh(), yMesh = e.getYMesh();
    const double xMin = e.getXMin(), yMin = e.getYMin();
    const double dx = (e.getXMax() - xMin) / double(xMesh),
                 dy = (e.getYMax() - yMin) / double(yMesh);
    out() << "<geometry>\n<pointSet dim=\"2\" color=\"hide\" point=\"hide\">\n<points>\n";
    // The corners stand as given: a raster is not transformed.
    for (long j = 0; j <= yMesh; ++j)
        for (long i = 0; i <= xMesh; ++i)
            out() << "<p>" << double(i) * dx + xMin << ' ' << double(j) * dy + yMin << "</p>\n";
    const std::int64_t cells = std::int64_t(xMesh) * yMesh;
    out() << "</points>\n</pointSet>\n<faceSet face=\"show\" color=\"show\"";
    showAttr("edge", e.getLinesVisible());
    out() << ">\n<faces num=\"";
    integer(cells);
    out() << "\">\n";
    for (std::int64_t j = 0; j < yMesh; ++j)
        for (std::int64_t i = 0; i < xMesh; ++i) {
            const std::int64_t b = j * (xMesh + 1) + i;
            const std::int64_t f[4] = {b, b + 1, b + xMesh + 2, b + xMesh + 1};
            putIndices("f", f, 4);
        }
    out() << "</faces>\n<neighbours num=\"";
    integer(cells);
    out() << "\">\n";
    for (std::int64_t j = 0; j < yMesh; ++j)
        for (std::int64_t i = 0; i < xMesh; ++i) {
            const std::int64_t q = j * xMesh + i;
            const std::int64_t nb[4] = {i < xMesh - 1 ? q + 1 : -1, j < yMesh - 1 ? q + xMesh : -1,
                                        i > 0 ? q - 1 : -1, j > 0 ? q - xMesh : -1};
            // Each neighbour is followed by a blank, the last one too.
            out() << "<nb>";
            for (std::int64_t v : nb) {
                integer(v);
                out() << ' ';
            }
            out() << "</nb>\n";
        }
    out() << "</neighbours>\n";
    putEdgeStyle(e.getLineColor(), e.getLineWidth());
    out() << "<colors num=\"";
    integer(cells);
    out() << "\">\n";
    for (std::int64_t k = 0; k < cells; ++k) {
        const RGBA c = cellColor(std::size_t(k));
        out() << "<c>";
        integer(std::int64_t(c.red()));
        out() << ' ';
        integer(std::int64_t(c.green()));
        out() << ' ';
        integer(std::int64_t(c.blue()));
        out() << "</c>\n";
    }
    out() << "</colors>\n</faceSet>\n";
    putMaterial(alpha, false);
    out() << "</geometry>\n";
}

void JVXWriter::putColorArray2d(ColorArray2d& e) {
    if (cellsWithin({e.getXMesh(), e.getYMesh()}, e.size()) < 0)
        throw JavaViewExportError("not enough points in ColorArray2d");
    const RGBA* cells = e.colors();
    // The cells' own alpha is not shown.
    putRaster(
        e, [cells](std::size_t k) { return cells[k]; }, 255);
}

void JVXWriter::putDensityArray2d(DensityArray2d& e) {
    const std::int64_t count = cellsWithin({e.getXMesh(), e.getYMesh()}, e.size());
    if (count < 0) throw JavaViewExportError("not enough points in DensityArray2d");
    const double* values = e.values();
    double min = count > 0 ? values[0] : 0, max = min;
    for (std::int64_t k = 1; k < count; ++k) {
        if (values[k] > max)
            max = values[k];
        else if (values[k] < min)
            min = values[k];
    }
    const detail::ColorWriter colors(e.getFillColorType(), e.getFillColor(), e.getFillColor2(), min,
                                     max);
    putRaster(
        e, [&](std::size_t k) { return colors.colorOf(values[k]); }, e.getFillColor().alpha());
}

template <class Point, class Field>
void JVXWriter::putField(Field& e, const std::vector<Point>& nodes, double bottom, double top,
                         const RGBA* list, double length, bool arrow) {
    if (bottom > top) std::swap(bottom, top);
    const Arbor::Token type = e.getLineColorType();
    detail::PointColorWriter<Point> colors(type, e.getLineColor(), e.getLineColor2(), bottom, top,
                                           detail::functionalList(type, list), nodes.data(),
                                           nodes.size());
    const bool colored = detail::isColored(type, list);
    const std::size_t count = nodes.size();
    out() << (sizeof(Point) == sizeof(P2) ? "<geometry>\n<pointSet dim=\"2\" point=\"hide\">\n"
                                          : "<geometry>\n<pointSet dim=\"3\" point=\"hide\">\n");
    putPoints(nodes.data(), count, RGBA(0, 0, 0, 255), noThickness);
    out() << "</pointSet>\n<vectorField material=\"show\"";
    showAttr("color", colored);
    showAttr("arrow", arrow);
    out() << ">\n";
    putVectors(e.points(), count, e.getLineColor(), length, e.getLineWidth());
    if (colored) putColors(colors);
    out() << "</vectorField>\n";
    putMaterial(e.getLineColor().alpha(), false);
    out() << "</geometry>\n";
}

void JVXWriter::putField2d(Field2d& e) {
    const std::int64_t count = cellsWithin({e.getXMesh(), e.getYMesh()}, e.size());
    if (count <= 0) return;
    const P2 anchor = e.getAnchor(), delta = e.getDelta();
    std::vector<P2> nodes;
    nodes.reserve(std::size_t(count));
    for (long j = 0; j < e.getYMesh(); ++j)
        for (long i = 0; i < e.getXMesh(); ++i)
            nodes.push_back(P2(anchor.x + double(i) * delta.x, anchor.y + double(j) * delta.y));
    const double length = std::min(std::fabs(delta.x), std::fabs(delta.y)) * 0.4;
    putField(e, nodes, anchor.y, anchor.y + double(e.getYMesh()) * delta.y, e.colors(), length,
             e.getTipAngle() != 0 && e.getTipLength() > 0);
}

void JVXWriter::putField3d(Field3d& e) {
    const std::int64_t count = cellsWithin({e.getXMesh(), e.getYMesh(), e.getZMesh()}, e.size());
    if (count <= 0) return;
    const P3 anchor = e.getAnchor(), delta = e.getDelta();
    std::vector<P3> nodes;
    nodes.reserve(std::size_t(count));
    for (long k = 0; k < e.getZMesh(); ++k)
        for (long j = 0; j < e.getYMesh(); ++j)
            for (long i = 0; i < e.getXMesh(); ++i)
                nodes.push_back(P3(anchor.x + double(i) * delta.x, anchor.y + double(j) * delta.y,
                                   anchor.z + double(k) * delta.z));
    const double length =
        std::min({std::fabs(delta.x), std::fabs(delta.y), std::fabs(delta.z)}) * 0.4;
    putField(e, nodes, anchor.z, anchor.z + double(e.getZMesh()) * delta.z, e.firstColors(), length,
             e.getPointsVisible());
}

} // namespace Grafel
