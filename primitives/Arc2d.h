// An arc of an ellipse in the plane, between two angles, optionally closed and filled.
#pragma once

#include <grafel/primitives/PrimitiveClass.h>

// Until the arc stands in a tree, its tokens are null and its colours opaque black: the
// inherited values are filled in when it is inserted.
#define GRAFEL_ARC2D_TABLE(P)                                                                      \
    P(Mandatory, P2Property, Center, (P2(0, 0)), (P2(0, 0)))                                       \
    P(Mandatory, SemiAxisType, SemiAxisX, 1.0, 1.0)                                                \
    P(Mandatory, SemiAxisType, SemiAxisY, 1.0, 1.0)                                                \
    P(Optional, AngleType, StartAngle, 0.0, 0.0)                                                   \
    P(Optional, AngleType, EndAngle, 6.2831853, 6.2831853)                                         \
    P(Inherited, BoolProperty, Filled, true, true)                                                 \
    P(Inherited, FillPatternType, FillPattern, ::Arbor::Token(), getToken(id_Solid))               \
    P(Inherited, LineStyleType, LineStyle, ::Arbor::Token(), getToken(id_Solid))                   \
    P(Inherited, PosOutputSizeType, LineWidth, 0.5, 0.5)                                           \
    P(Inherited, ColorProperty, LineColor, RGBA(), RGBA::Black)                                    \
    P(Inherited, ColorProperty, FillColor, RGBA(), (RGBA(255, 0, 0, 255)))                         \
    P(Inherited, BoolProperty, LinesVisible, true, true)                                           \
    P(Inherited, BoolProperty, Closed, false, false)                                               \
    P(Inherited, BoolProperty, AntiAliased, true, true)

namespace Grafel {

/// An elliptic arc around Center with the semi-axes SemiAxisX and SemiAxisY, from StartAngle
/// to EndAngle (radians). The default end, 6.2831853, stops a little short of a full turn.
class Arc2d : public ElementClass<Arc2d, id_Arc2d, PrimitiveBase> {
    friend ElementClass;
    GRAFEL_PRIMITIVE_TABLE(Arc2d, GRAFEL_ARC2D_TABLE, arcAttributeFlags)

protected:
    explicit Arc2d(Arbor::Document* document) : ElementClass(document) {}
};

} // namespace Grafel
