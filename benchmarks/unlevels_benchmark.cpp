#include "UnLevels.h"

#include <benchmark/benchmark.h>

#include <string>

namespace {

/// A sounding in four parts, with ten significant levels in each section of part B and the remarks of a drop.
std::string fourParts() {
    std::string significant;
    std::string winds;
    for (int i = 1; i < 10; ++i) {
        const std::string group = std::to_string(11 * i) + std::to_string(1000 - 90 * i);
        significant += group + " 10150 ";
        winds += group + " 27035 ";
    }
    const std::string head = " 99254 70804 08145 ";
    const std::string tail =
        " 31313 09608 81905 61616 AF300 0809A STORM OB 07 62626 EYEWALL 045 LST WND 012 MBL WND 12525 "
        "AEV 30408 DLM WND 13030 850250 WL150 12528 085 REL 2562N08051W 190530 "
        "SPG 2540N08040W 191845 =\n";
    return "UZNT13 KNHC 251930\nXXAA  75191" + head +
           "99012 27632 12525 00110 27027 12528 92797 22414 13030 85528 17214 13535 70156 09458 14040 50588 05963 "
           "15025 40759 16158 16020 30968 31756 17018 25094 419// 18015 20242 535// 19525 15417 667// 20030 10663 "
           "777// 21012 88130 71156 20540 77160 20065 40612" +
           tail + "XXBB  75198" + head + "00012 27632 " + significant + "21212 00012 12525 " + winds + tail +
           "XXCC  75191" + head + "70844 719// 09015 50046 635// 09520 30370 567// 10025 88999 66300 10025 410//" +
           tail + "XXDD  7519/" + head + "11885 737// 22300 567// 21212 11885 09018 22300 10025" + tail;
}

void decodeFourParts(benchmark::State& state) {
    const std::string text = fourParts();
    for (auto _ : state) {
        const UnLevels read(text);
        benchmark::DoNotOptimize(read.obsTime());
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
}

} // namespace

BENCHMARK(decodeFourParts)->Unit(benchmark::kMicrosecond);
