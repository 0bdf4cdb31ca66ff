#pragma once

#include "RSTdryTC.h"
#include "Series.h"
#include "TimeConstant.h"

/// The temperature sensor's time constant over one flight. Empty until the first update().
class OmbraTdryTimeConstant : public TimeConstant {
public:
    explicit OmbraTdryTimeConstant(RSTdryTC::T_SENSOR_TYPE type);

    /// Interpolates over gaps of up to 60 s.
    bool value(double time, double& out) const override;

    /// Rebuilds it at the times of \p pres, ventilated by the observed rate \p dz.
    void update(const Series* pres, const Series* tdry, const Series* dz);
    /// Rebuilds it ventilated by the theoretical fall speed (area in cm2, mass in g).
    void update(const Series* pres, const Series* tdry, double chuteArea, double dragCoef, double mass);

private:
    template <typename FallRate>
    void rebuild(const Series& pres, const Series& tdry, FallRate fallRate);

    Series _series;
    RSTdryTC _sensor;
};
