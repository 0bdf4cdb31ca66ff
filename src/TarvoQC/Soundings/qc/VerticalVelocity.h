#pragma once

#include "Series.h"

/// The rate of rise or fall from the hydrostatic equation and the slope of the pressure.
class VerticalVelocity {
public:
    virtual ~VerticalVelocity() = default;

    /// Fills \p outDz with the rate, m/s, negative for a falling sonde, at the times of \p pres (mb) but its launch
    /// observation, with \p tdry (deg C) and \p rh (%, 50 where there is none) within 60 s. A time without a
    /// temperature is passed over. \p wavelength (s) smooths the pressure. False, and \p outDz empty, for fewer than 3
    /// pressures or a curve that can't be fitted.
    bool verticalVelocity(const Series* pres, const Series* tdry, const Series* rh, Series* outDz,
                          double wavelength) const;
};
