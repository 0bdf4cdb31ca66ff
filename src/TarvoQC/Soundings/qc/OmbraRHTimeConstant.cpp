#include "OmbraRHTimeConstant.h"

bool OmbraRHTimeConstant::value(double time, double& out) const {
    constexpr double kMaxGap = 60.0; // s
    double pressure = 0.0;
    if (!_pres->interpolate(time, kMaxGap, pressure) || pressure < 0.0) {
        return false;
    }
    out = atPressure(pressure);
    return true;
}

double OmbraRHTimeConstant::atPressure(double p) {
    return -0.02921 * p + 18.3 + 3.31e-5 * p * p - 1.4e-8 * p * p * p;
}
