// What a replot of a long sounding costs, down to the pixels, and what a zoom or a mark adds.

#include "GraphAdapterQwt.h"

#include <QApplication>
#include <QImage>
#include <benchmark/benchmark.h>
#include <qwt_plot_renderer.h>

#include <cmath>
#include <memory>

namespace {

constexpr int kPoints = 20000;
constexpr int kWidth = 1000; // pixels
constexpr int kHeight = 700;

Trace::Points wave(double amplitude, double period) {
    auto points = std::make_shared<std::vector<double>>();
    for (int i = 0; i < kPoints; ++i) {
        points->push_back(amplitude * std::sin(i / period) + (i % 7) * 0.1);
    }
    return points;
}

Trace::Points ramp() {
    auto points = std::make_shared<std::vector<double>>();
    for (int i = 0; i < kPoints; ++i) {
        points->push_back(1000.0 - 0.045 * i);
    }
    return points;
}

/// Raw and QC data of two quantities.
struct Plot {
    Plot() : adapter(&plot, "helvetica", 10, "white") {
        plot.resize(kWidth, kHeight);
        plot.show();
    }
    void replot() {
        adapter.reset();
        for (int axis = 0; axis < 2; ++axis) {
            adapter.addTrace(axis, Trace(first, y, "Raw", "red", Trace::Line));
            adapter.addTrace(axis, Trace(second, y, "QC", "green", Trace::Line));
        }
        adapter.plot(true, false, -999.0, -999.0, "credit");
    }
    void render() {
        QImage image(kWidth, kHeight, QImage::Format_RGB32);
        plot.render(&image);
        benchmark::DoNotOptimize(image.bits());
    }
    Trace::Points first = wave(30.0, 900.0);
    Trace::Points second = wave(28.0, 900.0);
    Trace::Points y = ramp();
    QwtPlot plot;
    GraphAdapterQwt adapter;
};

Plot& thePlot() {
    static int argc = 1;
    static char name[] = "xy_benchmark";
    static char* argv[] = {name, nullptr};
    qputenv("QT_QPA_PLATFORM", "offscreen");
    static const QApplication application(argc, argv);
    static Plot plot;
    return plot;
}

void BM_Replot(benchmark::State& state) {
    Plot& plot = thePlot();
    for (auto _ : state) {
        plot.replot();
        plot.render();
    }
}
BENCHMARK(BM_Replot)->Unit(benchmark::kMillisecond);

void BM_PlotWithoutPainting(benchmark::State& state) {
    Plot& plot = thePlot();
    for (auto _ : state) {
        plot.replot();
    }
}
BENCHMARK(BM_PlotWithoutPainting)->Unit(benchmark::kMillisecond);

void BM_Marks(benchmark::State& state) {
    Plot& plot = thePlot();
    plot.replot();
    bool on = false;
    for (auto _ : state) {
        on = !on;
        plot.adapter.markPoints(on);
    }
    plot.adapter.markPoints(false);
}
BENCHMARK(BM_Marks)->Unit(benchmark::kMillisecond);

} // namespace
