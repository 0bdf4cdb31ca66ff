#include "WindBarbs.h"

#include "WindBarb.h"

#include <algorithm>
#include <cmath>

namespace skewt {

namespace {

constexpr double kSmallestSpan = 1.0;     // mb
constexpr double kSmallestPressure = 0.1; // mb, below which the logarithm is of no use
constexpr double kBaseX = 0.5;            // of a barb, in data space

} // namespace

WindBarbs::WindBarbs(SkewTAdapter& adapter, double left, double right, double bottom, double top, double pTop,
                     double pBottom, const std::vector<double>& pres, const std::vector<double>& spd,
                     const std::vector<double>& dir, int numWinds)
    : PresRect(adapter, {left, right, bottom, top}, pTop, pBottom), _numWinds(numWinds),
      _segment((std::log10(pBottom) - std::log10(pTop)) / std::max(numWinds, 1)) {
    for (std::size_t i = 0; i < pres.size(); ++i) {
        if (pTop <= pres[i] && pres[i] <= pBottom) {
            _winds.push_back({pres[i], spd[i], dir[i]});
        }
    }
    std::stable_sort(_winds.begin(), _winds.end(), [](const Wind& a, const Wind& b) { return a.p > b.p; });
}

bool WindBarbs::hasSegments() const {
    return _numWinds >= 1 && pBottom() - pTop() >= kSmallestSpan;
}

void WindBarbs::draw() {
    for (const Wind& wind : _winds) {
        drawBarb(wind.spd, wind.dir, wind.p);
    }
}

void WindBarbs::drawBarb(double spd, double dir, double p) {
    if (!hasSegments() || p < pTop() || p > pBottom()) {
        return;
    }
    const int segment =
        p < kSmallestPressure ? 0 : static_cast<int>((std::log10(pBottom()) - std::log10(p)) / _segment);
    if (_usedSegments.insert(segment).second) {
        WindBarb(*this, kBaseX, y(p), spd, dir).draw();
    }
}

} // namespace skewt
