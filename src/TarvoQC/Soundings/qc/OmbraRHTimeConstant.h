#pragma once

#include "Series.h"
#include "TimeConstant.h"

/// The humidity sensor's time constant over the pressure of a flight. The pressure series is borrowed.
class OmbraRHTimeConstant : public TimeConstant {
public:
    explicit OmbraRHTimeConstant(const Series* pres) : _pres(pres) {}

    /// Interpolates the pressure over gaps of up to 60 s. False without one, or with one below 0.
    bool value(double time, double& out) const override;

    /// Time constant, s, at \p pressure (mb): from 18.3 s at 0 mb down to 8.2 s at 1000 mb.
    static double atPressure(double pressure);

private:
    const Series* _pres;
};
