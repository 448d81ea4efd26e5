// A cone in space, truncated when its two radii differ.
#pragma once

#include <grafel/primitives/Rows3d.h>

#define GRAFEL_CONE_TABLE(P)                                                                       \
    P(Mandatory, P3Property, Base, (P3(0, 0, 0)), (P3(0, 0, 0)))                                   \
    P(Mandatory, P3Property, Top, (P3(0, 0, 1)), (P3(0, 0, 1)))                                    \
    P(Mandatory, RadiusType, BaseRadius, 1.0, 1.0)                                                 \
    P(Mandatory, RadiusType, TopRadius, 1.0, 1.0)                                                  \
    GRAFEL_3D_OUTLINED_FILL_ROWS(P)                                                                \
    P(Inherited, ShadingType, Shading, ::Arbor::Token(), getToken(id_Flat))                        \
    GRAFEL_3D_LINES_VISIBLE_ROW(P)

#define GRAFEL_CONE_LAYOUT(F)                                                                      \
    GRAFEL_3D_OUTLINED_FILL_NARROW(F)                                                              \
    F(Base) F(Top) F(BaseRadius) F(TopRadius) F(LineStyle) F(LineWidth) F(Shading)

namespace Grafel {

/// The solid between a disc of BaseRadius around Base and one of TopRadius around Top. The
/// defaults make a unit cylinder along z.
class Cone : public ElementClass<Cone, id_Cone, PrimitiveBase> {
    friend ElementClass;
    GRAFEL_PRIMITIVE_TABLE_ORDERED(Cone, GRAFEL_CONE_TABLE, GRAFEL_CONE_LAYOUT, coneAttributeFlags)

protected:
    explicit Cone(Arbor::Document* document) : ElementClass(document) {}
};

} // namespace Grafel
