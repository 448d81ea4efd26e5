// A sphere in space.
#pragma once

#include <grafel/primitives/Rows3d.h>

#define GRAFEL_SPHERE_TABLE(P)                                                                     \
    P(Mandatory, P3Property, Center, (P3(0, 0, 0)), (P3(0, 0, 0)))                                 \
    P(Mandatory, RadiusType, Radius, 1.0, 1.0)                                                     \
    GRAFEL_3D_SHADED_FILL_ROWS(P)

#define GRAFEL_SPHERE_LAYOUT(F) F(FillColor) F(Center) F(Radius) F(Shading)

namespace Grafel {

/// The sphere of Radius around Center. A negative Radius is stored as it is; whoever draws the
/// sphere decides what it means.
class Sphere : public ElementClass<Sphere, id_Sphere, PrimitiveBase> {
    friend ElementClass;
    GRAFEL_PRIMITIVE_TABLE_ORDERED(Sphere, GRAFEL_SPHERE_TABLE, GRAFEL_SPHERE_LAYOUT,
                                    sphereAttributeFlags)

protected:
    explicit Sphere(Arbor::Document* document) : ElementClass(document) {}
};

} // namespace Grafel
