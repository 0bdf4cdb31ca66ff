#include "DCapture.h"
#include "LevelParts.h"
#include "Wind.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr int kLeastWinds = 4;
constexpr double kLayerTop = 500.0;                   ///< m, of the boundary layer
constexpr double kSecondsOfFall = 41.666666666666664; ///< s, for 500 m at 12 m/s
constexpr double kShareOfBoundaryLayer = 0.5;         ///< of the winds to be expected
constexpr double kShareOfDeepLayer = 0.2;
constexpr double kMostWinds = 1e9;          ///< more than any sounding has
constexpr double kLaunchIsFar = 50.0;       ///< mb, from the launch observation to the next wind
constexpr double kThinnestAltLayer = 1.0;   ///< m
constexpr double kThinnestPresLayer = -1.0; ///< mb, downward counts negative
constexpr double kLowLayer = 150.0;         ///< m
constexpr double kLowLayerGap = 40.0;       ///< s
constexpr double kLeastLowLayer = 112.5;    ///< m, of a low layer whose top isn't reached
constexpr std::size_t kLeastLowWinds = 4;

/// One sample of the lowest 150 m.
struct WL150DAT {
    double t;       ///< s
    double presAlt; ///< m, as the altitude series has it
    double windAlt; ///< m, moved by the offset of the wind
    double u;       ///< m/s
    double v;       ///< m/s
};

/// A sum of layer means, each weighted with its thickness.
struct WeightedWind {
    double weight = 0.0;
    double u = 0.0;
    double v = 0.0;

    void add(double thickness, double u0, double u1, double v0, double v1) {
        weight += thickness;
        u += (u0 + u1) * thickness * 0.5;
        v += (v0 + v1) * thickness * 0.5;
    }
    void mean(double& uMean, double& vMean) const {
        uMean = u / weight;
        vMean = v / weight;
    }
};

void capture(const std::vector<WL150DAT>& records) {
    for (std::size_t i = 0; i < records.size(); ++i) {
        const WL150DAT& r = records[i];
        DCapture::dcout << "wl150 i:" << i << " t:" << r.t << " presalt:" << r.presAlt << " windalt:" << r.windAlt
                        << " u:" << r.u << " v:" << r.v << "\n";
    }
}

} // namespace

/// Own copies of the series, in which the surface wind closes the layers.
struct Levels::LayerWinds {
    Series alt;
    Series wspd;
    Series wdir;
    Series u;
    Series v;

    int last() const { return std::min({wspd.lastIndex(), u.lastIndex(), v.lastIndex()}); }
};

void Levels::make62626() {
    if (_ascending || _series.wspd.lastIndex() + 1 < kLeastWinds) {
        return;
    }
    LayerWinds winds{_series.alt, _series.wspd, _series.wdir, _series.u, _series.v};
    const std::vector<Level> surface = subsetByType(LevelType::SurfaceWind, 0.0, 1200.0, false);
    double time = 0.0;
    double speed = 0.0;
    double direction = 0.0;
    if (surface.size() == 1 && surface[0].has(LFalt) && surface[0].getFieldData(LFtime, time) &&
        surface[0].getFieldData(LFwspd, speed) && surface[0].getFieldData(LFwdir, direction)) {
        double u = 0.0;
        double v = 0.0;
        UandV(speed, direction, u, v);
        winds.wspd.insertValue(Value(speed, time));
        winds.wdir.insertValue(Value(direction, time));
        winds.u.insertValue(Value(u, time));
        winds.v.insertValue(Value(v, time));
    }
    meanBLWind(winds);
    deepLayer(winds);
    layer150m(winds);
    location(LevelType::SPGLocation, true);
    location(LevelType::RELLocation, false);
}

void Levels::meanBLWind(const LayerWinds& winds) {
    double time = 0.0;
    if (!winds.alt.interpTime(kLayerTop, time)) {
        return;
    }
    const auto below =
        std::find_if(winds.wspd.begin(), winds.wspd.end(), [time](const Value& value) { return value.time() > time; });
    const int first = static_cast<int>(below - winds.wspd.begin());
    const int minCount = static_cast<int>(_windRate * kSecondsOfFall * kShareOfBoundaryLayer);
    double u = 0.0;
    double v = 0.0;
    double ignored = 0.0;
    if (layerAveragedWindByAlt(winds, first, winds.last(), minCount, u, v, ignored)) {
        Level level = levelAt(LevelType::MeanBLWind, time);
        level.setField(LFalt, kLayerTop);
        setWind(level, u, v);
        setIfReadable(level, LFpres, _series.pres, time);
        _levels.push_back(level);
    }
}

void Levels::deepLayer(const LayerWinds& winds) {
    const int last = winds.last();
    if (last < 2) {
        return;
    }
    int first = 0;
    double p0 = 0.0;
    double p1 = 0.0;
    if (winds.wspd.testAttribute(0, Value::ObsFlight) && pressureAt(winds.wspd.time(0), p0) &&
        pressureAt(winds.wspd.time(1), p1) && p1 - p0 > kLaunchIsFar) {
        first = 1;
    }
    const double topTime = winds.wspd.time(first);
    const double bottomTime = winds.wspd.time(last);
    const int minCount = static_cast<int>(std::min(kMostWinds, (bottomTime - topTime) * _windRate * kShareOfDeepLayer));
    double u = 0.0;
    double v = 0.0;
    if (layerAveragedWindByPres(winds, first, last, minCount, u, v)) {
        Level level = levelAt(LevelType::DeepLayer, bottomTime);
        setWind(level, u, v);
        setIfReadable(level, LFpresTop, _series.pres, topTime);
        setIfReadable(level, LFpresBot, _series.pres, bottomTime);
        setIfReadable(level, LFpres, _series.pres, bottomTime);
        _levels.push_back(level);
    }
}

