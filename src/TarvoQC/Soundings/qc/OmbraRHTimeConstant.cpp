#include "OmbraRHTimeConstant.h"

#include "Assumptions.h"

bool OmbraRHTimeConstant::value(double time, double& out) const {
    double pressure = 0.0;
    if (!_pres->interpolate(time, kMaxGap, pressure) || pressure < 0.0) {
        return false;
    }
    out = atPressure(pressure);
    return true;
}

double OmbraRHTimeConstant::atPressure(double p) {
    // A fit, whose source isn't known.
    constexpr double kC0 = 18.3;     // s
    constexpr double kC1 = -0.02921; // s/mb
    constexpr double kC2 = 3.31e-5;  // s/mb2
    constexpr double kC3 = 1.4e-8;   // s/mb3, taken off
    return kC1 * p + kC0 + kC2 * p * p - kC3 * p * p * p;
}
