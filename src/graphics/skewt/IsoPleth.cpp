#include "IsoPleth.h"

#include <cmath>

namespace skewt {

void IsoPleth::drawCurve(double pFrom, double pTo, int steps, const std::function<double(double)>& temperature,
                         Style style, const std::string& label) {
    forgetEnds();
    const double logFrom = std::log10(pFrom);
    const double step = (std::log10(pTo) - logFrom) / steps;
    Point from{temperature(pFrom), pFrom};
    for (int i = 1; i <= steps; ++i) {
        const double p = i == steps ? pTo : std::pow(10.0, logFrom + i * step);
        const Point to{temperature(p), p};
        drawLine({from, to}, style.colour, style.type, true);
        from = to;
    }
    if (hasLine()) {
        Rect::Text(label, lastP2().x, lastP2().y, style.colour);
    }
}

} // namespace skewt
