#include "LevelParts.h"
#include "Wind.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

constexpr double kLeastSpeedOfDirection = 5.154639175257732; ///< m/s, 10 knots: below, a direction means nothing
constexpr double kLayerPressure = 850.0;                     ///< mb, where the two wind layers of a drop meet
constexpr double kLayerWindGap = 5.0;                        ///< s

double directionOf(double u, double v) {
    double speed = 0.0;
    double direction = 0.0;
    SpeedDir(u, v, speed, direction);
    return direction;
}

/// The angle between two directions, 0 to 180 degrees.
double turn(double a, double b) {
    double difference = a - b;
    if (difference > 180.0) {
        difference -= 360.0;
    } else if (difference < -180.0) {
        difference += 360.0;
    }
    return std::abs(difference);
}

/// A straight line in pressure between two levels.
struct Line {
    double p0;
    double value0;
    double slope;

    Line(double pa, double fa, double pb, double fb) : p0(pa), value0(fa), slope((fb - fa) / (pb - pa)) {}
    double at(double p) const { return value0 + (p - p0) * slope; }
};

} // namespace

/// One search on one quantity: its samples, with the pressure that is read at their times once and for all (NaN where
/// there is none), and what a sample that departs from the line becomes.
struct Levels::GDLPass {
    enum LevelsGDLtype { GDLScalar = 0, GDLDirection = 1 };

    const Series& s;
    LevelType type;
    LevelFieldId field;
    double threshold;
    LevelsGDLtype kind = GDLScalar;
    const Series* s2 = nullptr; ///< the other component of a wind, index for index
    LevelFieldId field2 = LFnone;
    std::vector<double> pressures = {};

    /// The departures from the line between levels \p a and \p b, at most once for a sample.
    template <typename Found>
    void walk(const Level& a, const Level& b, int first, int last, Found found) const;
};

/// Samples \p first to \p last, which lie between levels \p a and \p b.
struct Levels::GDLSpan {
    Level a;
    Level b;
    int first;
    int last;
};

template <typename Found>
void Levels::GDLPass::walk(const Level& a, const Level& b, int first, int last, Found found) const {
    double pa = 0.0;
    double pb = 0.0;
    double fa = 0.0;
    double fb = 0.0;
    if (!a.getFieldData(LFpres, pa) || !b.getFieldData(LFpres, pb) || pa == pb || !a.getFieldData(field, fa) ||
        !b.getFieldData(field, fb)) {
        return;
    }
    const auto pressureOf = [this](int k) { return pressures[static_cast<std::size_t>(k)]; };
    if (kind == GDLScalar) {
        const Line line(pa, fa, pb, fb);
        for (int k = first; k <= last; ++k) {
            if (const double p = pressureOf(k); !std::isnan(p)) {
                found(k, std::abs(s.data(k) - line.at(p)));
            }
        }
        return;
    }
    double ga = 0.0;
    double gb = 0.0;
    if (!a.getFieldData(field2, ga) || !b.getFieldData(field2, gb)) {
        return;
    }
    // Between unit vectors, so that the speeds at the ends carry no weight.
    double ua = 0.0;
    double va = 0.0;
    double ub = 0.0;
    double vb = 0.0;
    UandV(1.0, directionOf(fa, ga), ua, va);
    UandV(1.0, directionOf(fb, gb), ub, vb);
    const Line uLine(pa, ua, pb, ub);
    const Line vLine(pa, va, pb, vb);
    for (int k = first; k <= last && k <= s2->lastIndex(); ++k) {
        double speed = 0.0;
        double direction = 0.0;
        SpeedDir(s.data(k), s2->data(k), speed, direction);
        const double p = pressureOf(k);
        if (!std::isnan(p) && speed >= kLeastSpeedOfDirection) {
            found(k, turn(direction, directionOf(uLine.at(p), vLine.at(p))));
        }
    }
}

void Levels::GDLThermo() {
    GDLoneSeries(_series.tdry, LevelType::GDLTdry, LFtdry, _criteria.tdryDelta);
    addField(LevelType::GDLTdry, _series.rh, LFrh);
    GDLoneSeries(_series.rh, LevelType::GDLRH, LFrh, _criteria.rhDelta);
    addField(LevelType::GDLRH, _series.tdry, LFtdry);
}

void Levels::GDLWinds() {
    if (_ascending) {
        GDLoneSeries(_series.wspd, LevelType::GDLWspd, LFwspd, _criteria.wspdDelta / kKnotsPerMetrePerSecond);
    } else {
        GDLWindSpeedsOfDrop();
    }
    for (Level& level : _levels) {
        double time = 0.0;
        double u = 0.0;
        double v = 0.0;
        if (level.levelType() == LevelType::GDLWspd && level.getFieldData(LFtime, time) &&
            _series.u.interpolate(time, kLevelGap, u) && _series.v.interpolate(time, kLevelGap, v)) {
            level.setField(LFwdir, directionOf(u, v));
            level.setField(LFu, u);
            level.setField(LFv, v);
        }
    }
    GDLDirections(_series.u, _series.v, LevelType::GDLWdir, LFu, LFv, _criteria.wdirDelta);
    for (Level& level : _levels) {
        double u = 0.0;
        double v = 0.0;
        if (level.levelType() == LevelType::GDLWdir && level.getFieldData(LFu, u) && level.getFieldData(LFv, v)) {
            setWind(level, u, v);
        }
    }
}

