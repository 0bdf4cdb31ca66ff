#include "BSpline.h"
#include "EditorControl.h"
#include "Environment.h"
#include "RegistryXML.h"
#include "ShippedConfiguration.h"
#include "TarvoConfigSet.h"

#include <benchmark/benchmark.h>

#include <cmath>
#include <sstream>
#include <string>
#include <vector>

namespace {

void fitAndEvaluateSpline(benchmark::State& state) {
    constexpr double kWavelength = 20.0; // s
    const auto n = static_cast<std::size_t>(state.range(0));
    std::vector<double> x(n);
    std::vector<double> y(n);
    for (std::size_t i = 0; i < n; ++i) {
        x[i] = 0.5 * static_cast<double>(i);
        y[i] = std::sin(x[i] / 30.0);
    }
    for (auto _ : state) {
        const BSpline<double> spline(x.data(), static_cast<int>(n), y.data(), kWavelength, 2, 0);
        double sum = 0.0;
        for (const double position : x) {
            sum += spline.evaluate(position);
        }
        benchmark::DoNotOptimize(sum);
    }
    state.SetComplexityN(state.range(0));
}

/// A drop of \p n samples, two a second, of even fall from 300 mb.
std::string dropText(int n) {
    std::string text = "FileFormat,CSV\nYear,2021\nMonth,8\nDay,1\nHour,12\nMinute,0\nSecond,3\nAscending,false\n"
                       "Pressure,299\nTemperature,-35\nRH,30\nSpeed,20\nDirection,250\nLatitude,25\nLongitude,-80\n"
                       "Altitude,9300\nThermoSensor,RSS421\n"
                       "Fields,Time,Pressure,Temperature,RH,Speed,Direction,Latitude,Longitude,Sats,GpsAlt,Ascent\n";
    for (int i = 0; i < n; ++i) {
        const double way = static_cast<double>(i) / n;
        char line[200];
        std::snprintf(line, sizeof line, "Data,%.1f,%.2f,%.2f,%.1f,%.2f,%.1f,%.6f,%.6f,9,%.1f,-11.5\n", 0.5 * i,
                      300.0 + 700.0 * way, -35.0 + 60.0 * way, 30.0 + 50.0 * way + 5.0 * std::sin(i / 40.0),
                      20.0 + 5.0 * std::sin(i / 60.0), 250.0 - 100.0 * way, 25.0 + 0.05 * way, -80.0 + 0.05 * way,
                      9300.0 * (1.0 - way));
        text += line;
    }
    return text;
}

void wholeQc(benchmark::State& state) {
    keepFreedMemory(); // as the programs do
    const auto registry = RegistryXML::fromText(shippedConfiguration(), "research-dropsonde");
    TarvoConfigSet config(registry.get());
    EditorControl editor(config, "V3.4.8");
    std::istringstream stream(dropText(static_cast<int>(state.range(0))));
    editor.getSounding("drop.csv", &stream);
    for (auto _ : state) {
        editor.qcProcess();
        benchmark::DoNotOptimize(editor.getSeries("QCAltUp")->lastIndex());
    }
    state.SetComplexityN(state.range(0));
}

} // namespace

BENCHMARK(fitAndEvaluateSpline)
    ->Arg(1000)
    ->Arg(4000)
    ->Arg(16000)
    ->Arg(64000)
    ->Unit(benchmark::kMillisecond)
    ->Complexity();
BENCHMARK(wholeQc)->Arg(1000)->Arg(4000)->Arg(16000)->Arg(40000)->Unit(benchmark::kMillisecond);
