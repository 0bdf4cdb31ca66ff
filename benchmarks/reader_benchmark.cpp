#include "ConfigSet.h"
#include "SoundingFileFactory.h"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <sstream>
#include <string>

namespace {

std::string frameText(const char* key, int halfSecond, double pres) {
    const int second = halfSecond / 2;
    char line[256];
    std::snprintf(line, sizeof line,
                  "OMBRA-D01 %s 204715063 210801 %02d%02d%02d.%d0 %7.2f %6.2f %6.2f %6.2f %6.2f %6.2f %11.6f %10.6f "
                  "%8.2f %2d %6.2f %6.2f 999 %5.2f %8.2f\n",
                  key, second / 3600 % 24, second / 60 % 60, second % 60, halfSecond % 2 * 5, pres, 27.57, 83.62, 93.93,
                  7.30, -9.92, -80.480701, 25.132539, 108.19, 12, 83.52, 84.25, 0.24, 109.20);
    return line;
}

/// A D file of \p frames frames, 20 of them in the cabin. It begins at midnight, and one day holds 172,800 of them.
std::string dropsondeFile(int frames) {
    constexpr int kInCabin = 20;
    std::string text = "OMBRA-T01 COM FORMAT VERSION NUMBER: 1.6     \n"
                       "OMBRA-T01 COM Project Name/Flight ID:                TESTEX, RF07\n"
                       "OMBRA-T01 LAU 204715063 210801 000010.00\n";
    for (int i = 0; i < frames; ++i) {
        text += i < kInCabin ? frameText("P00", i, 770.0) : frameText("S00", i, 400.0 + 600.0 * i / frames);
    }
    return text;
}

void readOmbra(benchmark::State& state) {
    const std::string text = dropsondeFile(static_cast<int>(state.range(0)));
    Registry registry;
    ConfigSet config(&registry);
    std::istringstream stream(text);
    for (auto _ : state) {
        stream.clear();
        stream.seekg(0);
        const auto file = SoundingFileFactory::newSoundingFile(config, "D20210801_000010.1", &stream);
        if (!file || !file->isValid()) {
            state.SkipWithError("the file doesn't read");
            break;
        }
        benchmark::DoNotOptimize(file->dataPoints());
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
}

} // namespace

BENCHMARK(readOmbra)->Arg(2000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);