/// Below 850 mb a drop is searched with a finer threshold than above. The levels of the other layer step aside for each
/// of the two searches and come back last to first; those at exactly 850 mb take part in both and join them.
void Levels::GDLWindSpeedsOfDrop() {
    gdlWspd850mb();
    const auto search = [this](double threshold, auto stepsAside) {
        const auto aside = std::stable_partition(_levels.begin(), _levels.end(), [&](const Level& level) {
            double pressure = 0.0;
            return !(level.getFieldData(LFpres, pressure) && stepsAside(pressure));
        });
        const std::vector<Level> held(aside, _levels.end());
        _levels.erase(aside, _levels.end());
        GDLoneSeries(_series.wspd, LevelType::GDLWspd, LFwspd, threshold / kKnotsPerMetrePerSecond);
        _levels.insert(_levels.end(), held.rbegin(), held.rend());
    };
    search(_criteria.wspd850Delta, [](double pressure) { return pressure < kLayerPressure; });
    search(_criteria.wspdDelta, [](double pressure) { return pressure > kLayerPressure; });
}

/// A level at 850 mb, or at the two winds around it when they are further apart than the gap.
void Levels::gdlWspd850mb() {
    const Series& u = _series.u;
    const Series& v = _series.v;
    double time = 0.0;
    if (_ascending || u.empty() || !_series.pres.interpTime(kLayerPressure, time)) {
        return;
    }
    double uAtLayer = 0.0;
    double vAtLayer = 0.0;
    if (u.interpolate(time, kLayerWindGap, uAtLayer)) {
        v.interpolate(time, kLayerWindGap, vAtLayer);
        Level level = levelAt(LevelType::GDLWspd, time, kLayerPressure);
        setWind(level, uAtLayer, vAtLayer);
        _levels.push_back(level);
        return;
    }
    const auto addSample = [&](int i) {
        double pressure = 0.0;
        if (i >= 1 && i <= u.lastIndex() && i <= v.lastIndex() && pressureAt(u.time(i), pressure)) {
            Level level = levelAt(LevelType::GDLWspd, u.time(i), pressure);
            setWind(level, u.data(i), v.data(i));
            _levels.push_back(level);
        }
    };
    const auto later = std::find_if(u.begin(), u.end(), [time](const Value& value) { return value.time() > time; });
    const int index = static_cast<int>(later - u.begin());
    addSample(index - 1);
    addSample(index);
}

void Levels::GDLoneSeries(const Series& s, LevelType type, LevelFieldId field, double threshold) {
    GDLPass pass{s, type, field, threshold};
    GDLoneSeries(pass);
}

void Levels::GDLDirections(const Series& s, const Series& s2, LevelType type, LevelFieldId field, LevelFieldId field2,
                           double threshold) {
    GDLPass pass{s, type, field, threshold, GDLPass::GDLDirection, &s2, field2};
    GDLoneSeries(pass);
}

void Levels::GDLoneSeries(GDLPass& pass) {
    std::vector<Level> anchors = sortByPres();
    if (_ascending) {
        std::reverse(anchors.begin(), anchors.end());
    }
    anchors.erase(
        std::remove_if(anchors.begin(), anchors.end(), [&pass](const Level& level) { return !level.has(pass.field); }),
        anchors.end());
    if (anchors.size() < 2) {
        return;
    }
    const Series& s = pass.s;
    for (const Value& sample : s) {
        double pressure = std::numeric_limits<double>::quiet_NaN();
        pressureAt(sample.time(), pressure);
        pass.pressures.push_back(pressure);
    }
    int i = 0;
    for (std::size_t n = 0; n + 1 < anchors.size(); ++n) {
        double ta = 0.0;
        double tb = 0.0;
        if (!anchors[n].getFieldData(LFtime, ta) || !anchors[n + 1].getFieldData(LFtime, tb)) {
            continue;
        }
        while (i <= s.lastIndex() && s.time(i) <= ta) {
            ++i;
        }
        int end = i + 1;
        while (end <= s.lastIndex() && s.time(end) < tb) {
            ++end;
        }
        if (end <= s.lastIndex()) {
            GDL(pass, anchors[n], anchors[n + 1], i, end - 1);
        }
    }
}

/// Splits at the sample that departs most from the line between the two levels, and then each side anew, earlier side
/// first. The spans yet to do are kept in a list and not on the call stack: a hostile sounding could make one deep.
void Levels::GDL(const GDLPass& pass, const Level& a, const Level& b, int first, int last) {
    std::vector<GDLSpan> spans{{a, b, first, last}};
    while (!spans.empty()) {
        const GDLSpan span = std::move(spans.back());
        spans.pop_back();
        if (span.first >= span.last) {
            continue;
        }
        double largest = 0.0;
        int winner = -1;
        pass.walk(span.a, span.b, span.first, span.last, [&](int k, double departure) {
            if (departure > largest) {
                largest = departure;
                winner = k;
            }
        });
        if (winner < 0 || !(largest > pass.threshold)) {
            continue;
        }
        Level level = levelAt(pass.type, pass.s.time(winner), pass.pressures[static_cast<std::size_t>(winner)]);
        level.setField(pass.field, pass.s.data(winner));
        if (pass.kind == GDLPass::GDLDirection) {
            level.setField(pass.field2, pass.s2->data(winner));
        }
        _levels.push_back(level);
        spans.push_back({level, span.b, winner + 1, span.last});
        spans.push_back({span.a, level, span.first, winner - 1});
    }
}
