#pragma once

#include "Levels.h"
#include "Lines.h"

#include <cmath>
#include <cstdio>
#include <memory>
#include <string>
#include <utility>
#include <vector>

/// The samples alone.
inline Series samples(const Knots& knots) {
    Series series;
    for (const auto& [time, data] : knots) {
        series.appendValue(data, time);
    }
    return series;
}

/// One sample each second from the first knot to the last, on the lines between them.
inline Series everySecond(const Knots& knots) {
    Series series;
    for (double time = knots.front().first; time <= knots.back().first; time += 1.0) {
        series.appendValue(onLines(knots, time), time);
    }
    return series;
}

/// What goes into a level set, and the one that comes of it. Nothing significant is looked for and nothing is smoothed
/// unless a test sets a criterion.
struct MadeLevels {
    class Listener : public StatusAgent {
    public:
        void AppendStatus(const std::string& text) override { heard += text + "|"; }
        std::string heard;
    };

    Series pres, tdry, rh, wspd, wdir, u, v, alt, lat, lon, dz;
    LevelCriteria criteria{1e6, 1e6, 1e6, 1e6, 1e6, 0.0};
    LevelSetting setting;
    Listener agent;
    Summary summary;
    std::unique_ptr<Levels> levels;

    /// Winds from the west, u in m/s.
    void west(const Series& speed) {
        u = wspd = speed;
        v = wdir = speed;
        for (int i = 0; i <= speed.lastIndex(); ++i) {
            v.setData(i, 0.0);
            wdir.setData(i, 270.0);
        }
    }
    void flagFirst(std::vector<Series*> series, Value::AttributeType flag) {
        for (Series* s : series) {
            s->setAttribute(0, flag);
        }
    }
    void landed() { pres.setAttribute(pres.lastIndex(), Value::ObsSurface); }

    Levels& run() {
        const LevelSeries series{pres, tdry, rh, wspd, wdir, u, v, alt, lat, lon, dz};
        levels = std::make_unique<Levels>(agent, summary, series, criteria, setting);
        return *levels;
    }
    /// The fields of all levels of a type, "100 850; 101 -": a dash for one that is absent.
    std::string of(LevelType type, const std::vector<LevelFieldId>& fields = {LFtime, LFpres}) const {
        std::string text;
        for (const Level& level : levels->subsetByType(type)) {
            text += text.empty() ? "" : "; ";
            for (std::size_t i = 0; i < fields.size(); ++i) {
                char word[32] = "-";
                double value = 0.0;
                if (level.getFieldData(fields[i], value)) {
                    std::snprintf(word, sizeof word, "%.6g", std::abs(value) < 1e-9 ? 0.0 : value);
                }
                text += (i > 0 ? " " : "") + std::string(word);
            }
        }
        return text;
    }
    int count(LevelType type) const { return static_cast<int>(levels->subsetByType(type).size()); }
    /// A field of the only level of a type; NaN without one.
    double the(LevelType type, LevelFieldId field) const {
        const std::vector<Level> found = levels->subsetByType(type);
        double value = std::nan("");
        if (found.size() == 1) {
            found[0].getFieldData(field, value);
        }
        return value;
    }
};

/// A drop of 100 s from 800 mb and 1000 m to 1000 mb and 0 m, with even changes: 2 mb, -10 m and 0.1 deg C a second, RH
/// 40 to 90 %, wind from the west of 20 to 10 m/s, 25 to 26 north, 80 to 79 west.
struct MadeDrop : MadeLevels {
    MadeDrop() {
        pres = everySecond({{0, 800}, {100, 1000}});
        alt = everySecond({{0, 1000}, {100, 0}});
        tdry = everySecond({{0, 10}, {100, 20}});
        rh = everySecond({{0, 40}, {100, 90}});
        lat = everySecond({{0, 25}, {100, 26}});
        lon = everySecond({{0, -80}, {100, -79}});
        dz = everySecond({{0, -10}, {100, -10}});
        west(everySecond({{0, 20}, {100, 10}}));
        setting.windRate = 1;
    }
};
