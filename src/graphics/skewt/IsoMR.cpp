#include "IsoMR.h"

#include "Text.h"

#include <algorithm>

namespace skewt {

namespace {

constexpr double kFreezing = 273.15; // K
constexpr double kTop = 200.0;       // mb
constexpr int kSegments = 5;
constexpr double kMixingRatios[] = {0.1, 0.2, 0.4, 1, 2, 3, 5, 8, 12, 16, 20, 30, 40, 50, 60}; // g/kg

} // namespace

void IsoMR::draw() {
    if (pBottom() < kTop) {
        return;
    }
    for (const double w : kMixingRatios) {
        drawCurve(
            std::max(pTop(), kTop), pBottom(), kSegments,
            [this, w](double p) { return _formulas.t_mr(p, w) - kFreezing; }, {kGrey, LineType::Dashed},
            stringFormat(w < 1.0 ? "|r%.1f" : "|r%.0f", w));
    }
}

} // namespace skewt
