// A surface given as a list of space points that its Type cuts into triangles or quadrangles.
#pragma once

#include <grafel/document/P3List.h>
#include <grafel/primitives/PrimitiveClass.h>

#include <array>
#include <cstddef>

// Type reads Lines until one is stated, a word its own set refuses: an element made by hand
// must get a Type before it is written. Colours start opaque black and the other tokens null.
#define GRAFEL_SURF3D_TABLE(P)                                                                     \
    P(Mandatory, Surf3dTypeType, Type, getToken(id_Lines), getToken(id_Lines))                     \
    P(Inherited, LineStyleType, LineStyle, ::Arbor::Token(), getToken(id_Solid))                   \
    P(Inherited, PosOutputSizeType, LineWidth, 0.5, 0.5)                                           \
    P(Inherited, ColorProperty, LineColor, RGBA(), RGBA::Black)                                    \
    P(Inherited, ColorType, LineColorType, ::Arbor::Token(), getToken(id_Flat))                    \
    P(Inherited, ColorProperty, LineColor2, RGBA(), (RGBA(0, 0, 255, 255)))                        \
    P(Inherited, PointStyleType, PointStyle, ::Arbor::Token(), getToken(id_Squares))               \
    P(Inherited, PosOutputSizeType, PointSize, 2.0, 2.0)                                           \
    P(Inherited, ShadingType, Shading, ::Arbor::Token(), getToken(id_Flat))                        \
    P(Inherited, ColorProperty, FillColor, RGBA(), (RGBA(255, 0, 0, 255)))                         \
    P(Inherited, ColorType, FillColorType, ::Arbor::Token(), getToken(id_Flat))                    \
    P(Inherited, ColorProperty, FillColor2, RGBA(), (RGBA(255, 255, 0, 255)))                      \
    P(Inherited, BoolProperty, MeshVisible, false, false)                                          \
    P(Inherited, BoolProperty, PointsVisible, false, false)                                        \
    P(Inherited, BoolProperty, Filled, true, true)                                                 \
    P(Optional, BoolProperty, HasLineColors, false, false)                                         \
    P(Inherited, DoubleProperty, LineColorDirectionX, 0.0, 0.0)                                    \
    P(Inherited, DoubleProperty, LineColorDirectionY, 0.0, 0.0)                                    \
    P(Inherited, DoubleProperty, LineColorDirectionZ, 1.0, 1.0)                                    \
    P(Inherited, DoubleProperty, FillColorDirectionX, 0.0, 0.0)                                    \
    P(Inherited, DoubleProperty, FillColorDirectionY, 0.0, 0.0)                                    \
    P(Inherited, DoubleProperty, FillColorDirectionZ, 1.0, 1.0)

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
