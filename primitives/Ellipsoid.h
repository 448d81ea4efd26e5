// An ellipsoid in space with axes along the coordinate axes.
#pragma once

#include <grafel/primitives/Rows3d.h>

#define GRAFEL_ELLIPSOID_TABLE(P)                                                                  \
    P(Mandatory, P3Property, Center, (P3(0, 0, 0)), (P3(0, 0, 0)))                                 \
    P(Mandatory, SemiAxisType, SemiAxisX, 1.0, 1.0)                                                \
    P(Mandatory, SemiAxisType, SemiAxisY, 1.0, 1.0)                                                \
    P(Mandatory, SemiAxisType, SemiAxisZ, 1.0, 1.0)                                                \
    GRAFEL_3D_SHADED_FILL_ROWS(P)

#define GRAFEL_ELLIPSOID_LAYOUT(F)                                                                 \
    F(FillColor) F(Center) F(SemiAxisX) F(SemiAxisY) F(SemiAxisZ) F(Shading)

namespace Grafel {

/// The ellipsoid around Center with the three semi-axes; a filled solid without lines.
class Ellipsoid : public ElementClass<Ellipsoid, id_Ellipsoid, PrimitiveBase> {
    friend ElementClass;
    GRAFEL_PRIMITIVE_TABLE_ORDERED(Ellipsoid, GRAFEL_ELLIPSOID_TABLE, GRAFEL_ELLIPSOID_LAYOUT,
                                    ellipsoidAttributeFlags)

protected:
    explicit Ellipsoid(Arbor::Document* document) : ElementClass(document) {}
};

} // namespace Grafel
