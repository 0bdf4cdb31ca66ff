#include "Hydrostatics.h"
#include "LevelParts.h"
#include "Text.h"

#include <cmath>

namespace {

constexpr double kSurfaceWindHeight = 10.0; ///< m above the surface, where the surface wind is wanted
constexpr double kSurfaceWindStep = 2.0;    ///< m, added for a second try
constexpr double kSurfaceWindLimit = 12.5;  ///< m, from which on a last wind is no surface wind any more
constexpr double kSurfaceWindGap = 25.0;    ///< s
constexpr double kPositionAge = 107.0;      ///< s, up to which a last position serves for the surface
constexpr double kAssumedRH = 70.0;         ///< %, in extrapolations
constexpr double kLowestForSfcPres = 850.0; ///< mb, from which on a surface pressure is extrapolated
const char* const kWindTopic = "Surface Wind Determination";

} // namespace

void Levels::surfaceThermo() {
    if (_surfaceFound) {
        Level level = levelAt(LevelType::SurfaceThermo, _surfaceTime);
        double pressure = 0.0;
        if (pressureAt(_surfaceTime, pressure)) {
            level.setField(LFpres, pressure);
            setIfReadable(level, LFtdry, _series.tdry, _surfaceTime);
            setIfReadable(level, LFrh, _series.rh, _surfaceTime);
            setIfReadable(level, LFalt, _series.alt, _surfaceTime);
            setSurfacePosition(level);
        }
        _levels.push_back(level);
        if (!level.has(LFtdry) || !level.has(LFrh)) {
            lowestThermo();
        }
        return;
    }
    _levels.push_back(levelAt(LevelType::SurfaceThermo, _series.pres.time(_ascending ? 0 : _series.pres.lastIndex())));
    lowestThermo();
    double pressure = 0.0;
    if (!_ascending && extrapSfcPres(pressure)) {
        _levels.push_back(levelAt(LevelType::ExtrapSfcPres, _series.pres.time(_series.pres.lastIndex()), pressure));
    }
}

void Levels::setSurfacePosition(Level& level) const {
    double lat = 0.0;
    double lon = 0.0;
    bool found =
        _series.lat.interpolate(_surfaceTime, kLevelGap, lat) && _series.lon.interpolate(_surfaceTime, kLevelGap, lon);
    const int lastLat = _series.lat.lastIndex();
    const int lastLon = _series.lon.lastIndex();
    if (!found && lastLat >= 1 && lastLon >= 1 && _surfaceTime - _series.lat.time(lastLat) < kPositionAge &&
        _surfaceTime - _series.lon.time(lastLon) < kPositionAge) {
        lat = _series.lat.data(lastLat);
        lon = _series.lon.data(lastLon);
        found = true;
    }
    if (found) {
        level.setField(LFlat, lat);
        level.setField(LFlon, lon);
    }
}

bool Levels::extrapSfcPres(double& out) const {
    const int last = _series.pres.lastIndex();
    if (!_sfcAltKnown || last < 1 || _series.pres.data(last) < kLowestForSfcPres) {
        return false;
    }
    const double time = _series.pres.time(last);
    const double pressure = _series.pres.data(last);
    double rh = kAssumedRH;
    _series.rh.interpolate(time, kLevelGap, rh);
    double tdry = 0.0;
    double altitude = 0.0;
    if (!_series.tdry.interpolate(time, kLevelGap, tdry) || !_series.alt.interpolate(time, kLevelGap, altitude) ||
        _sfcAlt > altitude) {
        return false;
    }
    out = hydroP(pressure, tdry, tdry, rh, rh, altitude, _sfcAlt);
    double surfaceTdry = 0.0;
    if (!extrapTdry(pressure, tdry, out, surfaceTdry)) {
        return false;
    }
    out = hydroP(pressure, tdry, surfaceTdry, rh, rh, altitude, _sfcAlt);
    return true;
}

/// The temperature difference over a step back of the same size is divided by the step and not carried over whole:
/// products of earlier years were made so.
bool Levels::extrapTdry(double p1, double t1, double p2, double& out) const {
    const double step = p2 - p1;
    if (std::abs(step) < 1e-5) {
        out = t1;
        return true;
    }
    double time = 0.0;
    double tdry = 0.0;
    if (!_series.pres.interpTime(p1 - step, time) || !_series.tdry.interpolate(time, kLevelGap, tdry)) {
        return false;
    }
    out = t1 + (t1 - tdry) / step;
    return true;
}

/// One level at the last temperature, and when there is no RH with it a second one at the last that has both.
void Levels::endThermo(LevelType type, bool lowest) {
    Point end;
    if (highest(_series.tdry, end, lowest)) {
        Level level = levelAt(type, end.time, end.pres);
        level.setField(LFtdry, end.value);
        setIfReadable(level, LFrh, _series.rh, end.time);
        _levels.push_back(level);
        if (level.has(LFrh)) {
            return;
        }
    }
    double tdry = 0.0;
    if (highestPair(_series.rh, _series.tdry, end, tdry, lowest)) {
        Level level = levelAt(type, end.time, end.pres);
        level.setField(LFtdry, tdry);
        level.setField(LFrh, end.value);
        _levels.push_back(level);
    }
}

