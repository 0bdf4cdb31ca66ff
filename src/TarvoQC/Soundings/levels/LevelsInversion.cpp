#include "LevelParts.h"

#include <cmath>

namespace {

constexpr double kLogTopPressure = 5.703782474656201; ///< ln 300 mb, up to which inversions are looked for
constexpr double kSamePressure = 1e-10;               ///< in ln p
constexpr double kLeastDepth = 20.0;                  ///< mb
constexpr double kLeastRise = 2.5;                    ///< deg C

} // namespace

/// Layers in which the temperature doesn't fall with height, below 300 mb.
void Levels::inversion() {
    auto [lnPres, tdry] = _lnPres.matchSeries(_series.tdry);
    if (lnPres.empty() || tdry.empty()) {
        return;
    }
    const int bottom = _ascending ? 0 : lnPres.lastIndex();
    const int top = _ascending ? lnPres.lastIndex() : 0;
    if (lnPres.data(bottom) < kLogTopPressure) {
        return;
    }
    double timeAtTop = 0.0;
    if (lnPres.data(top) < kLogTopPressure && lnPres.interpTime(kLogTopPressure, timeAtTop)) {
        for (Series* series : {&lnPres, &tdry}) {
            if (_ascending) {
                series->timeTrimRight(timeAtTop);
            } else {
                series->timeTrimLeft(timeAtTop);
            }
        }
    }
    const int last = lnPres.lastIndex();
    const auto isSamePressure = [&lnPres = lnPres](int i) {
        return std::abs(lnPres.data(i + 1) - lnPres.data(i)) <= kSamePressure;
    };
    const auto cools = [&lnPres = lnPres, &tdry = tdry](int i) { // with height
        return (tdry.data(i + 1) - tdry.data(i)) / (lnPres.data(i + 1) - lnPres.data(i)) > 0.0;
    };
    for (int i = 0; i < last; ++i) {
        if (isSamePressure(i) || cools(i)) {
            continue;
        }
        int j = i;
        while (j < last - 1 && !isSamePressure(j) && !cools(j)) {
            ++j;
        }
        addInversion(tdry.getValue(i), tdry.getValue(j), tdry.data(j + 1));
        i = j;
    }
}

/// \p start and \p end are temperatures in order of time; \p next is the one behind the end.
void Levels::addInversion(const Value& start, const Value& end, double next) {
    double startPressure = 0.0;
    double endPressure = 0.0;
    if (!pressureAt(start.time(), startPressure) || !pressureAt(end.time(), endPressure) ||
        !(std::abs(endPressure - startPressure) > kLeastDepth || std::abs(start.data() - next) > kLeastRise)) {
        return;
    }
    const auto add = [this](LevelType type, const Value& sample, double pressure) {
        Level level = levelAt(type, sample.time(), pressure);
        level.setField(LFtdry, sample.data());
        setIfReadable(level, LFrh, _series.rh, sample.time());
        _levels.push_back(level);
    };
    add(_ascending ? LevelType::InversionBottom : LevelType::InversionTop, start, startPressure);
    add(_ascending ? LevelType::InversionTop : LevelType::InversionBottom, end, endPressure);
}
