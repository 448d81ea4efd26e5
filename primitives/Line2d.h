// A straight line in the plane: a segment, or a line running to infinity on one or both sides.
#pragma once

#include <grafel/primitives/PrimitiveClass.h>

#define GRAFEL_LINE2D_TABLE(P)                                                                     \
    P(Mandatory, P2Property, From, (P2(0, 0)), (P2(0, 0)))                                         \
    P(Mandatory, P2Property, To, (P2(1, 1)), (P2(1, 1)))                                           \
    P(Inherited, ExtensionType, Extension, ::Arbor::Token(), getToken(id_Finite))                  \
    P(Inherited, LineStyleType, LineStyle, ::Arbor::Token(), getToken(id_Solid))                   \
    P(Inherited, PosOutputSizeType, LineWidth, 0.5, 0.5)                                           \
    P(Inherited, ColorProperty, LineColor, RGBA(), RGBA::Black)                                    \
    P(Inherited, BoolProperty, AntiAliased, true, true)

namespace Grafel {

/// The line through From and To; Extension says whether it ends at both points (Finite), at
/// From only (SemiInfinite) or at neither (Infinite).
class Line2d : public ElementClass<Line2d, id_Line2d, PrimitiveBase> {
    friend ElementClass;
    GRAFEL_PRIMITIVE_TABLE(Line2d, GRAFEL_LINE2D_TABLE, lineAttributeFlags)

protected:
    explicit Line2d(Arbor::Document* document) : ElementClass(document) {}
};

} // namespace Grafel
