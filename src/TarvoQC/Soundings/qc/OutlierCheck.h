#pragma once

#include "ParallelSeries.h"

/// Finds samples too far from the trend of their series, in units of the standard deviation about it. The trend is
/// taken once, before anything is removed; the first sample is never judged.
class OutlierCheck {
public:
    virtual ~OutlierCheck() = default;

    /// Judges the first of \p series by \p limit (standard deviations); the others lose the same indices. Stamps
    /// QcOutlierCheck on \p flagSeries. Values with QcKeep stay. Returns the number removed.
    int check(const SeriesList& series, double limit, const SeriesList& flagSeries) const;
    /// One series; a null \p flagSeries means no stamp.
    int check(Series* series, double limit, Series* flagSeries) const;
};
