#include "PAdiabats.h"

#include "Text.h"

#include <algorithm>

namespace skewt {

namespace {

constexpr double kFreezing = 273.15;          // K
constexpr double kReferencePressure = 1000.0; // mb
constexpr double kTop = 200.0;                // mb, above which they are as good as dry adiabats
constexpr double kFirst = -40.0;              // deg C at 1000 mb
constexpr double kStep = 5.0;
constexpr int kLines = 16;
constexpr int kSegments = 15;

} // namespace

void PAdiabats::draw() {
    if (pBottom() < kTop) {
        return;
    }
    for (int i = 0; i < kLines; ++i) {
        const double value = kFirst + kStep * i;
        const double T = value + kFreezing;
        const double thetaE = _formulas.theta_e(T, T, kReferencePressure);
        drawCurve(
            pBottom(), std::max(pTop(), kTop), kSegments,
            [this, thetaE](double p) { return _formulas.t_sat(thetaE, p) - kFreezing; }, {kGreen, LineType::Solid},
            stringFormat("|c%3.0f", value));
    }
}

} // namespace skewt
