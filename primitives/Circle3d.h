// A circle in space: a disc around a centre, in the plane of a normal.
#pragma once

#include <grafel/primitives/Rows3d.h>

#define GRAFEL_CIRCLE3D_TABLE(P)                                                                   \
    P(Mandatory, P3Property, Center, (P3(0, 0, 0)), (P3(0, 0, 0)))                                 \
    P(Mandatory, P3Property, Normal, (P3(0, 0, 1)), (P3(0, 0, 1)))                                 \
    P(Mandatory, RadiusType, Radius, 1.0, 1.0)                                                     \
    GRAFEL_3D_OUTLINED_FILL_ROWS(P)                                                                \
    GRAFEL_3D_LINES_VISIBLE_ROW(P)

#define GRAFEL_CIRCLE3D_LAYOUT(F)                                                                  \
    GRAFEL_3D_OUTLINED_FILL_NARROW(F) F(Center) F(Normal) F(Radius) F(LineStyle) F(LineWidth)

namespace Grafel {

/// The circle of Radius around Center, perpendicular to Normal. A negative Radius is stored as
/// it is; whoever draws the circle decides what it means.
class Circle3d : public ElementClass<Circle3d, id_Circle3d, PrimitiveBase> {
    friend ElementClass;
    GRAFEL_PRIMITIVE_TABLE_ORDERED(Circle3d, GRAFEL_CIRCLE3D_TABLE, GRAFEL_CIRCLE3D_LAYOUT,
                                    circleAttributeFlags)

protected:
    explicit Circle3d(Arbor::Document* document) : ElementClass(document) {}
};

} // namespace Grafel
