#pragma once

#include "Series.h"
#include "TimeConstant.h"

/// Corrects a series for the lag of its sensor: what it reads lags behind by the time constant times the rate of
/// change.
class DynamicAdjustment {
public:
    virtual ~DynamicAdjustment() = default;

    /// Adds to each value but launch and surface observations the time constant times the slope of the smooth curve of
    /// \p wavelength (s). False, and nothing changed, for fewer than 3 values or a curve that can't be fitted.
    bool adjust(Series* series, const TimeConstant& tc, double wavelength) const;
};
