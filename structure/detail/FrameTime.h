// How a frame (an image of an object, a frame of a transform) turns its parameter value into a
// time, shared by both kinds of frame.
#pragma once

#include <grafel/foundation/NaN.h>

#include <cmath>
#include <limits>

namespace Grafel::detail {

/// The time of the frame at `param` in the span [timeBegin, timeEnd], the parameter running
/// from paramBegin to paramEnd; kept in `cache`, which answers while it is not NaN. A parameter
/// range of one value puts every frame at the start, without a division by 0; that answer
/// depends on the arguments only, so it is not kept.
inline double frameTime(double& cache, double param, double timeBegin, double timeEnd,
                        double paramBegin, double paramEnd) {
    if (!std::isnan(cache)) return cache;
    if (std::isnan(param)) return NaN();
    if (std::fabs(paramEnd - paramBegin) <= std::numeric_limits<double>::epsilon())
        return timeBegin;
    cache = (param - paramBegin) / (paramEnd - paramBegin) * (timeEnd - timeBegin) + timeBegin;
    return cache;
}

/// frameTime with the span and the parameter range of `owner`, the object or transform that
/// holds the frame; NaN when either is missing.
template <class Owner> double frameTimeIn(const Owner& owner, double& cache, double param) {
    if (!std::isnan(cache)) return cache;
    if (std::isnan(param)) return NaN();
    const double timeBegin = owner.getTimeBegin();
    const double timeEnd = owner.getTimeEnd();
    if (std::isnan(timeBegin) || std::isnan(timeEnd)) return NaN();
    double paramBegin, paramEnd;
    if (!owner.getParameterRange(paramBegin, paramEnd)) return NaN();
    return frameTime(cache, param, timeBegin, timeEnd, paramBegin, paramEnd);
}

} // namespace Grafel::detail
