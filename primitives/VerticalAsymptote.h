// A vertical asymptote of a function graph: a vertical line at one x.
#pragma once

#include <grafel/primitives/PrimitiveClass.h>

// The line style defaults to Dashed, unlike every other line of a plot.
#define GRAFEL_VERTICALASYMPTOTE_TABLE(P)                                                          \
    P(Mandatory, DoubleProperty, Position, 0.0, 0.0)                                               \
    P(Inherited, BoolProperty, VerticalAsymptotesVisible, true, true)                              \
    P(Inherited, LineStyleType, VerticalAsymptotesStyle, ::Arbor::Token(), getToken(id_Dashed))    \
    P(Inherited, PosOutputSizeType, VerticalAsymptotesWidth, 0.5, 0.5)                             \
    P(Inherited, ColorProperty, VerticalAsymptotesColor, RGBA(), RGBA::Black)

namespace Grafel {

/// The vertical line x = Position.
class VerticalAsymptote
    : public ElementClass<VerticalAsymptote, id_VerticalAsymptote, PrimitiveBase> {
    friend ElementClass;
    GRAFEL_PRIMITIVE_TABLE(VerticalAsymptote, GRAFEL_VERTICALASYMPTOTE_TABLE,
                           asymptoteAttributeFlags)

protected:
    explicit VerticalAsymptote(Arbor::Document* document) : ElementClass(document) {}
};

} // namespace Grafel
