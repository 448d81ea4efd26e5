// The frames of 2D and 3D transforms: an affine map each, at one parameter value.
#pragma once

#include <grafel/properties/ElementClass.h>
#include <grafel/structure/TrBase.h>

// Row1 and Row2 are the rows of the matrix, Shift the translation; the defaults are the identity.
#define GRAFEL_TR2D_TABLE(P)                                                                       \
    P(Optional, P2PropertyImpl, Shift, (P2(0, 0)), (P2(0, 0)))                                     \
    P(Optional, P2PropertyImpl, Row1, (P2(1, 0)), (P2(1, 0)))                                      \
    P(Optional, P2PropertyImpl, Row2, (P2(0, 1)), (P2(0, 1)))

#define GRAFEL_TR3D_TABLE(P)                                                                       \
    P(Optional, P3PropertyImpl, Shift, (P3(0, 0, 0)), (P3(0, 0, 0)))                               \
    P(Optional, P3PropertyImpl, Row1, (P3(1, 0, 0)), (P3(1, 0, 0)))                                \
    P(Optional, P3PropertyImpl, Row2, (P3(0, 1, 0)), (P3(0, 1, 0)))                                \
    P(Optional, P3PropertyImpl, Row3, (P3(0, 0, 1)), (P3(0, 0, 1)))

namespace Grafel {

/// A frame of a Transform2d: the map x -> (Row1 . x, Row2 . x) + Shift.
class Tr2d : public ElementClass<Tr2d, id_Tr2d, TrBase> {
    friend ElementClass;

    GRAFEL_MEMBER_PROPERTIES_EXTENDING(Tr2d, TrBase, GRAFEL_TR2D_TABLE)

protected:
    explicit Tr2d(Arbor::Document* document) : ElementClass(document) {}
};

/// A frame of a Transform3d: the map with the three rows Row1 to Row3 and the translation Shift.
class Tr3d : public ElementClass<Tr3d, id_Tr3d, TrBase> {
    friend ElementClass;

    GRAFEL_MEMBER_PROPERTIES_EXTENDING(Tr3d, TrBase, GRAFEL_TR3D_TABLE)

protected:
    explicit Tr3d(Arbor::Document* document) : ElementClass(document) {}
};

} // namespace Grafel
