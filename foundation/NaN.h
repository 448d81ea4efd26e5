// The marker of a number that was not given: unset times, parameters, sizes and view fields.
#pragma once

#include <limits>

namespace Grafel {

/// The quiet not-a-number. It equals nothing, itself included, so test for it with std::isnan
/// and never with a comparison.
inline constexpr double NaN() noexcept {
    return std::numeric_limits<double>::quiet_NaN();
}

} // namespace Grafel
