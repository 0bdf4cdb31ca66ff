#pragma once

#include "Series.h"

#include <string>

/// Hydrostatic integration of geopotential heights.
class Altitude {
public:
    enum DIRECTION {
        FORWARD = 0, ///< from the first value to the last
        BACKWARD = 1 ///< from the last value to the first
    };

    virtual ~Altitude() = default;

    /// Fills \p alt, which on entry is a copy of \p pres (mb), with heights, m, beginning at \p start in the direction
    /// \p dir. \p tdry in deg C, \p rh in % (50 where there is none). Across a gap of more than \p span (s) in pressure
    /// the integration stops, and what lies behind is removed; a gap in temperature is bridged. \p log takes a line for
    /// the summary, and stays empty with fewer than 2 temperatures, when nothing is done.
    void calculate(Series& alt, const Series& pres, const Series& tdry, const Series& rh, double span, double start,
                   DIRECTION dir, std::string& log) const;
};
