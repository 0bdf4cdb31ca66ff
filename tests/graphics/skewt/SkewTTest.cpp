#include "SkewT.h"
#include "RecordingAdapter.h"

#include <gmock/gmock.h>

#include <cmath>
#include <limits>

using namespace skewt;
using testing::ElementsAre;

namespace {

constexpr double kGone = -999.0;
const double kNan = std::numeric_limits<double>::quiet_NaN();

struct Samples {
    std::vector<double> tdry{25.0, 10.0, kGone, -30.0, -50.0, kNan};
    std::vector<double> dp{20.0, kGone, 0.0, -40.0, -60.0, 0.0};
    std::vector<double> wspd{3.0, 10.0, 12.0, kGone, 20.0, 9.0};
    std::vector<double> wdir{90.0, 180.0, kGone, 200.0, 270.0, 9.0};
    std::vector<double> pres{1000.0, 850.0, 700.0, 400.0, kGone, 300.0};
};

struct Diagram {
    explicit Diagram(double tmin = -40.0, double tmax = 40.0, double pTop = 100.0, double pBottom = 1050.0)
        : skewT(adapter, 6, samples.tdry.data(), samples.dp.data(), samples.wspd.data(), samples.wdir.data(),
                samples.pres.data(), 20, "description", "place", "credit", tmin, tmax, pTop, pBottom) {}

    RecordingAdapter adapter;
    Samples samples;
    SkewT skewT;
};

} // namespace

TEST(SkewT, drawsInOrder) {
    Diagram diagram;
    diagram.skewT.brandNewPlot();
    // Barbs with their bases, isotherms, adiabats, isobars, pseudo-adiabats, mixing ratios, frame, traces, titles.
    EXPECT_THAT(diagram.adapter.events,
                ElementsAre("blue", "symbol", "blue", "symbol", "blue", "symbol", "blue", "black", "red", "green",
                            "grey", "black", "tdry", "dp", "title", "subTitle", "finished"));
    EXPECT_EQ(diagram.adapter.titleText, "place");
    EXPECT_EQ(diagram.adapter.subTitleText, "description");
    const auto& credit = diagram.adapter.texts.back();
    EXPECT_EQ(credit.text, "|lcredit");
    EXPECT_DOUBLE_EQ(credit.at.x, 0.12);
    EXPECT_DOUBLE_EQ(credit.at.y, 0.01);
    EXPECT_EQ(diagram.adapter.inits, 1);
}

TEST(SkewT, zoomsToTheBoxWithinThePlotAndBack) {
    Diagram diagram;
    const Limits& limits = diagram.skewT.limits();
    // From beyond a corner to the middle, and from a quarter beyond the other corner: along the lower edge of that box
    // tmin is 80 (0.25 - 0.25 / 1.125) - 40, and tmax 80 (1 - 0.25 / 1.125) - 40.
    const std::pair<PageBox, Limits> cases[] = {
        {{0.0, 0.49, 0.0, 0.485}, {-40.0, 0.0, std::sqrt(1050.0 * 100.0), 1050.0}},
        {{0.285, 1.0, 0.2775, 1.0}, {-37.7778, 22.2222, 100.0, 1050.0 * std::pow(100.0 / 1050.0, 0.25)}}};
    for (const auto& [box, zoomed] : cases) {
        diagram.adapter.box = box;
        diagram.skewT.zoomin();
        EXPECT_NEAR(limits.tmin, zoomed.tmin, 1e-3);
        EXPECT_NEAR(limits.tmax, zoomed.tmax, 1e-3);
        EXPECT_NEAR(limits.pTop, zoomed.pTop, 1e-9);
        EXPECT_NEAR(limits.pBottom, zoomed.pBottom, 1e-9);
        EXPECT_LT(diagram.adapter.tdry.size(), 3U);
        diagram.skewT.unzoom();
        EXPECT_EQ(diagram.adapter.tdry.size(), 3U);
    }
    for (const PageBox& box : {PageBox{0.91, 0.99, 0.2, 0.4}, PageBox{0.4, 0.4001, 0.4, 0.4001}}) {
        diagram.adapter.box = box; // beside the plot, and less than labels can tell apart
        diagram.skewT.zoomin();
        EXPECT_DOUBLE_EQ(limits.tmin, -40.0);
        EXPECT_DOUBLE_EQ(limits.pTop, 100.0);
    }
    EXPECT_EQ(diagram.adapter.finished, 4);
}

TEST(SkewT, addsSamplesOneByOne) {
    Diagram diagram;
    diagram.skewT.brandNewPlot();
    const std::size_t lines = diagram.adapter.lines.size();
    diagram.skewT.drawTdry(0.0, 600.0);
    diagram.skewT.drawTdry(kGone, 600.0);
    diagram.skewT.drawDp(-5.0, kGone);
    diagram.skewT.drawDp(-5.0, 600.0);
    EXPECT_EQ(diagram.adapter.tdry.size(), 4U);
    EXPECT_EQ(diagram.adapter.dp.size(), 5U);
    EXPECT_EQ(diagram.adapter.lines.size(), lines);
    diagram.skewT.drawWind(10.0, kGone, 500.0);
    diagram.skewT.drawWind(1.0, 0.0, 999.0); // the segment of the sample at 1000 mb
    EXPECT_EQ(diagram.adapter.lines.size(), lines);
    diagram.skewT.drawWind(1.0, 0.0, 500.0);
    EXPECT_EQ(diagram.adapter.lines.size(), lines + 1);
    diagram.skewT.resize();
    EXPECT_EQ(diagram.adapter.tdry.size(), 4U) << "and they stay";
    EXPECT_EQ(diagram.adapter.symbols.size(), 4U);
}

TEST(SkewT, limitsThatSpanNothingOrAreReversed) {
    for (const auto& [tmin, tmax, pTop, pBottom] : {Limits{5.0, 5.0, 500.0, 500.0}, Limits{40.0, -40.0, 1050.0, 100.0},
                                                    Limits{-1000.0, 1000.0, 1.0, 2000.0}, Limits{0.0, 1.0, 0.0, 0.0}}) {
        Diagram diagram(tmin, tmax, pTop, pBottom);
        diagram.skewT.brandNewPlot();
        EXPECT_LT(diagram.skewT.limits().tmin, diagram.skewT.limits().tmax);
        EXPECT_LT(diagram.skewT.limits().pTop, diagram.skewT.limits().pBottom);
        for (const auto& line : diagram.adapter.lines) {
            ASSERT_TRUE(std::isfinite(line.line.p1.x + line.line.p1.y + line.line.p2.x + line.line.p2.y));
        }
    }
}

TEST(SkewT, hasNoData) {
    RecordingAdapter adapter;
    SkewT skewT(adapter, 0, nullptr, nullptr, nullptr, nullptr, nullptr, 20, "", "", "", -40.0, 40.0, 100.0, 1050.0);
    skewT.brandNewPlot();
    EXPECT_TRUE(adapter.tdry.empty());
    EXPECT_FALSE(adapter.lines.empty());
    skewT.print();
    EXPECT_EQ(adapter.prints, 1);
}