void Levels::layer150m(const LayerWinds& winds) {
    double time = 0.0;
    double altitude = 0.0;
    double u = 0.0;
    double v = 0.0;
    if (wl150(winds, time, altitude, u, v)) {
        Level level = levelAt(LevelType::Layer150m, time);
        level.setField(LFalt, altitude);
        setWind(level, u, v);
        setIfReadable(level, LFpres, _series.pres, time);
        _levels.push_back(level);
    }
}

/// Where the lowest or the highest wind was measured.
void Levels::location(LevelType type, bool lowest) {
    Point point;
    double lat = 0.0;
    double lon = 0.0;
    double direction = 0.0;
    if (highestPair(_series.wspd, _series.lat, point, lat, lowest) &&
        _series.wdir.interpolate(point.time, kLevelGap, direction) &&
        _series.lon.interpolate(point.time, kLevelGap, lon)) {
        Level level = levelAt(type, point.time, point.pres);
        level.setField(LFwspd, point.value);
        level.setField(LFwdir, direction);
        level.setField(LFlat, lat);
        level.setField(LFlon, lon);
        _levels.push_back(level);
    }
}

bool Levels::layerAveragedWindByAlt(const LayerWinds& winds, int first, int last, int minCount, double& uMean,
                                    double& vMean, double& midAlt) const {
    if (last - first < minCount || last <= first) {
        return false;
    }
    const auto windAltitude = [&](int k, double& out) {
        const double time = winds.wspd.time(k);
        double altitude = 0.0;
        if (!winds.alt.interpolate(time, kLevelGap, altitude)) {
            return false;
        }
        out = altitude + windHeightOffset(time);
        return true;
    };
    WeightedWind sum;
    double upper = 0.0;
    double lower = 0.0;
    if (!windAltitude(first, upper)) {
        return false;
    }
    for (int k = first; k < last; ++k, upper = lower) {
        if (!windAltitude(k + 1, lower)) {
            return false;
        }
        sum.add(upper - lower, winds.u.data(k), winds.u.data(k + 1), winds.v.data(k), winds.v.data(k + 1));
    }
    if (!(sum.weight >= kThinnestAltLayer)) {
        return false;
    }
    sum.mean(uMean, vMean);
    midAlt = lower + sum.weight * 0.5;
    return true;
}

bool Levels::layerAveragedWindByPres(const LayerWinds& winds, int first, int last, int minCount, double& uMean,
                                     double& vMean) const {
    if (last - first < minCount || last <= first) {
        return false;
    }
    WeightedWind sum;
    double upper = 0.0;
    double lower = 0.0;
    if (!pressureAt(winds.wspd.time(first), upper)) {
        return false;
    }
    for (int k = first; k < last; ++k, upper = lower) {
        if (!pressureAt(winds.wspd.time(k + 1), lower)) {
            return false;
        }
        sum.add(upper - lower, winds.u.data(k), winds.u.data(k + 1), winds.v.data(k), winds.v.data(k + 1));
    }
    if (!(sum.weight <= kThinnestPresLayer)) {
        return false;
    }
    sum.mean(uMean, vMean);
    return true;
}

bool Levels::wl150(const LayerWinds& winds, double& t, double& midAlt, double& uMean, double& vMean) const {
    const Series& u = winds.u;
    const Series& v = winds.v;
    Series windAlt = winds.alt;
    for (int i = 0; i <= windAlt.lastIndex(); ++i) {
        windAlt.setData(i, windAlt.data(i) + windHeightOffset(windAlt.time(i)));
    }
    int bottom = winds.last();
    double zBottom = 0.0;
    while (bottom >= 1 && !windAlt.interpolate(u.time(bottom), kLowLayerGap, zBottom)) {
        --bottom;
    }
    if (bottom < 1) {
        return false;
    }
    const double tBottom = u.time(bottom);
    double zTop = zBottom + kLowLayer;
    std::vector<WL150DAT> records;
    for (int k = bottom; k >= 0; --k) {
        WL150DAT record{u.time(k), 0.0, 0.0, u.data(k), v.data(k)};
        if (!windAlt.interpolate(record.t, kLowLayerGap, record.windAlt)) {
            continue;
        }
        if (record.windAlt >= zTop) {
            break;
        }
        winds.alt.interpolate(record.t, kLowLayerGap, record.presAlt);
        records.push_back(record);
    }
    if (records.size() < kLeastLowWinds) {
        return false;
    }
    double tTop = 0.0;
    if (!windAlt.interpTime(zTop, tTop)) {
        if (!(std::abs(records.back().windAlt - records.front().windAlt) >= kLeastLowLayer)) {
            return false;
        }
        tTop = records.back().t;
        zTop = records.back().windAlt;
        records.pop_back();
    }
    WL150DAT closing{tTop, 0.0, zTop, 0.0, 0.0};
    if (!u.interpolate(tTop, kLowLayerGap, closing.u) || !v.interpolate(tTop, kLowLayerGap, closing.v)) {
        return false;
    }
    winds.alt.interpolate(tTop, kLowLayerGap, closing.presAlt);
    records.push_back(closing);
    capture(records);
    WeightedWind sum;
    for (std::size_t i = 0; i + 1 < records.size(); ++i) {
        const WL150DAT& a = records[i];
        const WL150DAT& b = records[i + 1];
        sum.add(std::abs(b.windAlt - a.windAlt), a.u, b.u, a.v, b.v);
    }
    if (!(sum.weight > 0.0)) {
        return false;
    }
    sum.mean(uMean, vMean);
    t = tTop + (tBottom - tTop) * 0.5;
    midAlt = zBottom + (zTop - zBottom) * 0.5;
    return true;
}
