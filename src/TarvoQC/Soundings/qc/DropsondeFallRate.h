#pragma once

/// The speed at which drag and weight of a dropsonde under its parachute balance.
class DropsondeFallRate {
public:
    virtual ~DropsondeFallRate() = default;

    /// Fall speed, m/s, positive, at \p pressure (mb) and \p tdry (deg C) for a parachute of \p chuteArea (cm2) and
    /// \p dragCoef, and a sonde of \p mass (g).
    static double value(double pressure, double tdry, double chuteArea, double dragCoef, double mass);
};
