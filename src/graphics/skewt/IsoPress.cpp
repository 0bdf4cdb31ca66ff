#include "IsoPress.h"

#include "Text.h"

#include <cmath>

namespace skewt {

namespace {

/// The distance of the lines, mb, in a plot that spans more than \p above.
struct Spacing {
    double above;
    double step;
};
constexpr Spacing kSpacings[] = {{400.0, 100.0}, {150.0, 50.0}, {50.0, 20.0}, {10.0, 10.0}};
constexpr double kFinestStep = 1.0;

constexpr double kLabelX = -0.03; // from the left edge, in data space
constexpr double kLabelY = -0.01;

double stepFor(double span) {
    for (const Spacing& spacing : kSpacings) {
        if (span > spacing.above) {
            return spacing.step;
        }
    }
    return kFinestStep;
}

} // namespace

void IsoPress::draw() {
    const double step = stepFor(pBottom() - pTop());
    const double first = step == kFinestStep ? pTop() : std::floor(pTop() / step) * step;
    for (double pressure = first; pressure <= pBottom(); pressure += step) {
        if (pressure < pTop()) { // above the plot there is nothing that a label could tell of
            continue;
        }
        drawLine({{t(0.0, 1.0), pressure}, {tmax(), pressure}}, kRed, LineType::Solid, true);
        Rect::Text(stringFormat("|r%4.0f", pressure), kLabelX, y(pressure) + kLabelY, kRed);
    }
}

} // namespace skewt
