// A vector field in the plane: one vector at each node of a regular grid.
#pragma once

#include <grafel/document/P2List.h>
#include <grafel/primitives/FieldRows.h>

// Unlike the other primitives, a new field has no presence bit set, its mandatory values too.
#define GRAFEL_FIELD2D_TABLE(P)                                                                    \
    P(Mandatory, P2Property, Anchor, (P2(0, 0)), (P2(0, 0)))                                       \
    P(Mandatory, P2Property, Delta, (P2(1, 1)), (P2(1, 1)))                                        \
    GRAFEL_FIELD_XY_MESH_ROWS(P)                                                                   \
    GRAFEL_FIELD_ARROW_LINE_ROWS(P)                                                                \
    P(Inherited, DoubleProperty, LineColorDirectionX, 0.0, 0.0)                                    \
    P(Inherited, DoubleProperty, LineColorDirectionY, 1.0, 1.0)                                    \
    P(Inherited, TipStyleType, TipStyle, ::Arbor::Token(), getToken(id_Filled))                    \
    P(Inherited, NonNegOutputSizePropertyImpl, TipLength, 1.0, 1.0)                                \
    P(Inherited, DoubleProperty, TipAngle, 0.5235987755982989, 0.5235987755982989)                 \
    P(Inherited, BoolProperty, AntiAliased, true, true)

namespace Grafel {

/// Node (i, j) stands at Anchor + (i * Delta.x, j * Delta.y); its vector is point j * XMesh + i
/// of the P2List, whose colours, when it has them, serve LineColorType Functional. Nothing here
/// compares the number of vectors with the mesh. ArrowLength is kept but not used: arrows have
/// one length. A copy keeps the vectors.
class Field2d : public ElementClass<Field2d, id_Field2d, P2List, CloneBy::copy> {
    friend ElementClass;
    GRAFEL_PRIMITIVE_TABLE(Field2d, GRAFEL_FIELD2D_TABLE, fieldAttributeFlags)

protected:
    explicit Field2d(Arbor::Document* document) : ElementClass(document) { presence_ = 0; }
};

} // namespace Grafel
