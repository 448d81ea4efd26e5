// An arrow in space: a line, or a tube, with a tip at its end.
#pragma once

#include <grafel/primitives/Rows3d.h>

#define GRAFEL_ARROW3D_TABLE(P)                                                                    \
    GRAFEL_3D_SEGMENT_ROWS(P)                                                                      \
    P(Inherited, TipStyleType, TipStyle, ::Arbor::Token(), getToken(id_Filled))                    \
    P(Inherited, NonNegOutputSizePropertyImpl, TipLength, 4.0, 4.0)                                \
    P(Inherited, DoubleProperty, TipAngle, 0.17453292519943295, 0.17453292519943295)               \
    GRAFEL_3D_LINE_ROWS(P)                                                                         \
    GRAFEL_3D_TUBE_ROWS(P)

namespace Grafel {

/// An arrow from From to To. TipLength is a length on the page (millimetres, at least 0),
/// TipAngle the half opening of the tip in radians: 10 degrees, narrower than in the plane.
class Arrow3d : public ElementClass<Arrow3d, id_Arrow3d, PrimitiveBase> {
    friend ElementClass;
    GRAFEL_PRIMITIVE_TABLE(Arrow3d, GRAFEL_ARROW3D_TABLE, arrowAttributeFlags)

protected:
    explicit Arrow3d(Arbor::Document* document) : ElementClass(document) {}
};

} // namespace Grafel
