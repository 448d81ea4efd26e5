// The box a viewer clips a 3D scene to: in the image of an Obj3d of Type ClippingBox.
#pragma once

#include <grafel/primitives/PrimitiveClass.h>

// A new box spans -1 to 1 on each axis, while a removed maximum falls back to -1.
#define GRAFEL_CLIPPINGBOX_TABLE(P)                                                                \
    P(Mandatory, RangeBoundType, XMin, -1.0, -1.0)                                                 \
    P(Mandatory, RangeBoundType, YMin, -1.0, -1.0)                                                 \
    P(Mandatory, RangeBoundType, ZMin, -1.0, -1.0)                                                 \
    P(Mandatory, RangeBoundType, XMax, 1.0, -1.0)                                                  \
    P(Mandatory, RangeBoundType, YMax, 1.0, -1.0)                                                  \
    P(Mandatory, RangeBoundType, ZMax, 1.0, -1.0)

namespace Grafel {

/// The box from (XMin, YMin, ZMin) to (XMax, YMax, ZMax); nothing checks that a minimum lies
/// below its maximum. A copy made by cloneNode starts over from the constructor's values.
class ClippingBox : public ElementClass<ClippingBox, id_ClippingBox, PrimitiveBase> {
    friend ElementClass;
    GRAFEL_MEMBER_PROPERTIES(ClippingBox, GRAFEL_CLIPPINGBOX_TABLE)

public:
    ClippingBox(const ClippingBox& other) = default;

protected:
    explicit ClippingBox(Arbor::Document* document) : ElementClass(document) {}
};

} // namespace Grafel
