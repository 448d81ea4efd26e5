// A vector field in space: one vector at each node of a regular grid.
#pragma once

#include <grafel/document/P3List.h>
#include <grafel/primitives/FieldRows.h>

// As on Field2d, a new field has no presence bit set. Points stand in for the arrow tips.
#define GRAFEL_FIELD3D_TABLE(P)                                                                    \
    P(Mandatory, P3Property, Anchor, (P3(0, 0, 0)), (P3(0, 0, 0)))                                 \
    P(Mandatory, P3Property, Delta, (P3(1, 1, 1)), (P3(1, 1, 1)))                                  \
    GRAFEL_FIELD_XY_MESH_ROWS(P)                                                                   \
    P(Mandatory, FieldMeshType, ZMesh, 20L, 20L)                                                   \
    GRAFEL_FIELD_ARROW_LINE_ROWS(P)                                                                \
    P(Inherited, DoubleProperty, LineColorDirectionX, 0.0, 0.0)                                    \
    P(Inherited, DoubleProperty, LineColorDirectionY, 0.0, 0.0)                                    \
    P(Inherited, DoubleProperty, LineColorDirectionZ, 1.0, 1.0)                                    \
    P(Inherited, PointStyleType, PointStyle, ::Arbor::Token(), getToken(id_Squares))               \
    P(Inherited, PosOutputSizeType, PointSize, 1.0, 1.0)                                           \
    P(Inherited, BoolProperty, PointsVisible, true, true)

namespace Grafel {

/// Node (i, j, k) stands at Anchor + (i * Delta.x, j * Delta.y, k * Delta.z); its vector is
/// point (k * YMesh + j) * XMesh + i of the P3List, whose first colours serve LineColorType
/// Functional. Nothing here compares the number of vectors with the mesh. A copy keeps the
/// vectors.
class Field3d : public ElementClass<Field3d, id_Field3d, P3List, CloneBy::copy> {
    friend ElementClass;
    GRAFEL_PRIMITIVE_TABLE(Field3d, GRAFEL_FIELD3D_TABLE, fieldAttributeFlags)

protected:
    explicit Field3d(Arbor::Document* document) : ElementClass(document) { presence_ = 0; }
};

} // namespace Grafel
