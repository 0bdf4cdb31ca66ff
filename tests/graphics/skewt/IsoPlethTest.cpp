#include "RecordingAdapter.h"
#include "SkewT.h"

#include <gmock/gmock.h>

#include <cmath>

using namespace skewt;
using testing::ElementsAre;

namespace {

constexpr Limits kLimits{-40.0, 40.0, 100.0, 1050.0};

/// One set of lines in a plot that fills the page, so that page and data space are the same.
template <typename Set>
struct Drawn {
    explicit Drawn(const Limits& limits) : set(adapter, {0.0, 1.0, 0.0, 1.0}, limits, SkewT::kSkew) { set.draw(); }

    /// How far the drawn lines are from the place of a temperature (deg C) and pressure (mb), in data space.
    double distance(double t, double p) const {
        const Point at = set.toData(t, p);
        double nearest = 1e9;
        for (const auto& drawn : adapter.lines) {
            const Point a = drawn.line.p1;
            const Point along{drawn.line.p2.x - a.x, drawn.line.p2.y - a.y};
            const double length = along.x * along.x + along.y * along.y;
            const double share = std::clamp(((at.x - a.x) * along.x + (at.y - a.y) * along.y) / length, 0.0, 1.0);
            nearest = std::min(nearest, std::hypot(a.x + share * along.x - at.x, a.y + share * along.y - at.y));
        }
        return nearest;
    }
    const RecordingAdapter::DrawnText* label(const std::string& text) const {
        for (const auto& drawn : adapter.texts) {
            if (drawn.text == text) {
                return &drawn;
            }
        }
        return nullptr;
    }

    RecordingAdapter adapter;
    Set set;
};

} // namespace

TEST(IsoTherms, everyTenDegreesLabelledInTheMiddle) {
    const Drawn<IsoTherms> drawn(kLimits);
    EXPECT_THAT(drawn.adapter.textsOf(kBlue),
                ElementsAre("|r-110", "|r-100", "|r-90", "|r-80", "|r-70", "|r-60", "|r-50", "|r-40", "|r-30", "|r-20",
                            "|r-10", "|r0", "|r10", "|r20", "|r30"));
    EXPECT_EQ(drawn.adapter.lines.size(), 15U);
    // The line of -40 goes through the lower left corner and reaches the top.
    EXPECT_NEAR(drawn.label("|r-40")->at.x, 4.0 / 9.0, 1e-9);
    EXPECT_NEAR(drawn.label("|r-40")->at.y, 0.5, 1e-9);
    // That of 0 leaves through the right side, at x 1 = 0.5 + y / 1.125.
    EXPECT_NEAR(drawn.label("|r0")->at.x, 0.75, 1e-9);
    EXPECT_NEAR(drawn.label("|r0")->at.y, 0.28125, 1e-9);
    EXPECT_LT(drawn.distance(-60.0, 300.0), 1e-9);
    EXPECT_GT(drawn.distance(-55.0, 300.0), 0.03);
}

TEST(IsoTherms, labelsStayInAZoomedPlot) {
    const Drawn<IsoTherms> drawn({-13.0, 12.0, 480.0, 730.0});
    ASSERT_FALSE(drawn.adapter.texts.empty());
    for (const auto& text : drawn.adapter.texts) {
        EXPECT_TRUE(text.at.x >= 0.0 && text.at.x <= 1.0 && text.at.y >= 0.0 && text.at.y <= 1.0) << text.text;
    }
    // t(0, 1) is -13 - 25 / 1.125 = -35.2
    EXPECT_THAT(drawn.adapter.textsOf(kBlue), ElementsAre("|r-30", "|r-20", "|r-10", "|r0", "|r10"));
}

TEST(IsoPress, closerTheLessThePlotSpans) {
    struct Case {
        double pTop, pBottom;
        const char* first;
        const char* second;
    };
    for (const Case& c : {Case{100.0, 501.0, "|r 100", "|r 200"}, Case{600.0, 1000.0, "|r 600", "|r 650"},
                          Case{610.0, 761.0, "|r 650", "|r 700"}, Case{850.0, 1000.0, "|r 860", "|r 880"},
                          Case{899.0, 950.0, "|r 900", "|r 920"}, Case{900.0, 950.0, "|r 900", "|r 910"},
                          Case{905.0, 916.0, "|r 910", nullptr}, Case{905.0, 915.0, "|r 905", "|r 906"}}) {
        const Drawn<IsoPress> drawn({-40.0, 40.0, c.pTop, c.pBottom});
        const std::vector<std::string> labels = drawn.adapter.textsOf(kRed);
        ASSERT_FALSE(labels.empty());
        EXPECT_EQ(labels[0], c.first) << c.pTop;
        EXPECT_EQ(labels.size() > 1 ? labels[1] : "", c.second == nullptr ? "" : c.second) << c.pTop;
        EXPECT_EQ(drawn.adapter.lines.size(), labels.size()) << "each line has its label";
    }
}

