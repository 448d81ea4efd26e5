// What the host learned about a coordinate system while plotting it: whether its scaling
// turned out constrained.
#pragma once

#include <grafel/properties/ConstrainedTypes.h>
#include <grafel/properties/ElementClass.h>
#include <grafel/properties/MemberTable.h>

// The one property of Hints: the scaling found, null until stated.
#define GRAFEL_HINTS_TABLE(P)                                                                      \
    P(Optional, ScalingType, Scaling, ::Arbor::Token(),                                            \
      ::Grafel::getToken(::Grafel::id_Unconstrained))

namespace Grafel {

/// An option child of a coordinate system, whose Scaling decides an Automatic scaling (see
/// CoordinateSystemBase::getConstrainedScaling). Its value is held in a member; it takes no
/// children and writes no command text. A copy made by cloneNode has no Scaling: a hint
/// belongs to the plot it was found for.
class Hints : public ElementClass<Hints, id_Hints, PlotElement> {
    friend ElementClass;

public:
    GRAFEL_MEMBER_PROPERTIES(Hints, GRAFEL_HINTS_TABLE)

public:
    Hints(const Hints& other) = default;

    /// Only the empty change passes.
    bool mayReplaceChildren(Arbor::Node* first, unsigned count, Arbor::Node* newFirst) override {
        return !newFirst && (!first || count == 0);
    }

protected:
    explicit Hints(Arbor::Document* document) : ElementClass(document) {}
};

} // namespace Grafel
