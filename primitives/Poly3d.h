// A polygon in space: its vertices, drawn as lines, points or a filled area.
#pragma once

#include <grafel/document/P3List.h>
#include <grafel/primitives/Rows3d.h>

// Unlike a polygon in the plane, LinesVisible comes first, and a polygon in space is filled
// unless told otherwise.
#define GRAFEL_POLY3D_TABLE(P)                                                                     \
    P(Inherited, BoolProperty, LinesVisible, false, false)                                         \
    GRAFEL_3D_COLORED_LINE_ROWS(P)                                                                 \
    P(Inherited, BoolProperty, Closed, false, false)                                               \
    P(Inherited, BoolProperty, PointsVisible, false, false)                                        \
    GRAFEL_3D_POINT_MARK_ROWS(P)                                                                   \
    P(Inherited, BoolProperty, Filled, true, true)                                                 \
    P(Inherited, ShadingType, Shading, ::Arbor::Token(), getToken(id_Flat))                        \
    P(Inherited, ColorProperty, FillColor, RGBA(), (RGBA(255, 0, 0, 255)))                         \
    P(Optional, BoolProperty, HasLineColors, false, false)                                         \
    GRAFEL_3D_DIRECTION_ROWS(P, LineColor)

#define GRAFEL_POLY3D_LAYOUT(F)                                                                    \
    F(LineColor)                                                                                   \
    F(LineColor2)                                                                                  \
    F(FillColor) F(LinesVisible) F(Closed) F(PointsVisible) F(Filled) F(HasLineColors)             \
        F(LineStyle) F(LineWidth) F(LineColorType) F(PointStyle) F(PointSize) F(Shading)           \
            F(LineColorDirectionX) F(LineColorDirectionY) F(LineColorDirectionZ)

namespace Grafel {

/// The vertices of its P3List joined in order, and back to the first when Closed. With
/// LineColorType Functional the list's colours colour the lines vertex by vertex. A copy keeps
/// the vertices.
class Poly3d : public ElementClass<Poly3d, id_Poly3d, P3List, CloneBy::copy> {
    friend ElementClass;
    GRAFEL_PRIMITIVE_TABLE_ORDERED(Poly3d, GRAFEL_POLY3D_TABLE, GRAFEL_POLY3D_LAYOUT,
                                   polyAttributeFlags)

protected:
    explicit Poly3d(Arbor::Document* document) : ElementClass(document) {}
};

} // namespace Grafel
