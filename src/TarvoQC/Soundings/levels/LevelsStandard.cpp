#include "Hydrostatics.h"
#include "LevelParts.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double kAssumedRH = 70.0; ///< %, in extrapolations

// The layer of 110 to 100 mb, mb.
constexpr double kBandBottom = 110.0;
constexpr double kBandTop = 100.0;

/// The station base pressure by surface altitude: the first row that reaches up to it holds.
struct BasePressure {
    double upTo; ///< m
    bool inclusive;
    double pressure; ///< mb
};
constexpr std::array<BasePressure, 3> kBasePressures{{
    {1000.0, false, 850.0},
    {1400.0, true, 800.0},
    {2000.0, true, 750.0},
}};

// How far beyond the data a mandatory surface may lie to get an altitude, mb.
constexpr double kExtrapAbove = 25.0;
constexpr double kExtrapAboveLeast = 0.01;
constexpr double kExtrapBelow = 25.0;
constexpr double kExtrapBelowLeast = 1.0;

constexpr double kGroundSurface = 1000.0;       ///< mb, the mandatory surface that gets a height below the ground
constexpr double kLowestGroundPressure = 949.5; ///< mb, of the ground, for that
constexpr double kAssumedGroundRH = 50.0;       ///< %
constexpr double kLaunchWindReach = 2.0;        ///< mb, from the aircraft to the surface that takes its wind
constexpr double kAllPressures = 1200.0;        ///< mb

} // namespace

void Levels::missingTdry() {
    missing(_series.tdry, LFtdry, LevelType::MissingTdryTop, LevelType::MissingTdryBottom);
    addField(LevelType::MissingTdryTop, _series.rh, LFrh);
    addField(LevelType::MissingTdryBottom, _series.rh, LFrh);
}

void Levels::missingRH() {
    missing(_series.rh, LFrh, LevelType::MissingRHTop, LevelType::MissingRHBottom);
    addField(LevelType::MissingRHTop, _series.tdry, LFtdry);
    addField(LevelType::MissingRHBottom, _series.tdry, LFtdry);
}

void Levels::missing(const Series& series, LevelFieldId field, LevelType top, LevelType bottom) {
    const LevelType earlier = _ascending ? bottom : top;
    const LevelType later = _ascending ? top : bottom;
    for (int i = 0; i < series.lastIndex(); ++i) {
        double before = 0.0;
        double after = 0.0;
        if (series.time(i + 1) - series.time(i) > kLevelGap && pressureAt(series.time(i), before) &&
            pressureAt(series.time(i + 1), after)) {
            Level first = levelAt(earlier, series.time(i), before);
            first.setField(field, series.data(i));
            Level second = levelAt(later, series.time(i + 1), after);
            second.setField(field, series.data(i + 1));
            _levels.push_back(first);
            _levels.push_back(second);
        }
    }
}

/// The last sample of \p series at or below 110 mb in pressure, coming from below: just above the 110 mb surface. The
/// series must go on below it.
bool Levels::mb110(const Series& series, Point& point) const {
    double timeAtBottom = 0.0;
    if (!_series.pres.interpTime(kBandBottom, timeAtBottom)) {
        return false;
    }
    const auto isBelow = [&](const Value& value) {
        return _ascending ? value.time() < timeAtBottom : value.time() > timeAtBottom;
    };
    const int size = series.lastIndex() + 1;
    const auto splitIndex = [&](auto predicate) {
        return static_cast<int>(std::find_if(series.begin(), series.end(), predicate) - series.begin());
    };
    int index = 0;
    if (_ascending) {
        index = splitIndex([&](const Value& value) { return !isBelow(value); });
        if (index == 0 || index == size) {
            return false;
        }
    } else {
        index = splitIndex(isBelow) - 1;
        if (index < 0 || index == size - 1) {
            return false;
        }
    }
    double pressure = 0.0;
    if (!pressureAt(series.time(index), pressure) || pressure < kBandTop || pressure > kBandBottom) {
        return false;
    }
    point = {series.time(index), pressure, series.data(index)};
    return true;
}

void Levels::mb110T() {
    Point point;
    if (mb110(_series.tdry, point)) {
        Level level = levelAt(LevelType::Mb110Thermo, point.time, point.pres);
        level.setField(LFtdry, point.value);
        setIfReadable(level, LFrh, _series.rh, point.time);
        _levels.push_back(level);
    }
}

void Levels::mb110W() {
    Point point;
    double v = 0.0;
    if (mb110(_series.u, point) && _series.v.interpolate(point.time, kLevelGap, v)) {
        Level level = levelAt(LevelType::Mb110Wind, point.time, point.pres);
        setWind(level, point.value, v);
        _levels.push_back(level);
    }
}

void Levels::basePressure() {
    if (!_sfcAltKnown) {
        return;
    }
    const auto row = std::find_if(kBasePressures.begin(), kBasePressures.end(), [this](const BasePressure& base) {
        return base.inclusive ? _sfcAlt <= base.upTo : _sfcAlt < base.upTo;
    });
    double time = 0.0;
    if (row != kBasePressures.end() && _series.pres.interpTime(row->pressure, time)) {
        Level level = levelAt(LevelType::StationBasePres, time, row->pressure);
        setIfReadable(level, LFtdry, _series.tdry, time);
        setIfReadable(level, LFrh, _series.rh, time);
        _levels.push_back(level);
    }
}

