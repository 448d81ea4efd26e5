// An axis-parallel box in space, outlined and filled.
#pragma once

#include <grafel/primitives/Rows3d.h>

// A new box spans -1 to 1 on every axis, but a maximum cleared of its value falls back to the
// descriptor's -1, as the minima do.
#define GRAFEL_BOX_TABLE(P)                                                                        \
    P(Mandatory, RangeBoundType, XMin, -1.0, -1.0)                                                 \
    P(Mandatory, RangeBoundType, XMax, 1.0, -1.0)                                                  \
    P(Mandatory, RangeBoundType, YMin, -1.0, -1.0)                                                 \
    P(Mandatory, RangeBoundType, YMax, 1.0, -1.0)                                                  \
    P(Mandatory, RangeBoundType, ZMin, -1.0, -1.0)                                                 \
    P(Mandatory, RangeBoundType, ZMax, 1.0, -1.0)                                                  \
    GRAFEL_3D_OUTLINED_FILL_ROWS(P)                                                                \
    GRAFEL_3D_LINES_VISIBLE_ROW(P)

#define GRAFEL_BOX_LAYOUT(F)                                                                       \
    GRAFEL_3D_OUTLINED_FILL_NARROW(F)                                                              \
    F(XMin) F(XMax) F(YMin) F(YMax) F(ZMin) F(ZMax) F(LineStyle) F(LineWidth)

namespace Grafel {

/// The box between the minima and the maxima of its bounds; nothing checks that a minimum lies
/// below its maximum.
class Box : public ElementClass<Box, id_Box, PrimitiveBase> {
    friend ElementClass;
    GRAFEL_PRIMITIVE_TABLE_ORDERED(Box, GRAFEL_BOX_TABLE, GRAFEL_BOX_LAYOUT, boxAttributeFlags)

protected:
    explicit Box(Arbor::Document* document) : ElementClass(document) {}
};

} // namespace Grafel
