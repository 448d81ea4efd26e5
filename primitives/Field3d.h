// A vector field in space: one vector at each node of a regular grid.
#pragma once

#include <grafel/document/P3List.h>
#include <grafel/primitives/PrimitiveClass.h>

// As on Field2d, a new field has no presence bit set. Points stand in for the arrow tips.
#define GRAFEL_FIELD3D_TABLE(P)                                                                    \
    P(Mandatory, P3Property, Anchor, (P3(0, 0, 0)), (P3(0, 0, 0)))                                 \
    P(Mandatory, P3Property, Delta, (P3(1, 1, 1)), (P3(1, 1, 1)))                                  \
    P(Mandatory, FieldMeshType, XMesh, 20L, 20L)                                                   \
    P(Mandatory, FieldMeshType, YMesh, 20L, 20L)                                                   \
    P(Mandatory, FieldMeshType, ZMesh, 20L, 20L)                                                   \
    P(Inherited, ArrowLengthType, ArrowLength, ::Arbor::Token(), getToken(id_Fixed))               \
    P(Inherited, PosOutputSizeType, LineWidth, 0.5, 0.5)                                           \
    P(Inherited, ColorProperty, LineColor, RGBA::Black, RGBA::Black)                               \
    P(Inherited, ColorType, LineColorType, ::Arbor::Token(), getToken(id_Flat))                    \
    P(Inherited, ColorProperty, LineColor2, RGBA::Black, (RGBA(0, 0, 255, 255)))                   \
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
