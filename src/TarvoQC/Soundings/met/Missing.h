#pragma once

#include <cmath>
#include <limits>

/// The missing value of every physical quantity, in arrays, columns and launch fields.
constexpr double kMissing = -999.0;

/// Whether \p value is one: not missing, and a number that the products hold, some of which are of single precision.
inline bool isKnown(double value) {
    return value != kMissing && std::abs(value) <= std::numeric_limits<float>::max();
}

/// The launch observation sits one second ahead of the launch, at index 0 of its series, s.
constexpr double kLaunchObsTime = -1.0;