void Levels::endWind(LevelType type, bool lowest) {
    const Series& u = _series.u;
    if (u.lastIndex() == 0 && u.testAttribute(0, Value::ObsFlight)) {
        return; // the launch observation alone
    }
    Point end;
    double v = 0.0;
    if (highest(u, end, lowest) && _series.v.interpolate(end.time, kLevelGap, v)) {
        Level level = levelAt(type, end.time, end.pres);
        setWind(level, end.value, v);
        _levels.push_back(level);
    }
}

void Levels::surfaceWinds() {
    if (_ascending) {
        surfaceWindsUp();
    } else {
        surfaceWindsDrop();
    }
}

void Levels::surfaceWindsUp() {
    const auto isObserved = [](const Series& series) {
        return !series.empty() && series.testAttribute(0, Value::ObsSurface);
    };
    if (isObserved(_series.pres) && isObserved(_series.u) && !_series.v.empty() && !_series.alt.empty()) {
        Level level = levelAt(LevelType::SurfaceWind, _series.pres.time(0), _series.pres.data(0));
        level.setField(LFalt, _series.alt.data(0));
        setWind(level, _series.u.data(0), _series.v.data(0));
        _levels.push_back(level);
        return;
    }
    _levels.push_back(levelAt(LevelType::SurfaceWind, _series.pres.time(0)));
    lowestW();
}

/// The wind at an altitude is that of the time at which the sonde stood as much higher or lower as wind and PTU
/// observations are apart.
void Levels::surfaceWindsDrop() {
    const std::vector<Level> thermo = subsetByType(LevelType::SurfaceThermo, 1.0, 2000.0, false);
    double time = 0.0;
    double u = 0.0;
    double v = 0.0;
    double height = kSurfaceWindHeight + (_sfcAltKnown ? _sfcAlt : 0.0);
    bool found = surfaceWindAt(height, time, u, v);
    if (!found) {
        height += kSurfaceWindStep;
        found = surfaceWindAt(height, time, u, v) || surfaceWindOfLast(time, height, u, v);
    }
    if (found && _surfaceFound) {
        Level level = levelAt(LevelType::SurfaceWind, time);
        level.setField(LFalt, height);
        setWind(level, u, v);
        if (!thermo.empty()) {
            double pressure = 0.0;
            thermo.front().getFieldData(LFpres, pressure);
            level.setField(LFpres, pressure);
        }
        _levels.push_back(level);
        _summary.addItem(kWindTopic,
                         "Surface wind coded for an adjusted altitude of " + stringFormat("%.1f", height) + "m");
    } else {
        Level level = levelAt(LevelType::SurfaceWind, _series.pres.time(_series.pres.lastIndex()));
        if (!thermo.empty()) {
            thermo.front().getFieldData(LFtime, time);
            double pressure = 0.0;
            thermo.front().getFieldData(LFpres, pressure);
            level = levelAt(LevelType::SurfaceWind, time, pressure);
        }
        _levels.push_back(level);
        lowestW();
        lastWindAltitude();
    }
    const double magnitude = std::abs(_windOffset);
    _summary.addItem(kWindTopic, "PTU/wind offset is " + stringFormat("%.2f", _windOffset) + "s (PTU observations " +
                                     (_windOffset >= 0.0 ? "lead" : "lag") + " wind observations by " +
                                     stringFormat("%.2f", magnitude) + "s)");
}

bool Levels::surfaceWindAt(double height, double& time, double& u, double& v) const {
    double timeAtHeight = 0.0;
    if (!_series.alt.interpTime(height, timeAtHeight) ||
        !_series.alt.interpTime(height - windHeightOffset(timeAtHeight), time) ||
        !_series.u.interpolate(time, kSurfaceWindGap, u)) {
        return false;
    }
    _series.v.interpolate(time, kSurfaceWindGap, v);
    return true;
}

bool Levels::surfaceWindOfLast(double& time, double& height, double& u, double& v) const {
    Point last;
    double altitude = 0.0;
    if (!highest(_series.u, last, true) || !_series.alt.interpolate(last.time, kLevelGap, altitude) ||
        !(altitude < kSurfaceWindLimit) || !_series.alt.interpTime(altitude - windHeightOffset(last.time), time) ||
        !_series.u.interpolate(time, kSurfaceWindGap, u)) {
        return false;
    }
    _series.v.interpolate(time, kSurfaceWindGap, v);
    height = altitude;
    return true;
}

void Levels::lastWindAltitude() {
    const Level* lowest = firstOf(LevelType::LowestWind);
    double time = 0.0;
    double altitude = 0.0;
    if (lowest == nullptr || !lowest->getFieldData(LFtime, time) ||
        !_series.alt.interpolate(time, kLevelGap, altitude)) {
        return;
    }
    const double adjusted = windHeightOffset(time) + altitude;
    if (adjusted >= kSurfaceWindLimit) {
        Level level = levelAt(LevelType::LastWindAlt, time);
        level.setField(LFalt, adjusted);
        double pressure = 0.0;
        if (lowest->getFieldData(LFpres, pressure)) {
            level.setField(LFpres, pressure);
        }
        _levels.push_back(level);
    }
    _summary.addItem(kWindTopic, "Adjusted altitude of last wind is " + stringFormat("%.1f", adjusted) +
                                     "m, surface wind was not coded");
}
