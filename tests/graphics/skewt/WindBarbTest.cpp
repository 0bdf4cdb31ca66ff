#include "WindBarb.h"
#include "RecordingAdapter.h"
#include "WindBarbs.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>

using namespace skewt;

namespace {

constexpr double kKnots = 1.94; // in a metre per second

/// Pennants, full and half strokes.
using Strokes = std::array<int, 3>;

struct Barb {
    Barb(double metresPerSecond, double dir, double aspect = 1.0) {
        adapter.aspect = aspect;
        Rect rect(adapter, {0.0, 1.0, 0.0, 1.0});
        WindBarb(rect, 0.5, 0.5, metresPerSecond, dir).draw();
    }

    double length(std::size_t i) const {
        const Line& line = adapter.lines.at(i).line;
        return std::hypot(line.p2.x - line.p1.x, (line.p2.y - line.p1.y) * adapter.aspect);
    }
    /// Counts the strokes by their lengths: each is drawn out and back.
    Strokes strokes() const {
        Strokes counted{};
        EXPECT_NEAR(length(0), 0.4, 1e-9);
        for (std::size_t i = 1; i < adapter.lines.size(); i += 2) {
            EXPECT_NEAR(length(i), length(i + 1), 1e-9);
            counted[0] += std::abs(length(i) - 0.11547) < 1e-4;
            counted[1] += std::abs(length(i) - 0.1) < 1e-4;
            counted[2] += std::abs(length(i) - 0.05) < 1e-4;
        }
        return counted;
    }
    Point end(std::size_t i) const { return adapter.lines.at(i).line.p2; }

    RecordingAdapter adapter;
};

} // namespace

TEST(WindBarb, strokesOfASpeed) {
    for (const double limit : {10.0, 50.0, 100.0}) {
        ASSERT_EQ(limit / kKnots * kKnots, limit) << "the limit itself, which is strict";
    }
    const std::pair<double, Strokes> cases[] = {{-5.0, {0, 0, 0}},  {3.0, {0, 0, 0}},  {7.0, {0, 0, 1}},
                                                {10.0, {0, 0, 1}},  {12.0, {0, 1, 0}}, {50.0, {0, 4, 1}},
                                                {52.0, {1, 0, 0}},  {64.9, {1, 1, 0}}, {65.1, {1, 1, 1}},
                                                {100.0, {1, 4, 1}}, {103.0, {2, 0, 0}}};
    for (const auto& [knots, strokes] : cases) {
        EXPECT_EQ(Barb(knots / kKnots, 270.0).strokes(), strokes) << knots;
    }
    EXPECT_LT(Barb(1e12, 270.0).adapter.lines.size(), 60U);
}

TEST(WindBarb, staffPointsToWhereTheWindComesFrom) {
    const double diagonal = 0.4 * std::sqrt(0.5);
    const std::pair<double, Point> cases[] = {
        {270.0, {0.1, 0.5}}, {0.0, {0.5, 0.9}}, {135.0, {0.5 + diagonal, 0.5 - diagonal}}};
    for (const auto& [dir, end] : cases) {
        EXPECT_NEAR(Barb(5.0, dir).end(0).x, end.x, 1e-5) << dir;
        EXPECT_NEAR(Barb(5.0, dir).end(0).y, end.y, 1e-5) << dir;
    }
}

TEST(WindBarb, barbsAndPennantsOnTheLeftOfTheWindFromTheEndInwards) {
    // 30.1 knots from the west: the wind blows to the right, the barbs point up, at 0.1, 0.15 and 0.2.
    const Barb barb(30.1 / kKnots, 270.0);
    ASSERT_EQ(barb.adapter.lines.size(), 7U);
    for (std::size_t i = 0; i < 3; ++i) {
        EXPECT_NEAR(barb.end(1 + 2 * i).x, 0.1 + 0.05 * static_cast<double>(i), 1e-5);
        EXPECT_NEAR(barb.end(1 + 2 * i).y, 0.6, 1e-5);
    }
    // From the north they point to the east.
    EXPECT_NEAR(Barb(30.1 / kKnots, 360.0).end(1).x, 0.6, 1e-5);
    // 112 knots: two pennants of 0.11547 from x 0.1 on, a gap of 0.03333, and a barb.
    const Barb pennants(112.0 / kKnots, 270.0);
    EXPECT_NEAR(pennants.end(1).x, 0.1 + 0.11547 / 2.0, 1e-4);
    EXPECT_NEAR(pennants.end(4).x, 0.33094, 1e-4);
    EXPECT_NEAR(pennants.end(5).x, 0.33094 + 0.03333, 1e-4);
}

TEST(WindBarb, keepsItsShapeOnAnyPage) {
    const Barb barb(88.0 / kKnots, 225.0, 8.3);
    EXPECT_EQ(barb.strokes(), (Strokes{1, 3, 1}));
    EXPECT_NEAR(barb.end(0).x, 0.5 - 0.4 * std::sqrt(0.5), 1e-5);
    EXPECT_NEAR(barb.end(0).y, 0.5 - 0.4 * std::sqrt(0.5) / 8.3, 1e-5);
}

namespace {

struct Barbs {
    Barbs(const std::vector<double>& pres, int numWinds, double pTop = 100.0, double pBottom = 1000.0)
        : barbs(adapter, 0.9, 1.0, 0.0, 1.0, pTop, pBottom, pres, std::vector<double>(pres.size(), 1.0),
                std::vector<double>(pres.size(), 180.0), numWinds) {
        barbs.draw();
    }
    std::vector<double> heights() const {
        std::vector<double> y;
        for (const Point& at : adapter.symbols) {
            y.push_back(at.y);
        }
        return y;
    }
    RecordingAdapter adapter;
    WindBarbs barbs;
};

} // namespace

TEST(WindBarbs, oneInASegmentThatOfTheHighestPressure) {
    // Ten segments of a tenth of the decade: 900 and 800 mb lie in the first (down to 794), 780 in the second.
    const Barbs drawn({780.0, 800.0, 900.0, 100.0, 1000.1, 99.9}, 10);
    const std::vector<double> heights = drawn.heights();
    ASSERT_EQ(heights.size(), 3U);
    EXPECT_NEAR(heights[0], 1.0 - std::log10(900.0 / 100.0), 1e-9);
    EXPECT_NEAR(heights[1], 1.0 - std::log10(780.0 / 100.0), 1e-9);
    EXPECT_NEAR(heights[2], 1.0, 1e-9);
    EXPECT_NEAR(drawn.adapter.symbols[0].x, 0.95, 1e-12);
    EXPECT_EQ(drawn.adapter.symbolType, SymType::Base);
}

TEST(WindBarbs, asManyAsAskedFor) {
    std::vector<double> pres;
    for (double p = 999.0; p > 100.0; p -= 0.5) {
        pres.push_back(p);
    }
    for (const auto& [asked, drawn] : {std::pair(20, 20U), {1, 1U}, {0, 0U}, {-3, 0U}}) {
        EXPECT_EQ(Barbs(pres, asked).heights().size(), drawn) << asked;
    }
    EXPECT_EQ(Barbs({900.0, 899.0, 898.0}, 5000).heights().size(), 3U);
    EXPECT_EQ(Barbs({900.0, 899.5}, 20, 899.2, 900.1).heights().size(), 0U) << "too little pressure";
}
