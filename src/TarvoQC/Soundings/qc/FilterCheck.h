#pragma once

#include "ParallelSeries.h"

/// Compares each sample with a smooth curve through its series. Launch and surface observations are in the curve and
/// are never judged.
class FilterCheck {
public:
    virtual ~FilterCheck() = default;

    /// Removes what lies more than \p deviation (units of the series) off the curve of \p wavelength (s) through the
    /// first of \p series; the others lose the same indices. Stamps QcFilterCheck on \p flagSeries. Values with QcKeep
    /// stay. \p failed tells that the curve couldn't be fitted: nothing is removed then. Returns the number removed.
    int check(const SeriesList& series, double deviation, double wavelength, const SeriesList& flagSeries,
              bool& failed) const;
    /// One series; a null \p flagSeries means no stamp.
    int check(Series* series, double deviation, double wavelength, Series* flagSeries, bool& failed) const;
};
