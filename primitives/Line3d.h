// A straight line in space: a segment, or a line running to infinity on one or both sides.
#pragma once

#include <grafel/primitives/Rows3d.h>

#define GRAFEL_LINE3D_TABLE(P)                                                                     \
    GRAFEL_3D_SEGMENT_ROWS(P)                                                                      \
    P(Inherited, ExtensionType, Extension, ::Arbor::Token(), getToken(id_Finite))                  \
    GRAFEL_3D_LINE_ROWS(P)                                                                         \
    GRAFEL_3D_TUBE_ROWS(P)

namespace Grafel {

/// The line through From and To; Extension says whether it ends at both points (Finite), at
/// From only (SemiInfinite) or at neither (Infinite). A Tubular line is drawn as a tube.
class Line3d : public ElementClass<Line3d, id_Line3d, PrimitiveBase> {
    friend ElementClass;
    GRAFEL_PRIMITIVE_TABLE(Line3d, GRAFEL_LINE3D_TABLE, lineAttributeFlags)

protected:
    explicit Line3d(Arbor::Document* document) : ElementClass(document) {}
};

} // namespace Grafel
