#include "Environment.h"
#include "Levels.h"
#include "WMO.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>

// Levels and message of a whole sounding: 20 ms for 4,000 samples, and at most twelve times that for 40,000.

namespace {

/// What a sounding of \p n samples, two a second, would have come to: a troposphere with an inversion, a tropopause at
/// 11 km, a jet below it, moist layers, and noise of the size that QC leaves.
struct MadeSounding {
    Series pres, tdry, rh, wspd, wdir, u, v, alt, lat, lon, dz;

    MadeSounding(int n, bool ascending, double topPressure) {
        const double top = -7000.0 * std::log(topPressure / 1013.0);
        for (int i = 0; i < n; ++i) {
            const double way = static_cast<double>(i) / (n - 1);
            const double z = top * (ascending ? way : 1.0 - way);
            const double t = 0.5 * i;
            const double wave = std::sin(z / 400.0) + 0.4 * std::sin(z / 90.0) + 0.1 * std::sin(i * 1.7);
            const double warm = z > 1500.0 && z < 2000.0    ? 0.01 * (z - 1500.0)
                                : z >= 2000.0 && z < 4000.0 ? 5.0 - 0.0025 * (z - 2000.0)
                                                            : 0.0;
            const double speed = 8.0 + 40.0 * std::exp(-std::pow((z - 10000.0) / 4000.0, 2)) + 1.5 * wave;
            const double from = 200.0 + z / 150.0 + 15.0 * std::sin(z / 700.0) + 3.0 * wave;
            pres.appendValue(1013.0 * std::exp(-z / 7000.0), t);
            alt.appendValue(z, t);
            tdry.appendValue(
                28.0 - 0.0065 * std::min(z, 11000.0) + 0.001 * std::max(0.0, z - 14000.0) + warm + 0.3 * wave, t);
            rh.appendValue(std::clamp(50.0 + 35.0 * std::sin(z / 900.0) + 5.0 * wave, 1.0, 100.0), t);
            wspd.appendValue(speed, t);
            wdir.appendValue(std::fmod(from, 360.0), t);
            u.appendValue(-speed * std::sin(from * 0.0174532925), t);
            v.appendValue(-speed * std::cos(from * 0.0174532925), t);
            lat.appendValue(25.0 + 0.5 * way, t);
            lon.appendValue(-80.0 + way, t);
            dz.appendValue((ascending ? 5.0 : -12.0) + 0.3 * wave, t);
        }
        pres.setAttribute(ascending ? 0 : n - 1, Value::ObsSurface);
        u.setAttribute(0, ascending ? Value::ObsSurface : Value::ObsFlight);
        wspd.setAttribute(0, Value::ObsFlight);
    }
};

void levelsOf(benchmark::State& state, bool ascending, double topPressure) {
    keepFreedMemory(); // as the programs do
    const MadeSounding made(static_cast<int>(state.range(0)), ascending, topPressure);
    const LevelSeries series{made.pres, made.tdry, made.rh,  made.wspd, made.wdir, made.u,
                             made.v,    made.alt,  made.lat, made.lon,  made.dz};
    LevelSetting setting;
    setting.ascending = ascending;
    setting.windOffset = ascending ? 0.0 : 1.5;
    setting.sfcAlt = 0.0;
    setting.windRate = 2;
    StatusAgent agent;
    std::size_t count = 0;
    for (auto _ : state) {
        Summary summary;
        const Levels levels(agent, summary, series, LevelCriteria{}, setting);
        count = levels.levels().size();
        const WMO message(levels, ascending ? TempMsgType::Temp : TempMsgType::TempDrop, SndMetaData(), true, "", "");
        benchmark::DoNotOptimize(message.textLines());
    }
    state.counters["levels"] = static_cast<double>(count);
    state.SetComplexityN(state.range(0));
}

void levelsAndMessageOfDrop(benchmark::State& state) {
    levelsOf(state, false, 200.0);
}

void levelsAndMessageOfUpsonde(benchmark::State& state) {
    levelsOf(state, true, 5.0);
}

} // namespace

BENCHMARK(levelsAndMessageOfDrop)->Arg(4000)->Arg(40000)->Unit(benchmark::kMillisecond);
BENCHMARK(levelsAndMessageOfUpsonde)->Arg(4000)->Arg(40000)->Unit(benchmark::kMillisecond);
