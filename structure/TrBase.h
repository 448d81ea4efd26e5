// One frame of an animated transform: the map at one value of the transform's parameter, and
// the time at which that frame is shown.
#pragma once

#include <grafel/foundation/NaN.h>
#include <grafel/properties/ConstrainedTypes.h>
#include <grafel/properties/MemberTable.h>
#include <grafel/properties/PlotElement.h>

// NaN while not given: a frame without a parameter value has no time.
#define GRAFEL_TRBASE_TABLE(P) P(Optional, DoubleProperty, Param, NaN(), NaN())

namespace Grafel {

/// Base of Tr2d and Tr3d. Param places the frame on the parameter range of its transform, and
/// so on the transform's time span; the time is computed once and kept until the frame's own
/// attributes or its place in the tree change. A change of the transform's span or parameter
/// range does not clear it. A frame takes no children and writes no command text.
class TrBase : public PlotElement {
    GRAFEL_MEMBER_PROPERTIES(TrBase, GRAFEL_TRBASE_TABLE)

public:
    /// Nothing may come in; only nothing may be replaced.
    bool mayReplaceChildren(Arbor::Node* first, unsigned count, Arbor::Node* newFirst) override;
    /// Forgets the time, then lets the change go on as the base does.
    bool afterAttributeChange(Arbor::Element* source, Arbor::Token name) override;

    /// The time of this frame on its transform's span, or NaN: without a Param, outside a
    /// Transform2d or Transform3d, or when the transform has no complete span or parameter range.
    double getTime();
    /// The time of Param mapped from [paramBegin, paramEnd] onto [timeBegin, timeEnd], or NaN
    /// without a Param. An empty parameter range gives timeBegin, which is not kept.
    double getTime(double timeBegin, double timeEnd, double paramBegin, double paramEnd);
    double getFrameTime(double timeBegin, double timeEnd, double paramBegin,
                        double paramEnd) override {
        return getTime(timeBegin, timeEnd, paramBegin, paramEnd);
    }

    TrBase(const TrBase& other) = default;

protected:
    explicit TrBase(Arbor::Document* document) : PlotElement(document) {}

private:
    double time_ = NaN();
};

} // namespace Grafel
