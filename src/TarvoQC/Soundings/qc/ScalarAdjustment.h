#pragma once

#include "ParallelSeries.h"

/// Limits on single values.
class ScalarAdjustment {
public:
    virtual ~ScalarAdjustment() = default;

    /// Removes the indices where the first of \p series lies outside of \p min to \p max (both ends pass) from all of
    /// them, but for values with QcKeep, and stamps QcLimitCheck on \p flagSeries. Returns how many failed.
    static int limits(const SeriesList& series, double min, double max, const SeriesList& flagSeries);
    /// One series; a null \p flagSeries means no stamp.
    static int limits(Series* series, double min, double max, Series* flagSeries);

    /// Sets every value below \p limit to it. Returns how many there were.
    static int minThreshold(Series& series, double limit);
    /// Sets every value above \p limit to it. Returns how many there were.
    static int maxThreshold(Series& series, double limit);
};
