#include "Levels.h"

#include "LevelParts.h"
#include "Missing.h"
#include "Text.h"
#include "Wind.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace {

constexpr std::array<LevelFieldId, 7> kFieldOrder{LFtime, LFpres, LFtdry, LFrh, LFwspd, LFwdir, LFalt};

} // namespace

Level levelAt(LevelType type, double time) {
    Level level(type);
    level.setField(LFtime, time);
    return level;
}

Level levelAt(LevelType type, double time, double pressure) {
    Level level = levelAt(type, time);
    level.setField(LFpres, pressure);
    return level;
}

void setWind(Level& level, double u, double v) {
    double speed = 0.0;
    double direction = 0.0;
    SpeedDir(u, v, speed, direction);
    level.setField(LFu, u);
    level.setField(LFv, v);
    level.setField(LFwspd, speed);
    level.setField(LFwdir, direction);
}

/// One step of the derivation, and what the agent hears of it.
struct Levels::Step {
    const char* status;
    void (Levels::*operation)();
};

/// The order is part of the result: inversions and the ends of the data anchor the search for significant levels, gaps
/// in RH don't, the wind maximum is looked for among all that stands before it, and the layer means need the surface
/// wind.
const std::vector<Levels::Step>& Levels::steps() {
    static const std::vector<Step> sequence{
        {"surface thermodynamic", &Levels::surfaceThermo},
        {"surface winds", &Levels::surfaceWinds},
        {"missing temperature", &Levels::missingTdry},
        {"highest thermodynamic", &Levels::highestThermo},
        {"110 mb thermodynamic", &Levels::mb110T},
        {"inversions", &Levels::inversion},
        {"station base pressure", &Levels::basePressure},
        {"110 mb wind", &Levels::mb110W},
        {"highest wind", &Levels::highestW},
        {"extrapolate mandatory altitude", &Levels::extrapMandGA},
        {"GDL thermodynamic", &Levels::GDLThermo},
        {"GDL winds", &Levels::GDLWinds},
        {"tropopause", &Levels::tropopause},
        {"missing RH", &Levels::missingRH},
        {"standard", &Levels::standard},
        {"maxwind", &Levels::maxWind},
        {"62626", &Levels::make62626},
    };
    return sequence;
}

Levels::Levels(StatusAgent& agent, Summary& summary, const LevelSeries& series, const LevelCriteria& criteria,
               const LevelSetting& setting)
    : _summary(summary), _series(series), _lnPres(series.pres), _criteria(criteria), _ascending(setting.ascending),
      _header("    Time     Pres     Tdry       RH    Speed      Dir      Alt     Type   "), _sfcAlt(setting.sfcAlt),
      _sfcAltKnown(setting.sfcAlt != kMissing), _windOffset(setting.windOffset), _windRate(setting.windRate) {
    if (_series.pres.empty()) {
        return;
    }
    for (int i = 0; i <= _lnPres.lastIndex(); ++i) {
        _lnPres.setData(i, std::log(_lnPres.data(i)));
    }
    const auto surface = std::find_if(_series.pres.begin(), _series.pres.end(),
                                      [](const Value& value) { return value.testAttribute(Value::ObsSurface); });
    if (surface != _series.pres.end()) {
        _surfaceFound = true;
        _surfaceTime = surface->time();
    }
    for (const Step& step : steps()) {
        agent.AppendStatus(step.status);
        (this->*step.operation)();
    }
    sort();
}

/// By pressure alone among those that have one: in an upsonde the order of time, by which a level without a pressure
/// finds its place, is the other way round, and a sort by both at once has no answer.
void Levels::sort() {
    std::vector<Level> sorted = sortByPres();
    std::for_each(_levels.rbegin(), _levels.rend(), [&sorted](const Level& level) {
        if (!level.has(LFpres)) {
            const auto place =
                std::find_if_not(sorted.begin(), sorted.end(), [&level](const Level& other) { return other < level; });
            sorted.insert(place, level);
        }
    });
    _levels = std::move(sorted);
}

std::string Levels::levelString(int index) const {
    const Level& level = _levels[static_cast<std::size_t>(index)];
    std::string line;
    for (const LevelFieldId id : kFieldOrder) {
        double value = 0.0;
        line += level.getFieldData(id, value) ? stringFormat("%8.1f ", value) : std::string(9, ' ');
    }
    return line + level.LTname();
}

std::vector<Level> Levels::subsetByType(LevelType type) const {
    std::vector<Level> subset;
    std::copy_if(_levels.begin(), _levels.end(), std::back_inserter(subset),
                 [type](const Level& level) { return level.levelType() == type; });
    return subset;
}

