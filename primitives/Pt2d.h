// A single point in the plane, drawn as a point symbol.
#pragma once

#include <grafel/primitives/PrimitiveClass.h>

// The point table: the properties of a drawn point.
#define GRAFEL_PT2D_TABLE(P)                                                                       \
    P(Mandatory, P2Property, Position, (P2(0, 0)), (P2(0, 0)))                                     \
    P(Inherited, PointStyleType, PointStyle, ::Arbor::Token(), getToken(id_Squares))               \
    P(Inherited, PosOutputSizeType, PointSize, 2.0, 2.0)                                           \
    P(Inherited, ColorProperty, PointColor, RGBA(), RGBA::Black)                                   \
    P(Inherited, BoolProperty, PointsVisible, true, true)                                          \
    P(Inherited, BoolProperty, AntiAliased, true, true)

namespace Grafel {

/// A point at Position, with a symbol of PointSize millimetres.
class Pt2d : public ElementClass<Pt2d, id_Pt2d, PrimitiveBase> {
    friend ElementClass;
    GRAFEL_PRIMITIVE_TABLE(Pt2d, GRAFEL_PT2D_TABLE, pointAttributeFlags)

protected:
    explicit Pt2d(Arbor::Document* document) : ElementClass(document) {}
};

} // namespace Grafel
