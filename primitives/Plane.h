// A plane in space through a point, drawn as a filled mesh.
#pragma once

#include <grafel/primitives/Rows3d.h>

#define GRAFEL_PLANE_TABLE(P)                                                                      \
    P(Mandatory, P3Property, Position, (P3(0, 0, 0)), (P3(0, 0, 0)))                               \
    P(Mandatory, P3Property, Normal, (P3(0, 0, 1)), (P3(0, 0, 1)))                                 \
    P(Inherited, BoolProperty, Filled, true, true)                                                 \
    P(Inherited, ColorProperty, FillColor, RGBA(), RGBA::White)                                    \
    P(Inherited, MeshType, UMesh, 10L, 10L)                                                        \
    P(Inherited, MeshType, VMesh, 10L, 10L)                                                        \
    P(Inherited, BoolProperty, LinesVisible, false, false)                                         \
    P(Inherited, ColorProperty, LineColor, RGBA(), RGBA::Black)

#define GRAFEL_PLANE_LAYOUT(F)                                                                     \
    F(FillColor) F(LineColor) F(Filled) F(LinesVisible) F(Position) F(Normal) F(UMesh) F(VMesh)

namespace Grafel {

/// The plane through Position perpendicular to Normal, meshed UMesh by VMesh. Unlike a mesh
/// primitive, it inherits its mesh from the object above.
class Plane : public ElementClass<Plane, id_Plane, PrimitiveBase> {
    friend ElementClass;
    GRAFEL_PRIMITIVE_TABLE_ORDERED(Plane, GRAFEL_PLANE_TABLE, GRAFEL_PLANE_LAYOUT,
                                    planeAttributeFlags)

protected:
    explicit Plane(Arbor::Document* document) : ElementClass(document) {}
};

} // namespace Grafel
