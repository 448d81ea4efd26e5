// The overall span of a plot's animation: without it, nothing is animated.
#pragma once

#include <grafel/properties/ConstrainedTypes.h>
#include <grafel/properties/ElementClass.h>
#include <grafel/properties/MemberTable.h>

#define GRAFEL_TIMERANGE_TABLE(P)                                                                  \
    P(Mandatory, DoubleProperty, TimeBegin, 0.0, 0.0)                                              \
    P(Mandatory, DoubleProperty, TimeEnd, 10.0, 10.0)

namespace Grafel {

/// An option child of the Canvas with the begin and end of the animation, held in members. It
/// takes no children.
class TimeRange : public ElementClass<TimeRange, id_TimeRange, PlotElement> {
    friend ElementClass;

public:
    GRAFEL_MEMBER_PROPERTIES(TimeRange, GRAFEL_TIMERANGE_TABLE)

public:
    TimeRange(const TimeRange& other) = default;
    bool mayReplaceChildren(Arbor::Node* first, unsigned count, Arbor::Node* newFirst) override {
        return !newFirst && (!first || count == 0);
    }

protected:
    explicit TimeRange(Arbor::Document* document) : ElementClass(document) {}
};

} // namespace Grafel
