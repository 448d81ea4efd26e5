// A polygon in the plane: its vertices, drawn as lines, points or a filled area.
#pragma once

#include <grafel/document/P2List.h>
#include <grafel/primitives/PrimitiveClass.h>

// LinesVisible, PointsVisible and Filled default to false: a polygon shows nothing unless told.
#define GRAFEL_POLY2D_TABLE(P)                                                                     \
    P(Inherited, LineStyleType, LineStyle, ::Arbor::Token(), getToken(id_Solid))                   \
    P(Inherited, PosOutputSizeType, LineWidth, 0.5, 0.5)                                           \
    P(Inherited, ColorProperty, LineColor, RGBA(), RGBA::Black)                                    \
    P(Inherited, ColorType, LineColorType, ::Arbor::Token(), getToken(id_Flat))                    \
    P(Inherited, ColorProperty, LineColor2, RGBA(), (RGBA(0, 0, 255, 255)))                        \
    P(Inherited, PointStyleType, PointStyle, ::Arbor::Token(), getToken(id_Squares))               \
    P(Inherited, PosOutputSizeType, PointSize, 2.0, 2.0)                                           \
    P(Inherited, FillStyleType, FillStyle, ::Arbor::Token(), getToken(id_Winding))                 \
    P(Inherited, FillPatternType, FillPattern, ::Arbor::Token(), getToken(id_Solid))               \
    P(Inherited, ColorProperty, FillColor, RGBA(), RGBA::Black)                                    \
    P(Inherited, BoolProperty, Closed, false, false)                                               \
    P(Inherited, BoolProperty, LinesVisible, false, false)                                         \
    P(Inherited, BoolProperty, PointsVisible, false, false)                                        \
    P(Inherited, BoolProperty, Filled, false, false)                                               \
    P(Inherited, DoubleProperty, LineColorDirectionX, 0.0, 0.0)                                    \
    P(Inherited, DoubleProperty, LineColorDirectionY, 1.0, 1.0)                                    \
    P(Inherited, BoolProperty, AntiAliased, true, true)

namespace Grafel {

/// The vertices of its P2List joined in order, and back to the first when Closed. With
/// LineColorType Functional the list's colours colour the lines vertex by vertex. A copy keeps
/// the vertices.
class Poly2d : public ElementClass<Poly2d, id_Poly2d, P2List, CloneBy::copy> {
    friend ElementClass;
    GRAFEL_PRIMITIVE_TABLE(Poly2d, GRAFEL_POLY2D_TABLE, polyAttributeFlags)

protected:
    explicit Poly2d(Arbor::Document* document) : ElementClass(document) {}
};

} // namespace Grafel
