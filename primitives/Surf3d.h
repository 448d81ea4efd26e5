// A surface given as a list of space points that its Type cuts into triangles or quadrangles.
#pragma once

#include <grafel/document/P3List.h>
#include <grafel/primitives/Rows3d.h>

#include <array>
#include <cstddef>

// Type reads Lines until one is stated, a word its own set refuses: an element made by hand
// must get a Type before it is written. Colours start opaque black and the other tokens null.
#define GRAFEL_SURF3D_TABLE(P)                                                                     \
    P(Mandatory, Surf3dTypeType, Type, getToken(id_Lines), getToken(id_Lines))                     \
    GRAFEL_3D_COLORED_LINE_ROWS(P)                                                                 \
    GRAFEL_3D_POINT_MARK_ROWS(P)                                                                   \
    GRAFEL_3D_COLORED_FACE_ROWS(P)                                                                 \
    P(Inherited, BoolProperty, MeshVisible, false, false)                                          \
    P(Inherited, BoolProperty, PointsVisible, false, false)                                        \
    P(Inherited, BoolProperty, Filled, true, true)                                                 \
    P(Optional, BoolProperty, HasLineColors, false, false)                                         \
    GRAFEL_3D_DIRECTION_ROWS(P, LineColor)                                                         \
    GRAFEL_3D_DIRECTION_ROWS(P, FillColor)

namespace Grafel {

/// One face of a Surf3d: `count` corners (3 or 4), indices into the points.
struct SurfFace {
    std::array<std::size_t, 4> corner{};
    int count = 0;
};

/// Its points grouped into faces by Type (Triangles, TriangleStrip, TriangleFan, Quads,
/// QuadStrip); points left over at the end belong to no face. A copy keeps the points.
class Surf3d : public ElementClass<Surf3d, id_Surf3d, P3List, CloneBy::copy> {
    friend ElementClass;
    GRAFEL_PRIMITIVE_TABLE(Surf3d, GRAFEL_SURF3D_TABLE, surfAttributeFlags)

public:
    /// The faces the points make under Type; 0 for a Type that is none of the five.
    std::size_t numFaces() const;
    /// Corners per face: 3 or 4, or 0 for a Type that is none of the five.
    int cornersPerFace() const;
    /// Face `i`, with its corners in drawing order (a strip turns every second triangle);
    /// std::out_of_range unless `i < numFaces()`.
    SurfFace face(std::size_t i) const;

    /// The colours of the lines, one per point, or null (see MeshColors.h).
    const RGBA* lineColors() const;
    /// The colours of the faces, one per point, or null.
    const RGBA* faceColors() const;

protected:
    explicit Surf3d(Arbor::Document* document) : ElementClass(document) {}
};

} // namespace Grafel
