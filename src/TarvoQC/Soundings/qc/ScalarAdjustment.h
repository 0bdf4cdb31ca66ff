#pragma once

#include "Series.h"

/// Limits that are forced upon the values of a series.
namespace ScalarAdjustment {

/// Sets every value below \p limit to it. Returns how many there were.
int minThreshold(Series& series, double limit);
/// Sets every value above \p limit to it. Returns how many there were.
int maxThreshold(Series& series, double limit);

} // namespace ScalarAdjustment
