#pragma once

#include "Series.h"

/// The vertical wind: how much faster than by its drag alone a dropsonde rises, or slower it falls.
class W {
public:
    virtual ~W() = default;

    /// Fills \p out with the vertical wind, m/s upward: the rate \p dz (m/s) plus the theoretical fall speed at \p pres
    /// (mb) and \p tdry (deg C) within 60 s. A time without both is passed over. False, and \p out empty, for fewer
    /// than 3 rates.
    bool w(const Series* dz, const Series* pres, const Series* tdry, double chuteArea, double dragCoef, double mass,
           Series* out) const;
};
