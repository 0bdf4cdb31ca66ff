#include "Trend.h"
#include "MakeSeries.h"

#include <gtest/gtest.h>

#include <cmath>

// The first by hand: mean time 2, mean datum 4; slope (-2*1 - 1*2 + 0*6 + 3*7) / (4 + 1 + 0 + 9) = 17/14; offset
// 4 - 17/7 = 11/7; residuals -8/14, -11/14, 2, -9/14, so the mean of their squares is (64 + 121 + 784 + 81) / 196 / 4.
TEST(Trend, leastSquaresByHand) {
    const struct {
        std::vector<Sample> samples;
        double slope, offset, deviation;
    } cases[] = {
        {{{0, 1}, {1, 2}, {2, 6}, {5, 7}}, 17.0 / 14.0, 11.0 / 7.0, std::sqrt(75.0 / 56.0)},
        {{}, 0, 0, 0},
        {{{3, 5}}, 0, 5, 0},
        {{{0.1, 1}, {0.1, 2}, {0.1, 6}}, 0, 3, std::sqrt(14.0 / 3.0)},
    };
    for (const auto& c : cases) {
        const Trend trend(makeSeries(c.samples));
        EXPECT_NEAR(trend.slope(), c.slope, 1e-14);
        EXPECT_NEAR(trend.offset(), c.offset, 1e-14);
        EXPECT_NEAR(trend.stdDevDetrend(), c.deviation, 1e-14);
    }
}
