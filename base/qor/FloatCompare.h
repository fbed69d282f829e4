#pragma once

// Equality of computed values that tolerates rounding: two results of different arithmetic on the
// same quantity compare equal, so that a rounding error of 1e-7 does not keep a control active.

#include <algorithm>
#include <cmath>

// Equal within a millionth of the larger magnitude, or within 1e-9 near zero. NaN equals nothing,
// and an infinity only itself.
inline bool valEqualsVal(double a, double b) {
    if (a == b)
        return true;
    double difference = std::fabs(a - b);
    if (!std::isfinite(difference))
        return false;
    return difference <= 1e-9 || difference <= 1e-6 * std::max(std::fabs(a), std::fabs(b));
}
