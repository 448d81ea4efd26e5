// A cloud of points in the plane, drawn as point symbols, optionally one colour per point.
#pragma once

#include <grafel/document/P2List.h>
#include <grafel/primitives/PrimitiveClass.h>

// Unlike a single point, a cloud defaults to red.
#define GRAFEL_PTS2D_TABLE(P)                                                                      \
    P(Inherited, PointStyleType, PointStyle, ::Arbor::Token(), getToken(id_Squares))               \
    P(Inherited, PosOutputSizeType, PointSize, 2.0, 2.0)                                           \
    P(Inherited, ColorProperty, PointColor, RGBA(), (RGBA(255, 0, 0, 255)))                        \
    P(Inherited, BoolProperty, PointsVisible, true, true)                                          \
    P(Inherited, BoolProperty, AntiAliased, true, true)

namespace Grafel {

/// The points of its P2List, each drawn with the point symbol; the list's colours, when it has
/// them, replace PointColor point by point. A copy keeps the points.
class Pts2d : public ElementClass<Pts2d, id_Pts2d, P2List, CloneBy::copy> {
    friend ElementClass;
    GRAFEL_PRIMITIVE_TABLE(Pts2d, GRAFEL_PTS2D_TABLE, ptsAttributeFlags)

protected:
    explicit Pts2d(Arbor::Document* document) : ElementClass(document) {}
};

} // namespace Grafel
