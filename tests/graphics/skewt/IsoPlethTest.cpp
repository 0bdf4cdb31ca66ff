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

    /// How far the drawn lines are from a place of the data space, or that of a temperature (deg C) and pressure (mb).
    double distance(double t, double p) const { return distance(set.toData(t, p)); }
    double distance(const Point& at) const {
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

using Place = std::pair<double, double>; // deg C and mb

/// All lines of a set have one look, some run through the places told, or near them, none through that between, and one
/// ends at a label.
template <typename Set>
void expectLines(const std::vector<Place>& on, double within, const Place& between, unsigned colour, LineType type,
                 const char* text, double labelY) {
    const Drawn<Set> drawn(kLimits);
    for (const auto& [t, p] : on) {
        EXPECT_LT(drawn.distance(t, p), within) << t << " " << p;
    }
    EXPECT_GT(drawn.distance(between.first, between.second), 0.01);
    for (const auto& line : drawn.adapter.lines) {
        EXPECT_TRUE(line.colour == colour && line.type == type);
    }
    const auto* label = drawn.label(text);
    ASSERT_NE(label, nullptr) << text;
    EXPECT_NEAR(label->at.y, labelY, 1e-9) << text;
    EXPECT_LT(drawn.distance(label->at), 1e-9) << text;
}

} // namespace

TEST(IsoPleths, runThroughTheirPlaces) {
    expectLines<IsoTherms>({{-60.0, 300.0}, {30.0, 1000.0}}, 1e-9, {-55.0, 300.0}, kBlue, LineType::Solid, "|r-40",
                           0.5);
    // 303.15 * 0.5^0.288 = 248.29 K, 283.15 * 0.85^0.288 = 270.21 K, 373.15 * 0.2^0.288 = 234.73 K, at 100 mb 192.25 K
    expectLines<Adiabats>({{-24.86, 500.0}, {-2.94, 850.0}, {-38.42, 200.0}, {-80.90, 100.0}, {20.0, 1000.0}}, 1e-3,
                          {25.0, 1000.0}, kBlack, LineType::Solid, "|c100", 1.0);
    // Named by their values at 1000 mb, and up to 200 mb.
    expectLines<PAdiabats>({{-20.0, 1000.0}, {-5.0, 1000.0}, {20.0, 1000.0}, {35.0, 1000.0}}, 2e-3, {17.5, 1000.0},
                           kGreen, LineType::Solid, "|c 20", std::log(200.0 / 1050.0) / std::log(100.0 / 1050.0));
    // 8 g/kg: e = 1000 * 8 / 630 = 12.70 mb, dew point 10.51 deg C by Bolton's equation 11; at 500 mb 6.35 mb, 0.53.
    expectLines<IsoMR>({{10.51, 1000.0}, {0.53, 500.0}}, 1.5e-3, {7.0, 1000.0}, kGrey, LineType::Dashed, "|r8", 0.0);
    EXPECT_NE(Drawn<IsoMR>(kLimits).label("|r0.4"), nullptr);
    EXPECT_EQ(Drawn<Adiabats>(kLimits).label("|c300"), nullptr) << "outside of the plot";
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
