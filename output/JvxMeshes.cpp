// The model writer's point-list shapes in space: polygons, line sets, surfaces and meshes, with
// their per-point colours.
#include <grafel/output/JVXWriter.h>

#include <grafel/foundation/TextRun.h>
#include <grafel/foundation/Tokens.h>
#include <grafel/output/detail/JvxColors.h>
#include <grafel/output/detail/JvxFaces.h>
#include <grafel/primitives/Lines3d.h>
#include <grafel/primitives/Mesh3d.h>
#include <grafel/primitives/Poly3d.h>
#include <grafel/primitives/Surf3d.h>

namespace Grafel {

using detail::functionalList;
using detail::isColored;

void JVXWriter::putPoly3d(Poly3d& e) {
    const std::size_t n = e.size();
    if (n == 0) return;
    const Arbor::Token type = e.getLineColorType();
    const bool colored = isColored(type, e.firstColors());
    const bool smooth = e.getShading() == getToken(id_Smooth);
    detail::ColorWriter3D colors(type, e.getLineColor(), e.getLineColor2(), colorRangeMin,
                                 colorRangeMax, functionalList(type, e.firstColors()), e.points(),
                                 n);
    if (e.getFilled() && n > 3) return;
    if (e.getFilled() && n == 3) {
        out() << "<geometry>\n<pointSet dim=\"3\" pointOutline=\"hide\"";
        showAttr("point", e.getPointsVisible());
        out() << ">\n";
        putPoints(e.points(), n, e.getLineColor(), e.getPointSize());
        if (colored) putColors(colors);
        out() << "</pointSet>\n<faceSet";
        showAttr("edge", e.getLinesVisible());
        out() << ">\n<faces num=\"1\">\n<f>0 1 2</f>\n";
        putStyle(e.getFillColor(), noThickness);
        out() << "</faces>\n<neighbours num=\"0\"/>\n";
        if (e.getLinesVisible()) putEdgeStyle(e.getLineColor(), e.getLineWidth());
        out() << "</faceSet>\n";
        putMaterial(e.getFillColor().alpha(), smooth);
        out() << "</geometry>\n";
        return;
    }
    if (!e.getLinesVisible() && !e.getPointsVisible()) return;
    out() << "<geometry>\n<pointSet dim=\"3\" pointOutline=\"hide\"";
    showAttr("color", colored);
    showAttr("point", e.getPointsVisible());
    out() << ">\n";
    putPoints(e.points(), n, e.getLineColor(), e.getPointSize());
    if (colored) putColors(colors);
    out() << "</pointSet>\n";
    const bool closed = e.getClosed();
    const std::int64_t count = std::int64_t(n);
    const std::int64_t m = closed ? count : count - 1;
    if (m < 1 || !e.getLinesVisible()) {
        out() << "</geometry>\n";
        return;
    }
    openLineSet(m, colored, colored && smooth);
    putChainLines(count, closed);
    putStyle(e.getLineColor(), e.getLineWidth());
    out() << "</lines>\n";
    if (colored) putChainColors(colors, count, closed);
    out() << "</lineSet>\n";
    putMaterial(e.getLineColor().alpha(), smooth);
    out() << "</geometry>\n";
}

void JVXWriter::putLines3d(Lines3d& e) {
    const std::int64_t n = std::int64_t(e.size());
    if (n == 0) return;
    const Arbor::Token type = e.getLineColorType();
    const bool colored = isColored(type, e.firstColors());
    detail::ColorWriter3D colors(type, e.getLineColor(), e.getLineColor2(), colorRangeMin,
                                 colorRangeMax, functionalList(type, e.firstColors()), e.points(),
                                 std::size_t(n));
    out() << "<geometry>\n<pointSet dim=\"3\" pointOutline=\"hide\"";
    showAttr("color", colored);
    showAttr("point", e.getPointsVisible());
    out() << ">\n";
    putPoints(e.points(), std::size_t(n), e.getLineColor(), e.getPointSize());
    if (colored) putColors(colors);
    out() << "</pointSet>\n";
    const Arbor::Token kind = e.getType();
    const bool pairs = kind == getToken(id_Lines), loop = kind == getToken(id_LineLoop);
    const std::int64_t m = pairs ? n / 2 : loop ? n : n - 1;
    if (m >= 1) {
        openLineSet(m, colored, colored);
        // An odd count of separate segments ends in a pair that reaches one past the points.
        auto eachPair = [&](auto&& f) {
            if (pairs) {
                for (std::int64_t k = 0; 2 * k < n; ++k) f(2 * k, 2 * k + 1);
            } else {
                for (std::int64_t i = 1; i < n; ++i) f(i - 1, i);
                if (loop) f(n - 1, 0);
            }
        };
        eachPair([&](std::int64_t a, std::int64_t b) {
            const std::int64_t pair[2] = {a, b};
            putIndices("l", pair, 2);
        });
        endLines(e.getLineColor(), e.getLineWidth());
        if (colored) {
            openCounted("colors", m);
            eachPair([&](std::int64_t a, std::int64_t b) { putColorAt(colors, a, b); });
            out() << "</colors>\n";
        }
        out() << "</lineSet>\n";
    }
    putMaterial(e.getLineColor().alpha(), false);
    out() << "</geometry>\n";
}

void JVXWriter::putSurf3d(Surf3d& e) {
    const std::size_t n = e.size();
    if (n == 0) return;
    const bool meshVisible = e.getMeshVisible(), pointsVisible = e.getPointsVisible();
    const RGBA* lineList = meshVisible || pointsVisible ? e.lineColors() : nullptr;
    const RGBA* faceList = e.faceColors();
    const Arbor::Token lineType = e.getLineColorType(), fillType = e.getFillColorType();
    const bool lineColored = isColored(lineType, lineList);
    const bool faceColored = isColored(fillType, faceList);
    const bool smooth = e.getShading() == getToken(id_Smooth);
    const bool filled = e.getFilled();

    out() << "<geometry>\n<pointSet dim=\"3\" pointOutline=\"hide\"";
    showAttr("color", filled ? faceColored : lineColored);
    showAttr("point", pointsVisible);
    out() << ">\n";
    putPoints(e.points(), n, e.getLineColor(), e.getPointSize());
    if (filled) {
        detail::ColorWriter3D colors(fillType, e.getFillColor(), e.getFillColor2(), colorRangeMin,
                                     colorRangeMax, functionalList(fillType, faceList), e.points(),
                                     n);
        if (faceColored) putColors(colors);
        out() << "</pointSet>\n";
        const auto faces = detail::makeFaceIterator(e.getType(), std::int64_t(n));
        const std::int64_t count = faces->numFaces();
        if (count >= 1) {
            out() << "<faceSet";
            showAttr("face", true);
            showAttr("edge", meshVisible);
            showAttr("color", faceColored);
            showAttr("colorFromPoints", faceColored);
            showAttr("colorEdge", faceColored && meshVisible);
            showAttr("colorSmooth", faceColored && smooth);
            out() << ">\n";
            openCounted("faces", count);
            std::int64_t corners[4];
            for (std::int64_t i = 0; i < count; ++i)
                putIndices("f", corners, faces->faceIndices(i, corners));
            color(e.getFillColor());
            out() << "</faces>\n";
            if (faces->hasNeighbours()) {
                openCounted("neighbours", count);
                const int k = faces->isQuad() ? 4 : 3;
                for (std::int64_t i = 0; i < count; ++i) {
                    faces->faceNeighbours(i, corners);
                    putIndices("nb", corners, k);
                }
                out() << "</neighbours>\n";
            } else {
                out() << "<neighbours num=\"0\"/>\n";
            }
            if (meshVisible) putEdgeStyle(e.getLineColor(), e.getLineWidth());
            if (faceColored) {
                openCounted("colors", count);
                for (std::int64_t i = 0; i < count; ++i)
                    putColorAt(colors, corners, faces->faceIndices(i, corners));
                out() << "</colors>\n";
            }
            out() << "</faceSet>\n";
        }
        putMaterial(e.getFillColor().alpha(), smooth);
        out() << "</geometry>\n";
        return;
    }

    detail::ColorWriter3D colors(lineType, e.getLineColor(), e.getLineColor2(), colorRangeMin,
                                 colorRangeMax, functionalList(lineType, lineList), e.points(), n);
    if (lineColored) putColors(colors);
    out() << "</pointSet>\n";
    if (meshVisible) {
        const auto faces = detail::makeFaceIterator(e.getType(), std::int64_t(n));
        const std::int64_t lines = faces->numLines();
        if (lines >= 1) {
            openLineSet(lines, lineColored, lineColored && smooth);
            std::int64_t pairs[8];
            const std::int64_t count = faces->numFaces();
            for (std::int64_t i = 0; i < count; ++i) {
                const int k = faces->faceLines(i, pairs);
                for (int j = 0; j < k; ++j) putIndices("l", pairs + 2 * j, 2);
            }
            out() << "</lines>\n";
            if (lineColored) {
                openCounted("colors", lines);
                // The colours are taken by the position in the face's pair list, so every
                // face gets those of the first few points.
                for (std::int64_t i = 0; i < count; ++i) {
                    const int k = faces->faceLines(i, pairs);
                    for (int j = 0; j < k; ++j) putColorAt(colors, 2 * j, 2 * j + 1);
                }
                out() << "</colors>";
            }
            out() << "</lineSet>\n";
        }
    }
    putMaterial(e.getLineColor().alpha(), smooth);
    out() << "</geometry>\n";
}

void JVXWriter::putMesh3d(Mesh3d& e) {
    const std::int64_t nU = e.nU(), nV = e.nV();
    const std::int64_t su = e.getUSubmesh() + 1, sv = e.getVSubmesh() + 1;
    const std::int64_t uMesh = e.getUMesh(), vMesh = e.getVMesh();
    if (std::int64_t(e.size()) < e.gridPoints())
        throw JavaViewExportError("not enough points in Mesh3d");
    const std::size_t n = e.size();
    const P3* points = e.points();
    const RGBA* lineList = e.lineColors();
    const RGBA* faceList = e.faceColors();
    const Arbor::Token lineType = e.getLineColorType(), fillType = e.getFillColorType();
    const bool lineColored = isColored(lineType, lineList);
    const bool faceColored = isColored(fillType, faceList);
    const bool smooth = e.getShading() == getToken(id_Smooth);
    const bool filled = e.getFilled(), linesShown = e.meshLinesVisible();
    bool pointsVisible = e.getPointsVisible();
    detail::ColorWriter3D lineColors(lineType, e.getLineColor(), e.getLineColor2(), colorRangeMin,
                                     colorRangeMax, functionalList(lineType, lineList), points, n);

    if (pointsVisible && e.isRefined()) {
        // The grid nodes on their own, so that the points of the refinement stay hidden.
        out() << "<geometry>\n<pointSet dim=\"3\" pointOutline=\"hide\"";
        showAttr("color", lineColored);
        out() << ">\n";
        openCounted("points", uMesh * vMesh);
        for (std::int64_t r = 0; r < nV; r += sv)
            for (std::int64_t c = 0; c < nU; c += su) putP(points[r * nU + c]);
        putPointThickness(e.getPointSize());
        color(e.getLineColor());
        out() << "</points>\n";
        if (lineColored) {
            openCounted("colors", uMesh * vMesh);
            for (std::int64_t r = 0; r < nV; r += sv)
                for (std::int64_t c = 0; c < nU; c += su) putColorAt(lineColors, r * nU + c);
            out() << "</colors>\n";
        }
        out() << "</pointSet>\n";
        putMaterial(e.getLineColor().alpha(), false);
        out() << "</geometry>\n";
        if (!filled && !linesShown) return;
        pointsVisible = false;
    }

    out() << "<geometry>\n<pointSet dim=\"3\" pointOutline=\"hide\"";
    showAttr("color", filled ? faceColored : lineColored);
    showAttr("point", pointsVisible);
    out() << ">\n";
    putPoints(points, n, e.getLineColor(), e.getPointSize());

    if (filled) {
        detail::ColorWriter3D colors(fillType, e.getFillColor(), e.getFillColor2(), colorRangeMin,
                                     colorRangeMax, functionalList(fillType, faceList), points, n);
        if (faceColored) putColors(colors);
        out() << "</pointSet>\n";
        const std::int64_t cells = e.numFaces();
        if (cells >= 1) {
            out() << "<faceSet face=\"show\"";
            showAttr("edge", linesShown);
            showAttr("color", faceColored);
            showAttr("colorFromPoints", faceColored);
            showAttr("colorSmooth", faceColored && smooth);
            out() << ">\n";
            openCounted("faces", cells);
            for (std::int64_t r = 0; r + 1 < nV; ++r)
                for (std::int64_t c = 0; c + 1 < nU; ++c) {
                    const std::int64_t i = r * nU + c;
                    const std::int64_t f[4] = {i, i + 1, i + 1 + nU, i + nU};
                    putIndices("f", f, 4);
                }
            color(e.getFillColor());
            out() << "</faces>\n";
            openCounted("neighbours", cells);
            const std::int64_t rowCells = nU - 1;
            for (std::int64_t r = 0; r + 1 < nV; ++r)
                for (std::int64_t c = 0; c < rowCells; ++c) {
                    const std::int64_t j = r * rowCells + c;
                    const std::int64_t nb[4] = {c + 1 < rowCells ? j + 1 : -1,
                                                r + 2 < nV ? j + rowCells : -1, c > 0 ? j - 1 : -1,
                                                r > 0 ? j - rowCells : -1};
                    putIndices("nb", nb, 4);
                }
            out() << "</neighbours>\n";
            putEdgeStyle(e.getLineColor(), e.getLineWidth());
            if (faceColored) {
                openCounted("colors", cells);
                for (std::int64_t r = 0; r + 1 < nV; ++r)
                    for (std::int64_t c = 0; c + 1 < nU; ++c) {
                        const std::int64_t i = r * nU + c;
                        const std::int64_t f[4] = {i, i + 1, i + 1 + nU, i + nU};
                        putColorAt(colors, f, 4);
                    }
                out() << "</colors>\n";
            }
            out() << "</faceSet>\n";
        }
        putMaterial(e.getFillColor().alpha(), smooth);
        out() << "</geometry>\n";
        return;
    }

    if (lineColored) putColors(lineColors);
    out() << "</pointSet>\n";
    const std::int64_t lines = (nV - 1) * uMesh + (nU - 1) * vMesh;
    if (linesShown && lines >= 1) {
        openLineSet(lines, lineColored, lineColored && smooth);
        for (std::int64_t r = 0; r < nV; r += sv)
            for (std::int64_t c = 0; c + 1 < nU; ++c) {
                const std::int64_t pair[2] = {r * nU + c, r * nU + c + 1};
                putIndices("l", pair, 2);
            }
        for (std::int64_t r = 0; r + 1 < nV; ++r)
            for (std::int64_t c = 0; c < nU; c += su) {
                const std::int64_t pair[2] = {r * nU + c, r * nU + c + nU};
                putIndices("l", pair, 2);
            }
        endLines(e.getLineColor(), e.getLineWidth());
        if (lineColored) {
            // These walks write more colours than there are lines; the second one counts as
            // if the points stood column after column.
            openCounted("colors", lines);
            for (std::int64_t r = 0; r < nV; r += sv)
                for (std::int64_t c = 0; c < nU; ++c)
                    putColorAt(lineColors, r * nU + c, r * nU + c + 1);
            for (std::int64_t k = 0; k < nU; k += su)
                for (std::int64_t p = k * nV; p < k * nV + nV; ++p)
                    putColorAt(lineColors, p, p + nV);
            out() << "</colors>\n";
        }
        out() << "</lineSet>\n";
    }
    putMaterial(e.getLineColor().alpha(), smooth);
    out() << "</geometry>\n";
}

} // namespace Grafel
