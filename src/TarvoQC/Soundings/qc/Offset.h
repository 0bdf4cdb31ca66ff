#pragma once

#include "Series.h"

/// A constant correction of one quantity.
namespace Offset {

/// Adds \p offset, in the unit of the series, to every value but a launch or surface observation at index 0. An offset
/// of 0 does nothing.
void apply(Series& series, double offset);

} // namespace Offset
