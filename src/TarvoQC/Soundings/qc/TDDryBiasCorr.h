#pragma once

#include "Series.h"

/// RH, %, of a humidity sensor with the temperature-dependent dry bias, corrected; never above 100. \p rh in %, \p t in
/// deg C. The sensor reads too low by an amount that goes linearly from one end of its range to the other.
double biasCorrect(double rh, double t);

/// The correction of that bias over a series.
class TDDryBiasCorr {
public:
    virtual ~TDDryBiasCorr() = default;

    /// Corrects every value of \p rh but a launch observation. One without a temperature within \p gap (s), or below 1
    /// % after the correction, is removed; the latter is stamped DryBiasCorrection on \p flagSeries. Returns the number
    /// removed.
    int correct(Series* rh, Series* flagSeries, const Series* tdry, double gap) const;

    /// For values corrected at the source: removes those of exactly 0.1 %, the first never looked at, and stamps them.
    /// Returns the number removed.
    int markDryBiasAtt(Series* rh, Series* flagSeries) const;
};