std::vector<Level> Levels::subsetByType(const std::vector<LevelType>& types, double lo, double hi,
                                        bool includeTagged) const {
    std::vector<Level> subset;
    std::copy_if(_levels.begin(), _levels.end(), std::back_inserter(subset), [&](const Level& level) {
        double pressure = 0.0;
        return std::find(types.begin(), types.end(), level.levelType()) != types.end() &&
               level.getFieldData(LFpres, pressure) && lo <= pressure && pressure < hi &&
               (includeTagged || !level.tag());
    });
    return subset;
}

std::vector<Level> Levels::subsetByType(LevelType type, double lo, double hi, bool includeTagged) const {
    return subsetByType(std::vector<LevelType>{type}, lo, hi, includeTagged);
}

std::vector<Level> Levels::sortByPres() const {
    std::vector<Level> sorted;
    std::copy_if(_levels.begin(), _levels.end(), std::back_inserter(sorted),
                 [](const Level& level) { return level.has(LFpres); });
    std::stable_sort(sorted.begin(), sorted.end());
    return sorted;
}

void Levels::dataFromLevels(const std::vector<LevelType>& types, double lo, double hi, bool includeTagged, Series& out,
                            LevelFieldId id) const {
    for (const Level& level : subsetByType(types, lo, hi, includeTagged)) {
        double time = 0.0;
        double value = 0.0;
        if (level.getFieldData(LFtime, time) && level.getFieldData(id, value)) {
            out.insertValue(Value(value, time));
        }
    }
}

void Levels::dataFor2Fields(LevelFieldId idX, LevelFieldId idY, bool includeTagged,
                            std::vector<std::pair<double, double>>& pairs, std::vector<std::string>& labels) const {
    pairs.clear();
    labels.clear();
    for (const Level& level : _levels) {
        double x = 0.0;
        double y = 0.0;
        if ((level.tag() && !includeTagged) || !level.getFieldData(idX, x) || !level.getFieldData(idY, y)) {
            continue;
        }
        pairs.emplace_back(x, y);
        double pressure = 0.0;
        const bool named = level.getFieldData(LFpres, pressure) && pressure > 0.0 && pressure < 2000.0;
        labels.push_back(level.LTname() + (named ? stringFormat(" at %.1f mb", pressure) : std::string()));
    }
}

bool Levels::highestPos(double& lat, double& lon) const {
    Point top;
    double longitude = 0.0;
    if (!highestPair(_series.lat, _series.lon, top, longitude, false)) {
        return false;
    }
    lat = top.value;
    lon = longitude;
    return true;
}

double Levels::windHeightOffset(double time) const {
    return _windOffset * fallRateAt(time);
}

bool Levels::pressureAt(double time, double& out) const {
    return _series.pres.interpolate(time, kLevelGap, out);
}

double Levels::fallRateAt(double time) const {
    double rate = kUnknownFallRate;
    _series.dz.interpolate(time, kLevelGap, rate);
    return rate;
}

void Levels::setIfReadable(Level& level, LevelFieldId field, const Series& series, double time) const {
    double value = 0.0;
    if (series.interpolate(time, kLevelGap, value)) {
        level.setField(field, value);
    }
}

void Levels::setWindIfReadable(Level& level, double time) const {
    double u = 0.0;
    double v = 0.0;
    if (_series.u.interpolate(time, kLevelGap, u) && _series.v.interpolate(time, kLevelGap, v)) {
        setWind(level, u, v);
    }
}

void Levels::addField(LevelType type, const Series& series, LevelFieldId field) {
    for (Level& level : _levels) {
        double time = 0.0;
        if (level.levelType() == type && level.getFieldData(LFtime, time)) {
            setIfReadable(level, field, series, time);
        }
    }
}

bool Levels::highest(const Series& series, Point& point, bool lowest) const {
    double ignored = 0.0;
    return highestPair(series, series, point, ignored, lowest);
}

bool Levels::highestPair(const Series& first, const Series& second, Point& point, double& value2, bool lowest) const {
    const int last = first.lastIndex();
    const bool fromFirst = _ascending == lowest;
    for (int n = 0; n <= last; ++n) {
        const int i = fromFirst ? n : last - n;
        const double time = first.time(i);
        double pressure = 0.0;
        double other = 0.0;
        if (pressureAt(time, pressure) && second.interpolate(time, kLevelGap, other)) {
            point = {time, pressure, first.data(i)};
            value2 = other;
            return true;
        }
    }
    return false;
}

const Level* Levels::firstOf(LevelType type) const {
    const auto found =
        std::find_if(_levels.begin(), _levels.end(), [type](const Level& level) { return level.levelType() == type; });
    return found == _levels.end() ? nullptr : &*found;
}
