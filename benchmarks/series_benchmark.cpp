#include "Series.h"

#include <benchmark/benchmark.h>

#include <cmath>

// The cost of a look-up at every sample of a whole sounding. A walk from the start for each would grow with the square
// of the samples; these have to stay close to n log n.

namespace {

/// A pressure from 1013 mb down to 13 mb in half seconds, with small wiggles so that it isn't monotonic.
Series pressure(int n) {
    Series series(Id("QCPres"));
    for (int i = 0; i < n; ++i) {
        series.appendValue(1013.0 - 1000.0 * i / n + 0.3 * std::sin(i), 0.5 * i);
    }
    return series;
}

void interpolateWholeSeries(benchmark::State& state) {
    const int n = static_cast<int>(state.range(0));
    const Series series = pressure(n);
    for (auto _ : state) {
        double sum = 0.0;
        for (int i = 0; i < n; ++i) {
            double out = 0.0;
            if (series.interpolate(0.5 * i + 0.25, 10.0, out)) {
                sum += out;
            }
        }
        benchmark::DoNotOptimize(sum);
    }
    state.SetComplexityN(n);
}

void interpTimeWholeSeries(benchmark::State& state) {
    const int n = static_cast<int>(state.range(0));
    Series series = pressure(n);
    for (auto _ : state) {
        series.setData(0, 1013.0); // a change, so that what the search prepares counts too
        double sum = 0.0;
        for (int i = 0; i < n; ++i) {
            double out = 0.0;
            if (series.interpTime(1012.5 - 999.0 * i / n, out)) {
                sum += out;
            }
        }
        benchmark::DoNotOptimize(sum);
    }
    state.SetComplexityN(n);
}

} // namespace

BENCHMARK(interpolateWholeSeries)->RangeMultiplier(2)->Range(1000, 64000)->Complexity()->Unit(benchmark::kMicrosecond);
BENCHMARK(interpTimeWholeSeries)->RangeMultiplier(2)->Range(1000, 64000)->Complexity()->Unit(benchmark::kMicrosecond);
