#include "ConfigSet.h"
#include "EditorControl.h"
#include "FileSaver.h"
#include "ProductColumns.h"
#include "RegistryXML.h"
#include "SndMetaData.h"

#include <benchmark/benchmark.h>

#include <cmath>
#include <filesystem>
#include <sstream>
#include <unistd.h>

// A product of 10,000 rows, from columns to a file that stands: 60 ms for a text product, 30 ms for netCDF.

namespace {

/// The text of an upsonde sounding of \p rows rows, one a second.
std::string upsonde(int rows) {
    std::ostringstream text;
    text << "FileFormat,CSV\nYear,2021\nMonth,8\nDay,1\nHour,12\nMinute,0\nSecond,3\nAscending,\"true\"\n"
            "Fields,Time,Pressure,Temperature,RH,Speed,Direction,Latitude,Longitude,Altitude,GPS Altitude,Ascent\n";
    for (int i = 0; i < rows; ++i) {
        const double z = 3.0 * i;
        text << "Data," << i << "," << 1013.0 * std::exp(-z / 7000.0) << "," << 28.0 - 0.003 * z << ","
             << 50.0 + 45.0 * std::sin(z / 900.0) << "," << 10.0 + z / 1000.0 << ","
             << std::fmod(200.0 + z / 150.0, 360.0) << "," << 25.0 + 1e-5 * i << "," << -80.0 - 2e-5 * i << "," << z
             << "," << z + 8.0 << ",3.1\n";
    }
    return text.str();
}

void save(benchmark::State& state, const char* extension) {
    constexpr int kRows = 10000;
    RegistryXML store(TARVO_SOURCE_DIR "/resources/tarvo.xml", "");
    ConfigSet config(&store);
    EditorControl editor(config, "V3.4.8");
    std::istringstream stream(upsonde(kRows));
    editor.getSounding("up.csv", &stream);
    const SndMetaData metaData = editor.getSndMetaData(true);
    const ProductColumns columns = ProductColumns::raw(editor);
    const std::string path =
        (std::filesystem::temp_directory_path() / ("tarvo-benchmark-" + std::to_string(getpid()) + extension)).string();
    for (auto _ : state) {
        if (!FileSaver::saveFile("V3.4.8", path, extension, metaData, editor, columns, nullptr)) {
            state.SkipWithError("the product cannot be saved");
            break;
        }
    }
    std::error_code ignored;
    state.counters["rows"] = columns.nRows();
    state.counters["bytes"] = static_cast<double>(std::filesystem::file_size(path, ignored));
    std::filesystem::remove(path, ignored);
}

} // namespace

BENCHMARK_CAPTURE(save, csv, ".csv")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(save, trove, ".trv")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(save, zor, ".zor")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(save, frd, ".frd")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(save, netcdf, ".nc")->Unit(benchmark::kMillisecond);
