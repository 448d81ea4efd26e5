// A cloud of points in space, drawn as point symbols, optionally one colour per point.
#pragma once

#include <grafel/document/P3List.h>
#include <grafel/primitives/Rows3d.h>

#define GRAFEL_PTS3D_TABLE(P)                                                                      \
    P(Inherited, PointStyleType, PointStyle, ::Arbor::Token(), getToken(id_Squares))               \
    P(Inherited, PosOutputSizeType, PointSize, 2.0, 2.0)                                           \
    P(Inherited, ColorProperty, PointColor, RGBA(), (RGBA(255, 0, 0, 255)))                        \
    P(Inherited, BoolProperty, PointsVisible, true, true)

namespace Grafel {

/// The points of its P3List, each drawn with the point symbol; the list's colours, when it has
/// them, replace PointColor point by point. A copy keeps the points.
class Pts3d : public ElementClass<Pts3d, id_Pts3d, P3List, CloneBy::copy> {
    friend ElementClass;
    GRAFEL_PRIMITIVE_TABLE(Pts3d, GRAFEL_PTS3D_TABLE, ptsAttributeFlags)

protected:
    explicit Pts3d(Arbor::Document* document) : ElementClass(document) {}
};

} // namespace Grafel
