// The image of a plot object: the primitives computed for one value of the animation
// parameter, and the time at which that frame is shown.
#pragma once

#include <grafel/foundation/NaN.h>
#include <grafel/properties/ConstrainedTypes.h>
#include <grafel/properties/ContentPlotElement.h>
#include <grafel/properties/MemberTable.h>

#include <cstdint>

// All four are NaN while not given.
#define GRAFEL_IMGBASE_TABLE(P)                                                                    \
    P(Optional, ImgPropDoubleType, Param, NaN(), NaN())                                            \
    P(Optional, ImgPropDoubleType, TitlePositionX, NaN(), NaN())                                   \
    P(Optional, ImgPropDoubleType, TitlePositionY, NaN(), NaN())                                   \
    P(Optional, ImgPropDoubleType, TitlePositionZ, NaN(), NaN())

namespace Grafel {

/// Base of Img2d and Img3d. Param places the image on the parameter range of its object, and
/// so on the object's time range; the time is computed once and kept until the image's own
/// attributes or its place in the tree change. A change of the object's time or parameter
/// range does not clear it.
class ImgBase : public ContentPlotElement {
    GRAFEL_MEMBER_PROPERTIES(ImgBase, GRAFEL_IMGBASE_TABLE)

public:
    /// The presence word of the four properties.
    static std::uint32_t ImgBase::*imgAttributeFlags() { return presencePtr(); }

    /// The time of this image on its object's time range, or NaN: without a Param, outside an
    /// Obj2d or Obj3d, or when the object has no complete time or parameter range. Reading the
    /// range of an object without Type throws, as every read of its style values does.
    double getTime();
    /// The time of Param mapped from [paramBegin, paramEnd] onto [timeBegin, timeEnd], or NaN
    /// without a Param. An empty parameter range gives timeBegin, which is not kept.
    double getTime(double timeBegin, double timeEnd, double paramBegin, double paramEnd);
    /// An image is one frame of its object: its getTime() with these arguments.
    double getFrameTime(double timeBegin, double timeEnd, double paramBegin,
                        double paramEnd) override {
        return getTime(timeBegin, timeEnd, paramBegin, paramEnd);
    }

    /// Forgets the time, then lets the change go on to the primitives whenever it came from
    /// elsewhere: a change above concerns them even though the image has no such property.
    bool afterAttributeChange(Arbor::Element* source, Arbor::Token name) override;

    ImgBase(const ImgBase& other) = default;

protected:
    explicit ImgBase(Arbor::Document* document) : ContentPlotElement(document) {}

private:
    double time_ = NaN();
};

} // namespace Grafel
