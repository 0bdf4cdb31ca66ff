#include "MandatoryHeights.h"

#include "Humidity.h"
#include "Hydrostatics.h"
#include "Missing.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace {

constexpr double kSuspect = 300.0; // m, off the estimate by more: the table may be wrong
constexpr double kClose = 150.0;   // m, a height this close to the estimate may take its place

bool given(double value) {
    return value != kMissing;
}

/// RH, %; dry air without a dew point. So high up that the mixing ratio has no meaning any more it counts as dry.
double humidity(const StandardLevel& level) {
    constexpr double kLeastPressure = 100.0; // mb
    return given(level.dp) && level.pres >= kLeastPressure ? rh(level.tdry, level.dp, level.pres) : 0.0;
}

double thickness(const StandardLevel& from, const StandardLevel& to) {
    return deltaZ(from.pres, to.pres, from.tdry, to.tdry, humidity(from), humidity(to));
}

/// The height closest to \p estimate among those written with the same three digits.
double sameDigits(const StandardLevel& level, double estimate) {
    constexpr double kTensOfMetresAbove = 700.0; // mb
    constexpr double kNegativeFrom = 925.0;      // mb, where heights below the sea are told
    constexpr double kNegativeMark = 500.0;      // added to the depth
    const double step = level.pres >= kTensOfMetresAbove ? 1000.0 : 10000.0;
    const double digits = level.height < 0.0 ? kNegativeMark - level.height : std::fmod(level.height, step);
    const double above = digits + step * std::max(0.0, std::round((estimate - digits) / step));
    const double below = kNegativeMark - digits;
    const bool mayBeBelow = level.pres >= kNegativeFrom && digits >= kNegativeMark;
    return mayBeBelow && std::abs(below - estimate) < std::abs(above - estimate) ? below : above;
}

/// Goes from \p anchor on by \p step places at a time.
void follow(std::vector<StandardLevel>& levels, std::size_t anchor, int step) {
    double height = levels[anchor].height;
    const auto count = static_cast<std::ptrdiff_t>(levels.size());
    for (auto i = static_cast<std::ptrdiff_t>(anchor) + step; i >= 0 && i < count; i += step) {
        StandardLevel& level = levels[static_cast<std::size_t>(i)];
        if (!given(level.tdry)) {
            return;
        }
        height += thickness(levels[static_cast<std::size_t>(i - step)], level);
        if (!std::isfinite(height)) {
            return;
        }
        if (!given(level.height)) {
            continue;
        }
        const double other = sameDigits(level, height);
        if (std::abs(level.height - height) > kSuspect && std::abs(other - height) <= kClose) {
            level.height = other;
        }
        if (std::abs(level.height - height) <= kSuspect) {
            height = level.height;
        }
    }
}

/// Goes up from the surface, which is none of the levels. One whose pressure was extrapolated has no temperature, and
/// takes that of the level above.
void followSurface(std::vector<StandardLevel>& levels, StandardLevel surface) {
    const auto above = std::find_if(levels.begin(), levels.end(),
                                    [&](const StandardLevel& level) { return level.pres < surface.pres; });
    if (!given(surface.tdry) && above != levels.end()) {
        surface.tdry = above->tdry;
        surface.dp = above->dp;
    }
    const auto index = above - levels.begin();
    levels.insert(above, surface);
    follow(levels, static_cast<std::size_t>(index), 1);
    levels.erase(levels.begin() + index);
}

} // namespace

void settleHeights(std::vector<StandardLevel>& levels, const std::optional<StandardLevel>& surface) {
    const auto usable = [](const StandardLevel& level) { return given(level.tdry) && given(level.height); };
    auto anchor = std::find_if(levels.begin(), levels.end(), [&](const StandardLevel& level) {
        constexpr double kBottom = 500.0; // mb; from here to the top the table covers all air there is
        constexpr double kTop = 100.0;
        return usable(level) && level.pres >= kTop && level.pres <= kBottom;
    });
    if (anchor == levels.end()) {
        anchor = std::find_if(levels.begin(), levels.end(), [&](const StandardLevel& level) {
            constexpr double kNearTheSea = 1000.0; // mb
            return usable(level) && level.pres == kNearTheSea;
        });
    }
    if (anchor == levels.end()) {
        if (surface) {
            followSurface(levels, *surface);
        }
        return;
    }
    const auto index = static_cast<std::size_t>(anchor - levels.begin());
    follow(levels, index, -1);
    follow(levels, index, 1);
}
