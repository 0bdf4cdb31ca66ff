#pragma once

#include "ParallelSeries.h"

/// Finds single-point spikes: a sample that rises steeply from its left neighbour and falls as steeply to its right
/// one, or the other way round, about the trend of its series. The last sample needs no right neighbour; the first is
/// never judged.
class BuddyCheck {
public:
    virtual ~BuddyCheck() = default;

    /// Judges the first of \p series by \p limit (units per second); the others lose the same indices. Stamps
    /// QcBuddyCheck on \p flagSeries. Values with QcKeep stay. Returns the number removed.
    int check(const SeriesList& series, double limit, const SeriesList& flagSeries) const;
    /// One series; a null \p flagSeries means no stamp.
    int check(Series* series, double limit, Series* flagSeries) const;
};
