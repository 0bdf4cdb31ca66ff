#include "SkewTAdapterSVG.h"
#include "SkewTPainter.h"

#include "SkewT.h"

#include <QGuiApplication>
#include <QImage>

#include <benchmark/benchmark.h>

#include <cmath>
#include <sstream>

// The whole diagram of a sounding of 4,000 samples at 1000 x 700: 30 ms on an image, 10 ms as SVG.

namespace {

constexpr int kWidth = 1000;
constexpr int kHeight = 700;

/// Keeps the drawing, as the widget does.
class ListAdapter : public skewt::SkewTAdapter {
public:
    void init() override { list.clear(); }
    void draw_finished() override {}
    void addDp(double x, double y) override { list.dp.push_back({{x, y}, skewt::kBlue, 5.0}); }
    void addTdry(double x, double y) override { list.tdry.push_back({{x, y}, skewt::kRed, 5.0}); }
    void symbol(double x, double y, unsigned colour, skewt::SymType /*type*/) override {
        list.symbols.push_back({{x, y}, colour, 4.0});
    }
    void Text(const std::string& text, double x, double y, unsigned colour) override {
        list.addText(text, {x, y}, colour);
    }
    void extents(double& /*x1*/, double& /*x2*/, double& /*y1*/, double& /*y2*/) override {}
    void line(double x1, double y1, double x2, double y2, unsigned colour, skewt::LineType type) override {
        list.addLine({{x1, y1}, {x2, y2}}, colour, type);
    }
    void title(std::string text) override { list.setTitle(text); }
    void subTitle(std::string text) override { list.setSubTitle(text); }
    void markPoints(bool /*on*/) override {}
    double aspectRatio() override { return static_cast<double>(kHeight) / kWidth; }
    void maximize() override {}
    void unzoom() override {}
    void print() override {}
    bool savePlot(std::string /*file*/, int /*w*/, int /*h*/, skewt::PlotFileType /*type*/) override { return false; }

    skewt::DisplayList list;
};

std::unique_ptr<skewt::SkewT> diagramOn(skewt::SkewTAdapter& adapter) {
    constexpr int kSamples = 4000;
    std::vector<double> pres, tdry, dp, spd, dir;
    for (int i = 0; i < kSamples; ++i) {
        const double z = 16.0 * i / kSamples; // km
        const double wave = 0.2 * std::sin(i * 0.9) + 0.1 * std::sin(i * 2.3);
        pres.push_back(1010.0 * std::exp(-z / 7.0));
        tdry.push_back(24.0 - 6.5 * std::min(z, 11.0) + wave);
        dp.push_back(tdry.back() - 4.0 - 10.0 * std::pow(std::sin(z / 2.0), 2) + 3.0 * wave);
        spd.push_back(5.0 + 3.0 * z);
        dir.push_back(std::fmod(150.0 + 10.0 * z, 360.0));
    }
    return std::make_unique<skewt::SkewT>(adapter, kSamples, tdry.data(), dp.data(), spd.data(), dir.data(),
                                          pres.data(), 20, "sub title", "title", "credit", -40.0, 40.0, 100.0, 1050.0);
}

QGuiApplication& application() {
    static int argc = 1;
    static char name[] = "skewt_benchmark";
    static char* argv[] = {name, nullptr};
    qputenv("QT_QPA_PLATFORM", "offscreen");
    static QGuiApplication instance(argc, argv);
    return instance;
}

void fullRedraw(benchmark::State& state) {
    application();
    ListAdapter adapter;
    const auto skewT = diagramOn(adapter);
    const bool marks = state.range(0) != 0;
    for (auto _ : state) {
        skewT->brandNewPlot();
        QImage image(kWidth, kHeight, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::white);
        QPainter painter(&image);
        skewt::SkewTPainter page(painter, image.size(), 0.0);
        page.drawBackground(adapter.list);
        page.drawData(adapter.list, marks, true);
    }
}
BENCHMARK(fullRedraw)->ArgName("marks")->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

void engineAlone(benchmark::State& state) {
    ListAdapter adapter;
    const auto skewT = diagramOn(adapter);
    for (auto _ : state) {
        skewT->brandNewPlot();
    }
}
BENCHMARK(engineAlone)->Unit(benchmark::kMillisecond);

void svgDocument(benchmark::State& state) {
    for (auto _ : state) {
        std::ostringstream out;
        skewt::SkewTAdapterSVG adapter(out, kWidth, kHeight, 4);
        diagramOn(adapter)->brandNewPlot();
        benchmark::DoNotOptimize(out.str().size());
    }
}
BENCHMARK(svgDocument)->Unit(benchmark::kMillisecond);

} // namespace
