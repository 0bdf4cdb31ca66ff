#include "Adiabats.h"

#include "Text.h"

#include <cmath>

namespace skewt {

namespace {

constexpr double kFreezing = 273.15;  // K
constexpr double kFirstTheta = -50.0; // deg C
constexpr double kStep = 10.0;
constexpr int kLines = 36;
constexpr int kSegments = 15;

/// The temperature, deg C, at \p p (mb) of dry air whose potential temperature is \p theta (deg C).
double tFromTheta(double theta, double p) {
    return (theta + kFreezing) * std::pow(p / 1000.0, 0.288) - kFreezing;
}

} // namespace

void Adiabats::draw() {
    for (int i = 0; i < kLines; ++i) {
        const double theta = kFirstTheta + kStep * i;
        drawCurve(
            pBottom(), pTop(), kSegments, [theta](double p) { return tFromTheta(theta, p); }, {kBlack, LineType::Solid},
            stringFormat("|c%.0f", theta));
    }
}

} // namespace skewt
