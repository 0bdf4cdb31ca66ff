#pragma once

#include "Series.h"

/// Replaces the samples of a series by a smooth curve through them.
class Smooth {
public:
    virtual ~Smooth() = default;

    /// Every value but the first takes the value of the curve of \p wavelength (s) at its time. A wavelength of 0
    /// leaves the series as it is. \p failed tells that the curve couldn't be fitted: the series stays.
    void smooth(Series* series, double wavelength, bool& failed) const;
};
