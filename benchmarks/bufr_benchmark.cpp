#include "Environment.h"
#include "TarvoToBUFR_BC25.h"

#include <benchmark/benchmark.h>

#include <cmath>
#include <sstream>

// A BUFR message of a whole sounding, resampled, from its columns to its octets, with the tables read anew as every
// product does: 20 ms for 5,000 rows, and in proportion for more.

namespace {

struct MadeColumns {
    std::vector<double> time, pres, tdry, rh, wspd, wdir, lat, lon, alt;

    explicit MadeColumns(int n) {
        for (int i = 0; i < n; ++i) {
            time.push_back(i);
            pres.push_back(1013.0 * std::exp(-i / 1400.0 * 5000.0 / n));
            tdry.push_back(28.0 - 80.0 * i / n);
            rh.push_back(50.0 + 40.0 * std::sin(i / 100.0));
            wspd.push_back(10.0 + 8.0 * std::sin(i / 300.0));
            wdir.push_back(std::fmod(i * 0.1, 360.0));
            lat.push_back(25.0 + 1e-5 * i);
            lon.push_back(-80.0 + 1e-5 * i);
            alt.push_back(5.0 * i);
        }
    }
};

void bufrMessage(benchmark::State& state) {
    keepFreedMemory(); // as the programs do
    const int n = static_cast<int>(state.range(0));
    const MadeColumns c(n);
    SndMetaData meta;
    meta.launchLat.set(25.0);
    meta.launchLon.set(-80.0);
    TarvoToBUFR::set_bufr_table_dir(TARVO_SOURCE_DIR "/resources/bufr");
    const TarvoToBUFR::Attributes attributes{{"ResampleBufr", "1"}};
    std::size_t octets = 0;
    for (auto _ : state) {
        TarvoToBUFR_BC25 bufr;
        std::ostringstream stream;
        if (!bufr.process(n, meta, attributes, nullptr, c.time.data(), c.pres.data(), c.tdry.data(), c.rh.data(),
                          c.wspd.data(), c.wdir.data(), c.lat.data(), c.lon.data(), c.alt.data()) ||
            !bufr.save(&stream)) {
            state.SkipWithError("no message");
            break;
        }
        octets = stream.str().size();
    }
    state.counters["octets"] = static_cast<double>(octets);
    state.SetComplexityN(n);
}

} // namespace

BENCHMARK(bufrMessage)->Arg(1)->Arg(5000)->Arg(50000)->Unit(benchmark::kMillisecond);
