// Row groups that the vector fields (Field2d, Field3d) share, in the order their tables register
// them.
#pragma once

#include <grafel/primitives/PrimitiveClass.h>

// The grid's node counts along x and y.
#define GRAFEL_FIELD_XY_MESH_ROWS(P)                                                               \
    P(Mandatory, FieldMeshType, XMesh, 20L, 20L)                                                   \
    P(Mandatory, FieldMeshType, YMesh, 20L, 20L)

// How the arrows are stroked, coloured flat or by a function running from LineColor to
// LineColor2.
#define GRAFEL_FIELD_ARROW_LINE_ROWS(P)                                                            \
    P(Inherited, ArrowLengthType, ArrowLength, ::Arbor::Token(), getToken(id_Fixed))               \
    P(Inherited, PosOutputSizeType, LineWidth, 0.5, 0.5)                                           \
    P(Inherited, ColorProperty, LineColor, RGBA::Black, RGBA::Black)                               \
    P(Inherited, ColorType, LineColorType, ::Arbor::Token(), getToken(id_Flat))                    \
    P(Inherited, ColorProperty, LineColor2, RGBA::Black, (RGBA(0, 0, 255, 255)))
