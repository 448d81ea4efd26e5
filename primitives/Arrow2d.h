// An arrow in the plane: a line with a tip at its end.
#pragma once

#include <grafel/primitives/PrimitiveClass.h>

#define GRAFEL_ARROW2D_TABLE(P)                                                                    \
    P(Mandatory, P2Property, From, (P2(0, 0)), (P2(0, 0)))                                         \
    P(Mandatory, P2Property, To, (P2(1, 1)), (P2(1, 1)))                                           \
    P(Inherited, TipStyleType, TipStyle, ::Arbor::Token(), getToken(id_Filled))                    \
    P(Inherited, NonNegOutputSizePropertyImpl, TipLength, 4.0, 4.0)                                \
    P(Inherited, DoubleProperty, TipAngle, 0.5235987755982989, 0.5235987755982989)                 \
    P(Inherited, LineStyleType, LineStyle, ::Arbor::Token(), getToken(id_Solid))                   \
    P(Inherited, PosOutputSizeType, LineWidth, 0.5, 0.5)                                           \
    P(Inherited, ColorProperty, LineColor, RGBA(), RGBA::Black)                                    \
    P(Inherited, BoolProperty, AntiAliased, true, true)

namespace Grafel {

/// An arrow from From to To. TipLength is a length on the page (millimetres, at least 0),
/// TipAngle the half opening of the tip in radians.
class Arrow2d : public ElementClass<Arrow2d, id_Arrow2d, PrimitiveBase> {
    friend ElementClass;
    GRAFEL_PRIMITIVE_TABLE(Arrow2d, GRAFEL_ARROW2D_TABLE, arrowAttributeFlags)

protected:
    explicit Arrow2d(Arbor::Document* document) : ElementClass(document) {}
};

} // namespace Grafel
