#include "LevelParts.h"
#include "Tropopause.h"

namespace {

constexpr double kLeastMaxWind = 31.185567010309278; ///< m/s, 60.5 knots
constexpr double kLowestMaxWind = 500.0;             ///< mb
constexpr double kShearHeight = 914.0;               ///< m, 3000 feet, above and below the wind maximum

} // namespace

void Levels::tropopause() {
    const Tropopause search(&_series.tdry, &_series.alt, &_series.pres, _criteria.tropSmoothWL, _ascending);
    for (const double time : search.tropTimes()) {
        double pressure = 0.0;
        if (!pressureAt(time, pressure)) {
            continue;
        }
        Level level = levelAt(LevelType::TropopauseLevel, time, pressure);
        setIfReadable(level, LFalt, _series.alt, time);
        setIfReadable(level, LFtdry, _series.tdry, time);
        setIfReadable(level, LFrh, _series.rh, time);
        setWindIfReadable(level, time);
        _levels.push_back(level);
    }
}

/// The strongest wind of all levels made so far, with the winds 914 m above and below. A weaker one higher up isn't
/// looked for when the strongest lies below 500 mb.
void Levels::maxWind() {
    const Level* strongest = nullptr;
    double speed = 0.0;
    for (const Level& level : _levels) {
        double candidate = 0.0;
        if (level.getFieldData(LFwspd, candidate) && candidate > speed) {
            strongest = &level;
            speed = candidate;
        }
    }
    double pressure = 0.0;
    if (strongest == nullptr || speed < kLeastMaxWind || !strongest->getFieldData(LFpres, pressure) ||
        pressure > kLowestMaxWind) {
        return;
    }
    Level maximum(LevelType::MaxWind);
    for (const LevelFieldId id : {LFtime, LFwspd, LFwdir, LFu, LFv, LFpres, LFalt}) {
        double value = 0.0;
        if (strongest->getFieldData(id, value)) {
            maximum.setField(id, value);
        }
    }
    double time = 0.0;
    double altitude = 0.0;
    const bool hasAltitude = maximum.getFieldData(LFtime, time) && _series.alt.interpolate(time, kLevelGap, altitude);
    if (hasAltitude) {
        maximum.setField(LFalt, altitude);
    }
    _levels.push_back(maximum);
    if (hasAltitude) {
        shear(LevelType::ShearAbove, altitude + kShearHeight);
        shear(LevelType::ShearBelow, altitude - kShearHeight);
    }
}

void Levels::shear(LevelType type, double altitude) {
    double time = 0.0;
    double u = 0.0;
    double v = 0.0;
    if (!_series.alt.interpTime(altitude, time) || !_series.u.interpolate(time, kLevelGap, u) ||
        !_series.v.interpolate(time, kLevelGap, v)) {
        return;
    }
    Level level = levelAt(type, time);
    level.setField(LFalt, altitude);
    setWind(level, u, v);
    setIfReadable(level, LFpres, _series.pres, time);
    _levels.push_back(level);
}