TEST(IsoPress, fromSideToSide) {
    const Drawn<IsoPress> drawn(kLimits);
    ASSERT_EQ(drawn.adapter.lines.size(), 10U);
    for (const auto& line : drawn.adapter.lines) {
        EXPECT_NEAR(line.line.p1.x, 0.0, 1e-12);
        EXPECT_NEAR(line.line.p2.x, 1.0, 1e-12);
        EXPECT_DOUBLE_EQ(line.line.p1.y, line.line.p2.y);
    }
    const auto* label = drawn.label("|r 500");
    ASSERT_NE(label, nullptr);
    EXPECT_NEAR(label->at.x, -0.03, 1e-12);
    EXPECT_NEAR(label->at.y, std::log(500.0 / 1050.0) / std::log(100.0 / 1050.0) - 0.01, 1e-12);
    EXPECT_NE(drawn.label("|r1000"), nullptr);
}

TEST(Adiabats, airOfOnePotentialTemperature) {
    const Drawn<Adiabats> drawn(kLimits);
    // 303.15 * 0.5^0.288 = 248.29 K, 283.15 * 0.85^0.288 = 270.21 K, 373.15 * 0.2^0.288 = 234.73 K
    EXPECT_LT(drawn.distance(248.29 - 273.15, 500.0), 1e-3);
    EXPECT_LT(drawn.distance(270.21 - 273.15, 850.0), 1e-3);
    EXPECT_LT(drawn.distance(234.73 - 273.15, 200.0), 1e-3);
    EXPECT_LT(drawn.distance(20.0, 1000.0), 1e-3);
    EXPECT_GT(drawn.distance(25.0, 1000.0), 0.02);
    for (const auto& line : drawn.adapter.lines) {
        EXPECT_EQ(line.colour, kBlack);
        EXPECT_EQ(line.type, LineType::Solid);
    }
    // The one of 100 deg C leaves through the top, at 373.15 * 0.1^0.288 = 192.25 K.
    const auto* label = drawn.label("|c100");
    ASSERT_NE(label, nullptr);
    EXPECT_NEAR(label->at.y, 1.0, 1e-9);
    EXPECT_NEAR(label->at.x, (192.25 - 273.15 + 40.0) / 80.0 + 8.0 / 9.0, 1e-4);
    EXPECT_EQ(drawn.label("|c300"), nullptr) << "outside of the plot";
}

TEST(PAdiabats, saturatedAirUpTo200Mb) {
    const Drawn<PAdiabats> drawn(kLimits);
    for (double t = -20.0; t <= 35.0; t += 5.0) {
        EXPECT_LT(drawn.distance(t, 1000.0), 2e-3) << "named by its value at 1000 mb: " << t;
    }
    EXPECT_GT(drawn.distance(17.5, 1000.0), 0.02);
    const double top = std::log(200.0 / 1050.0) / std::log(100.0 / 1050.0);
    const auto* label = drawn.label("|c 20");
    ASSERT_NE(label, nullptr);
    EXPECT_NEAR(label->at.y, top, 1e-9);
    for (const auto& line : drawn.adapter.lines) {
        EXPECT_EQ(line.colour, kGreen);
        EXPECT_LE(line.line.p2.y, top + 1e-9);
    }
}

TEST(PAdiabats, whatThereIsOfThemInOtherPlots) {
    EXPECT_TRUE(Drawn<PAdiabats>({-80.0, -40.0, 50.0, 199.0}).adapter.lines.empty());
    EXPECT_TRUE(Drawn<IsoMR>({-80.0, -40.0, 50.0, 199.0}).adapter.lines.empty());
    const Drawn<PAdiabats> low({-40.0, 40.0, 400.0, 1050.0});
    ASSERT_NE(low.label("|c  0"), nullptr);
    EXPECT_NEAR(low.label("|c  0")->at.y, 1.0, 1e-9);
    const auto whole = std::count_if(low.adapter.lines.begin(), low.adapter.lines.end(), [](const auto& drawn) {
        return std::abs(drawn.line.p2.y - drawn.line.p1.y - 1.0 / 15.0) < 1e-9;
    });
    EXPECT_GT(whole, 100) << "15 steps within the plot";
}

TEST(IsoMR, linesOfOneMixingRatio) {
    const Drawn<IsoMR> drawn(kLimits);
    // 8 g/kg: e = 1000 * 8 / 630 = 12.70 mb, dew point 10.51 deg C by Bolton's equation 11; at 500 mb 6.35 mb, 0.53.
    EXPECT_LT(drawn.distance(10.51, 1000.0), 1.5e-3);
    EXPECT_LT(drawn.distance(0.53, 500.0), 1.5e-3);
    EXPECT_GT(drawn.distance(7.0, 1000.0), 0.01);
    const auto* label = drawn.label("|r8");
    ASSERT_NE(label, nullptr);
    EXPECT_NEAR(label->at.y, 0.0, 1e-12);
    EXPECT_NE(drawn.label("|r0.4"), nullptr);
    for (const auto& line : drawn.adapter.lines) {
        EXPECT_EQ(line.colour, kGrey);
        EXPECT_EQ(line.type, LineType::Dashed);
    }
}
