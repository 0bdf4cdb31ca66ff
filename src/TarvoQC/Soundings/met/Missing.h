#pragma once

/// The missing value of every physical quantity, in arrays, columns and launch fields.
constexpr double kMissing = -999.0;

/// The launch observation sits one second ahead of the launch, at index 0 of its series, s.
constexpr double kLaunchObsTime = -1.0;
