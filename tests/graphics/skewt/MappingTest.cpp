#include "RecordingAdapter.h"
#include "SkewT.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace skewt;

namespace {

constexpr Limits kLimits{-40.0, 40.0, 100.0, 1050.0};

struct SkewTMapping : testing::Test {
    RecordingAdapter adapter;
    SkewTRect rect{adapter, SkewT::kPlot, kLimits, SkewT::kSkew};
};

} // namespace

TEST_F(SkewTMapping, pageAndBack) {
    const Point middle = rect.convertToPage({0.5, 0.5});
    EXPECT_DOUBLE_EQ(middle.x, 0.49);  // of 0.08 and 0.9
    EXPECT_DOUBLE_EQ(middle.y, 0.485); // of 0.07 and 0.9
    const Point back = rect.convertToData({0.9, 0.07});
    EXPECT_NEAR(back.x, 1.0, 1e-12);
    EXPECT_NEAR(back.y, 0.0, 1e-12);
}

TEST_F(SkewTMapping, aspectIsThatOfTheRectangleAsSeen) {
    adapter.aspect = 0.75;
    const Rect narrow(adapter, {0.9, 1.0, 0.1, 0.9});
    EXPECT_NEAR(narrow.aspectRatio(), 0.8 * 0.75 / 0.1, 1e-12);
}

TEST_F(SkewTMapping, samplesOutsideAreDropped) {
    rect.addTdry(0.0, 500.0);
    rect.addTdry(0.0, 1051.0);
    rect.addTdry(-40.1, 1050.0);
    rect.addDp(40.0, 1050.0);
    rect.addDp(0.0, 99.0);
    rect.addDp(std::nan(""), 500.0);
    ASSERT_EQ(adapter.tdry.size(), 1U);
    ASSERT_EQ(adapter.dp.size(), 1U);
    const double y = std::log(500.0 / 1050.0) / std::log(100.0 / 1050.0);
    EXPECT_NEAR(adapter.tdry[0].x, 0.08 + 0.82 * (0.5 + y / 1.125), 1e-12);
    EXPECT_NEAR(adapter.tdry[0].y, 0.07 + 0.83 * y, 1e-12);
    EXPECT_NEAR(adapter.dp[0].x, 0.9, 1e-12);
}

namespace {

struct ClipCase {
    Line line;
    bool accepted;
    Line left;
};

} // namespace

TEST(SkewTClipping, cutsAtEveryEdge) {
    RecordingAdapter adapter;
    const Rect rect(adapter, {0.0, 1.0, 0.0, 1.0});
    const ClipCase cases[] = {
        {{{0.2, 0.3}, {0.6, 0.7}}, true, {{0.2, 0.3}, {0.6, 0.7}}},
        {{{-1.0, 0.5}, {3.0, 0.5}}, true, {{0.0, 0.5}, {1.0, 0.5}}},
        {{{3.0, 0.75}, {0.5, 0.25}}, true, {{1.0, 0.35}, {0.5, 0.25}}},
        {{{0.5, 0.25}, {0.5, 1.75}}, true, {{0.5, 0.25}, {0.5, 1.0}}},
        {{{0.25, 2.0}, {0.25, -2.0}}, true, {{0.25, 1.0}, {0.25, 0.0}}},
        {{{-0.5, 0.0}, {0.5, 1.0}}, true, {{0.0, 0.5}, {0.5, 1.0}}},
        {{{-0.5, -0.25}, {1.5, 1.25}}, true, {{0.0, 0.125}, {1.0, 0.875}}},
        {{{0.0, 0.0}, {1.0, 1.0}}, true, {{0.0, 0.0}, {1.0, 1.0}}},
        {{{-0.5, 0.9}, {0.4, 1.8}}, false, {}}, // past the corner, though it shares no side
        {{{1.1, 0.2}, {1.2, 0.9}}, false, {}},
        {{{0.2, -0.1}, {0.9, -0.2}}, false, {}},
    };
    for (const ClipCase& c : cases) {
        Line line = c.line;
        ASSERT_EQ(rect.clip(line), c.accepted) << c.line.p1.x << ", " << c.line.p1.y;
        if (c.accepted) {
            EXPECT_NEAR(line.p1.x, c.left.p1.x, 1e-12);
            EXPECT_NEAR(line.p1.y, c.left.p1.y, 1e-12);
            EXPECT_NEAR(line.p2.x, c.left.p2.x, 1e-12);
            EXPECT_NEAR(line.p2.y, c.left.p2.y, 1e-12);
        }
    }
}

TEST(SkewTClipping, onlyWhenAskedFor) {
    RecordingAdapter adapter;
    Rect rect(adapter, {0.0, 0.5, 0.0, 1.0});
    rect.drawLine({{-1.0, 0.5}, {3.0, 0.5}}, kRed, LineType::Dashed, false);
    rect.drawLine({{-1.0, 0.5}, {3.0, 0.5}}, kRed, LineType::Dashed, true);
    rect.drawLine({{-1.0, 2.0}, {3.0, 2.0}}, kRed, LineType::Dashed, true);
    ASSERT_EQ(adapter.lines.size(), 2U);
    EXPECT_DOUBLE_EQ(adapter.lines[0].line.p2.x, 1.5);
    EXPECT_DOUBLE_EQ(adapter.lines[1].line.p2.x, 0.5);
    EXPECT_EQ(adapter.lines[1].type, LineType::Dashed);
}