void Levels::extrapMandGA() {
    const auto& standard = kStandardPressures;
    const int last = _series.pres.lastIndex();
    const int top = _ascending ? last : 0;
    const double topPressure = _series.pres.data(top);
    const auto above = std::find_if(standard.begin(), standard.end(), [&](double s) {
        return s - topPressure >= -kExtrapAbove && s - topPressure <= -kExtrapAboveLeast;
    });
    if (above != standard.end()) {
        extrapAlt(_series.pres.time(top), topPressure, *above);
    }
    if (_ascending || _surfaceFound) {
        return;
    }
    const double lowest = _series.pres.data(last);
    const auto below = std::find_if(standard.begin(), standard.end(), [&](double s) {
        return s - lowest > kExtrapBelowLeast && s - lowest <= kExtrapBelow;
    });
    if (below != standard.end()) {
        extrapAlt(_series.pres.time(last), lowest, *below);
    }
}

void Levels::extrapAlt(double time, double pressure, double standardPressure) {
    double tdry = 0.0;
    double altitude = 0.0;
    double rh = kAssumedRH;
    _series.rh.interpolate(time, kLevelGap, rh);
    double standardTdry = 0.0;
    if (!_series.tdry.interpolate(time, kLevelGap, tdry) || !_series.alt.interpolate(time, kLevelGap, altitude) ||
        !extrapTdry(pressure, tdry, standardPressure, standardTdry)) {
        return;
    }
    altitude += deltaZ(pressure, standardPressure, tdry, standardTdry, rh, rh);
    if (std::isfinite(altitude)) { // data passed through may be below 0 K
        Level level = levelAt(LevelType::ExtrapAlt, time, standardPressure);
        level.setField(LFalt, altitude);
        _levels.push_back(level);
    }
}

void Levels::standard() {
    for (const double pressure : kStandardPressures) {
        double time = 0.0;
        if (!_series.pres.interpTime(pressure, time)) {
            standardBelowGround(pressure);
            continue;
        }
        Level level = levelAt(LevelType::Standard, time, pressure);
        setIfReadable(level, LFtdry, _series.tdry, time);
        setIfReadable(level, LFrh, _series.rh, time);
        setWindIfReadable(level, time);
        _levels.push_back(level);
    }
    launchWindOfHighestStandard();
    addField(LevelType::Standard, _series.alt, LFalt);
    placesOfStandard();
}

/// The 1000 mb surface under a ground of slightly less pressure gets a height, and no other field.
void Levels::standardBelowGround(double pressure) {
    const std::vector<Level> ground = subsetByType(LevelType::SurfaceThermo, 0.0, kAllPressures, false);
    double groundPressure = 0.0;
    double altitude = 0.0;
    double tdry = 0.0;
    if (pressure != kGroundSurface || ground.size() != 1 || !ground[0].getFieldData(LFpres, groundPressure) ||
        !ground[0].getFieldData(LFalt, altitude) || !ground[0].getFieldData(LFtdry, tdry) ||
        !(groundPressure >= kLowestGroundPressure && groundPressure < kGroundSurface)) {
        return;
    }
    double rh = kAssumedGroundRH;
    ground[0].getFieldData(LFrh, rh);
    Level level(LevelType::Standard);
    level.setField(LFpres, kGroundSurface);
    level.setField(LFalt, altitude + deltaZ(groundPressure, kGroundSurface, tdry, tdry, rh, rh));
    _levels.push_back(level);
}

/// A mandatory surface just below the aircraft, with no wind of its own, takes the wind of the launch observation.
void Levels::launchWindOfHighestStandard() {
    if (_ascending || _levels.size() < 2) {
        return;
    }
    Level* top = nullptr;
    double topPressure = 2000.0;
    for (auto level = _levels.begin() + 1; level != _levels.end(); ++level) {
        double pressure = 0.0;
        if (level->levelType() == LevelType::Standard && level->getFieldData(LFpres, pressure) &&
            pressure < topPressure) {
            top = &*level;
            topPressure = pressure;
        }
    }
    const auto isObserved = [](const Series& series) {
        return !series.empty() && series.testAttribute(0, Value::ObsFlight);
    };
    if (top == nullptr || top->has(LFwspd) || !isObserved(_series.wspd) || !isObserved(_series.pres) ||
        _series.wdir.empty() || _series.u.empty() || _series.v.empty()) {
        return;
    }
    const double launchPressure = _series.pres.data(0);
    if (topPressure > launchPressure && topPressure - launchPressure <= kLaunchWindReach) {
        top->setField(LFwspd, _series.wspd.data(0));
        top->setField(LFwdir, _series.wdir.data(0));
        top->setField(LFu, _series.u.data(0));
        top->setField(LFv, _series.v.data(0));
    }
}

/// Every mandatory surface up to the highest one reached has its place in the message, be it with slashes.
void Levels::placesOfStandard() {
    const std::vector<Level> present = subsetByType(LevelType::Standard, 0.0, kAllPressures, false);
    if (present.empty()) {
        return;
    }
    double highestReached = 0.0;
    present.back().getFieldData(LFpres, highestReached);
    for (const double pressure : kStandardPressures) {
        const bool isThere = std::any_of(present.begin(), present.end(), [pressure](const Level& level) {
            double p = 0.0;
            return level.getFieldData(LFpres, p) && p == pressure;
        });
        if (pressure < highestReached || isThere) {
            continue;
        }
        double time = _series.pres.time(_series.pres.lastIndex());
        _series.pres.interpTime(pressure, time);
        _levels.push_back(levelAt(LevelType::Standard, time, pressure));
    }
}
