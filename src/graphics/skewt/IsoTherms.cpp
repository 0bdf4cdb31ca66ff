#include "IsoTherms.h"

#include "Text.h"

#include <cmath>

namespace skewt {

void IsoTherms::draw() {
    constexpr double kStep = 10.0; // deg C
    for (double temperature = std::floor(t(0.0, 1.0) / kStep) * kStep; temperature < tmax(); temperature += kStep) {
        forgetEnds();
        drawLine({{temperature, pBottom()}, {temperature, pTop()}}, kBlue, LineType::Solid, true);
        if (hasLine()) {
            Text(stringFormat("|r%.0f", temperature), temperature, p((firstP1().y + lastP2().y) / 2.0), kBlue);
        }
    }
}

} // namespace skewt
