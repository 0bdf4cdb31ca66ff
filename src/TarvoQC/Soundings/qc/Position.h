#pragma once

#include "Series.h"

/// Integration of the position from the winds.
class Position {
public:
    virtual ~Position() = default;

    /// Fills \p lat and \p lon (degrees), whose first values are the start and whose times are those wanted, from the
    /// wind components \p u and \p v (m/s) within \p span (s). A gap in the wind ends them.
    void calculate(const Series& u, const Series& v, Series& lat, Series& lon, double span) const;
};
