#include "Humidity.h"

#include <gmock/gmock.h>

#include <cmath>
#include <limits>

using testing::ElementsAre;

namespace {

constexpr double kMissing = -999.0;
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

} // namespace

TEST(Humidity, dewPointSolvesItsEquationAndNeverPassesTheTemperature) {
    for (double t = -90; t <= 50; t += 7) {
        for (const double rh : {0.01, 1.0, 20.0, 50.0, 99.0, 99.99, 100.0, 101.0, 150.0}) {
            // 10^(A - B/Td) = rh 10^(A - B/T) in closed form.
            const double td = std::fmin(t, 2353.0 / (2353.0 / (t + 273.15) - std::log10(rh / 100.0)) - 273.15);
            EXPECT_NEAR(dewPt(t, rh), td, 1e-4) << t << " " << rh;
            EXPECT_LE(dewPt(t, rh), t) << rh;
        }
    }
    EXPECT_NEAR(dewPt(20, 50), 9.3, 0.15) << "psychrometric table";
    for (const double rh : {0.0, -5.0, kMissing, kNan}) {
        EXPECT_EQ(dewPt(20, rh), kMissing) << rh;
    }
    const double t[] = {20, kMissing, 20};
    const double h[] = {50, 50, kMissing};
    EXPECT_THAT(makeDp(3, t, h), ElementsAre(dewPt(20, 50), kMissing, kMissing));
}

// Computed apart with 50 digits.
TEST(Humidity, relativeHumidity) {
    EXPECT_NEAR(rh(20, 10, 1000), 51.9105192958663, 1e-9);
    EXPECT_NEAR(rh(-10, -20, 500), 43.6894670266305, 1e-9);
}

// Vapour pressures of the Smithsonian tables (Goff and Gratch, ice point 273.16 K), mb.
TEST(Humidity, saturationMixingRatioAgreesWithTheSmithsonianTables) {
    const double cases[][2] = {{-40, 0.1891}, {-20, 1.2540}, {0, 6.1078}, {20, 23.373}, {30, 42.430}, {40, 73.777}};
    for (const auto& [t, es] : cases) {
        EXPECT_NEAR(qsatw(t + 273.16, 900), 0.62197 * es / (900 - es), 3e-4 * 0.62197 * es / 900) << t;
    }
    EXPECT_NEAR(qsatw(303.15, 900), 0.030754937748814, 1e-14) << "computed with 50 digits";
}

TEST(Humidity, floatFromDoubleCopiesEitherWay) {
    const double in[] = {1.5, 0.1, -999.0};
    std::vector<float> out(3);
    floatFromDouble(in, out.data(), 3, false);
    EXPECT_THAT(out, ElementsAre(1.5F, 0.1F, -999.0F));
    floatFromDouble(in, out.data(), 3, true);
    EXPECT_THAT(out, ElementsAre(-999.0F, 0.1F, 1.5F));
}
