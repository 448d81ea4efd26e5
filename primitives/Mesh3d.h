// A regular grid of space points, optionally refined between its grid lines, drawn as a surface
// of quadrangular cells with its mesh lines.
#pragma once

#include <grafel/document/P3List.h>
#include <grafel/primitives/Rows3d.h>

#include <array>
#include <cstddef>
#include <cstdint>

// Colours start opaque black and tokens null; the other members hold their defaults until the
// element gets a parent and its table fills them.
#define GRAFEL_MESH3D_TABLE(P)                                                                     \
    P(Mandatory, MeshType, UMesh, 20L, 20L)                                                        \
    P(Mandatory, MeshType, VMesh, 20L, 20L)                                                        \
    P(Optional, SubmeshType, USubmesh, 0L, 0L)                                                     \
    P(Optional, SubmeshType, VSubmesh, 0L, 0L)                                                     \
    P(Inherited, BoolProperty, XLinesVisible, true, true)                                          \
    P(Inherited, BoolProperty, YLinesVisible, true, true)                                          \
    P(Inherited, BoolProperty, ULinesVisible, true, true)                                          \
    P(Inherited, BoolProperty, VLinesVisible, true, true)                                          \
    GRAFEL_3D_COLORED_LINE_ROWS(P)                                                                 \
    GRAFEL_3D_POINT_MARK_ROWS(P)                                                                   \
    P(Inherited, BoolProperty, Filled, true, true)                                                 \
    GRAFEL_3D_COLORED_FACE_ROWS(P)                                                                 \
    P(Inherited, BoolProperty, PointsVisible, true, true)                                          \
    P(Optional, BoolProperty, HasLineColors, false, false)                                         \
    P(Optional, BoolProperty, UseXYLinesVisible, false, false)                                     \
    GRAFEL_3D_DIRECTION_ROWS(P, LineColor)                                                         \
    GRAFEL_3D_DIRECTION_ROWS(P, FillColor)

namespace Grafel {

/// UMesh x VMesh grid lines, with USubmesh and VSubmesh extra lines between two of them; the
/// points stand row after row, a row running along U. The element does not compare its number
/// of points with the grid: a writer that walks the cells checks that. A copy keeps the points.
class Mesh3d : public ElementClass<Mesh3d, id_Mesh3d, P3List, CloneBy::copy> {
    friend ElementClass;
    GRAFEL_PRIMITIVE_TABLE(Mesh3d, GRAFEL_MESH3D_TABLE, meshAttributeFlags)

public:
    /// Points along U after refinement: (UMesh - 1) * (USubmesh + 1) + 1. Counts of the grid
    /// saturate at INT64_MAX instead of overflowing, whatever a document declares.
    std::int64_t nU() const;
    /// Points along V after refinement: (VMesh - 1) * (VSubmesh + 1) + 1.
    std::int64_t nV() const;
    /// The points the grid asks for, nU() * nV().
    std::int64_t gridPoints() const;
    /// The cells, (nU() - 1) * (nV() - 1).
    std::int64_t numFaces() const;
    /// Whether there are cells and a submesh count above 0 puts lines between the grid lines.
    bool isRefined() const;
    /// The corners of the cell in row `r` (along V) and column `c` (along U), counterclockwise
    /// from the point at (r, c), as indices into the points.
    std::array<std::int64_t, 4> faceCorners(std::int64_t r, std::int64_t c) const;
    /// Whether mesh lines show: the X/Y switches when UseXYLinesVisible, else the U/V ones;
    /// one true switch of the pair shows the lines of both directions.
    bool meshLinesVisible() const;

    /// The colours of the lines, one per point, or null (see MeshColors.h).
    const RGBA* lineColors() const;
    /// The colours of the faces, one per point, or null.
    const RGBA* faceColors() const;

protected:
    /// A new mesh states nothing, not even its grid: UMesh and VMesh come with the data.
    explicit Mesh3d(Arbor::Document* document) : ElementClass(document) { presence_ = 0; }
};

} // namespace Grafel
