#include "Altitude.h"
#include "DynWindAdjustment.h"
#include "DynamicAdjustment.h"
#include "Position.h"
#include "SeriesSpline.h"
#include "SeriesText.h"
#include "VerticalVelocity.h"
#include "W.h"

#include <cmath>
#include <gtest/gtest.h>

namespace {

class Fixed : public TimeConstant {
public:
    bool value(double time, double& out) const override {
        out = 2.0;
        return time < 30.0;
    }
};

} // namespace

// Dry isothermal air of 0 deg C: dz = 273.15 / 0.034164 ln(p1 / p2), so 842.3845 m from 1000 to 900 mb.
TEST(Altitude, IntegratesBothWays) {
    const Series pres = seriesOf("QCPres", {900.0, 1000.0});
    const Series zero = seriesOf("QCTdry", {0.0, 0.0});
    std::string log;
    Series alt(pres, "QCAltUp");
    Altitude().calculate(alt, pres, zero, zero, 60.0, 10.0, Altitude::BACKWARD, log);
    EXPECT_NEAR(alt.data(0), 852.3845, 0.001);
    alt = Series(pres, "QCAltDn");
    Altitude().calculate(alt, pres, zero, zero, 60.0, 1000.0, Altitude::FORWARD, log);
    EXPECT_NEAR(alt.data(1), 157.6155, 0.001);
}

TEST(Altitude, BridgesAGapInTemperatureAndStopsAtOneInPressure) {
    Series pres("QCPres");
    for (const double t : {0.0, 50.0, 100.0, 150.0}) {
        pres.appendValue(500.0 + t, t);
    }
    Series tdry("QCTdry");
    tdry.appendValue(-10.0, 0.0);
    tdry.appendValue(-10.0, 150.0);
    std::string log;
    Series alt(pres, "QCAltUp");
    Altitude().calculate(alt, pres, tdry, Series("QCRH"), 60.0, 0.0, Altitude::BACKWARD, log);
    EXPECT_EQ(timesOf(alt), "0 50 100 150") << "the temperature gap is 150 s wide";

    pres.remove(1);
    alt = Series(pres, "QCAltUp");
    Altitude().calculate(alt, pres, tdry, Series("QCRH"), 60.0, 0.0, Altitude::BACKWARD, log);
    EXPECT_EQ(timesOf(alt), "100 150");
    // 263.15 K and half saturated at some 625 mb, so Tv = 263.38 K: 263.38 / 0.034164 ln(650 / 600) = 617.1 m.
    EXPECT_EQ(log, "Upward integration starts @ 0.0m and stops @ 617.1m\n");

    alt = Series(pres, "QCAltUp");
    Altitude().calculate(alt, pres, seriesOf("QCTdry", {-10.0}), Series("QCRH"), 60.0, 0.0, Altitude::BACKWARD, log);
    EXPECT_EQ(log, "") << "one temperature is none";
    EXPECT_EQ(alt.data(0), 500.0);
}

// Dry air of 0 deg C: 7995.26 ln 2 = 5541.9 m from 2 to 1 mb.
TEST(Altitude, StopsWhereTheMeanTemperatureHasNoWeights) {
    const Series pres = seriesOf("QCPres", {1.0, 1.0, 2.0});
    const Series zero = seriesOf("QCTdry", {0.0, 0.0, 0.0});
    std::string log;
    Series alt(pres, "QCAltUp");
    Altitude().calculate(alt, pres, zero, zero, 60.0, 10.0, Altitude::BACKWARD, log);
    EXPECT_EQ(timesOf(alt), "1 2");
    EXPECT_EQ(log, "Upward integration starts @ 10.0m and stops @ 5551.9m\n");
}

// A degree of latitude at the equator is 110.567 km, one of longitude 111.320 km: 10 m/s move 9.0443e-5 and 8.9831e-5
// degrees in a second.
TEST(Position, FollowsTheWindFromTheLaunch) {
    const Series wind = seriesOf("QCu", {10.0, 10.0, 10.0}, -1.0);
    Series lat = seriesOf("QCLat", {0.0, -999.0, -999.0}, -1.0);
    Series lon = seriesOf("QCLon", {-80.0, -999.0, -999.0}, -1.0);
    Position().calculate(wind, wind, lat, lon, 60.0);
    EXPECT_NEAR(lat.data(2), 2 * 9.0443e-5, 1e-8);
    EXPECT_NEAR(lon.data(2) + 80.0, 2 * 8.9831e-5, 1e-8);

    Series late = seriesOf("QCu", {10.0, 10.0}, -1.0);
    late.appendValue(10.0, 100.0);
    lat = seriesOf("QCLat", {0.0, -999.0}, -1.0);
    lat.appendValue(-999.0, 50.0);
    lon = Series(lat, "QCLon");
    Position().calculate(late, late, lat, lon, 60.0);
    EXPECT_EQ(timesOf(lat), "-1 0") << "a gap in the wind ends the position";
    EXPECT_EQ(timesOf(lon), "-1 0");
}

TEST(DynamicAdjustment, AddsLagTimesSlope) {
    Series tdry("QCTdry");
    for (int i = 0; i <= 60; ++i) {
        tdry.appendValue(-20.0 + 0.1 * i, i);
    }
    tdry.setAttribute(0, Value::ObsFlight);
    tdry.setAttribute(60, Value::ObsSurface);
    ASSERT_TRUE(DynamicAdjustment().adjust(&tdry, Fixed(), 20.0));
    EXPECT_EQ(tdry.data(0), -20.0) << "the launch value";
    EXPECT_NEAR(tdry.data(10), -20.0 + 1.0 + 2.0 * 0.1, 1e-6);
    EXPECT_NEAR(tdry.data(40), -20.0 + 4.0, 1e-12) << "without a time constant";
    EXPECT_EQ(tdry.data(60), -14.0) << "the surface value";

    Series two = seriesOf("QCTdry", {1.0, 2.0});
    EXPECT_FALSE(DynamicAdjustment().adjust(&two, Fixed(), 20.0));
}

TEST(DynWindAdjustment, AddsAccelerationTimesFallRateOverGravity) {
    Series u("QCu");
    Series dz("QCDz");
    for (int i = 0; i <= 60; ++i) {
        u.appendValue(5.0 + 0.2 * i, i);
        dz.appendValue(-9.80665, i);
    }
    ASSERT_TRUE(DynWindAdjustment().adjust(&dz, &u, 10.0));
    EXPECT_NEAR(u.data(30), 5.0 + 6.0 + 0.2, 1e-6);
    EXPECT_NEAR(u.data(60), 5.0 + 12.0 + 0.2, 1e-6) << "by the short wavelength, which has the same slope here";
    const Series before(u, "QCu");
    const Series noFallRate("QCDz");
    ASSERT_TRUE(DynWindAdjustment().adjust(&noFallRate, &u, 10.0));
    EXPECT_EQ(textOf(u), textOf(before)) << "without a fall rate";
}

// Over the last 4 s the short wavelength takes over from the long one.
TEST(DynWindAdjustment, EndsWithTheShortWavelength) {
    Series u("QCu");
    Series dz("QCDz");
    for (int i = 0; i <= 60; ++i) {
        u.appendValue(5.0 + 2.0 * std::sin(0.9 * i), i);
        dz.appendValue(-9.80665, i);
    }
    const Series before = u;
    const BSpline<double> longWave = splineOf(before, 20.0);
    const BSpline<double> shortWave = splineOf(before, 4.0);
    ASSERT_TRUE(DynWindAdjustment().adjust(&dz, &u, 20.0));
    for (const auto& [i, share] : {std::pair(55, 1.0), {56, 1.0}, {57, 0.75}, {59, 0.25}, {60, 0.0}}) {
        EXPECT_GT(std::abs(shortWave.slope(i) - longWave.slope(i)), 0.1) << "the two can be told apart";
        EXPECT_NEAR(u.data(i) - before.data(i), share * longWave.slope(i) + (1.0 - share) * shortWave.slope(i), 1e-9)
            << i;
    }
}

// dz/dt = -287.04 Tv / (p g) dp/dt: in dry air of 0 deg C at 500 mb, 1 mb/s is a fall of 15.9902 m/s.
TEST(VerticalVelocity, IsHydrostatic) {
    Series pres("QCPres");
    for (int i = 0; i <= 60; ++i) {
        pres.appendValue(470.0 + i, i);
    }
    pres.setAttribute(0, Value::ObsFlight);
    Series tdry = seriesOf("QCTdry", {0.0});
    tdry.appendValue(0.0, 60.0);
    Series rh = seriesOf("QCRH", {0.0});
    rh.appendValue(0.0, 60.0);
    Series dz("QCDz");
    ASSERT_TRUE(VerticalVelocity().verticalVelocity(&pres, &tdry, &rh, &dz, 10.0));
    EXPECT_EQ(dz.time(0), 1.0) << "the launch value has no rate";
    EXPECT_NEAR(dz.data(29), -15.9902, 0.001);

    // The theoretical fall speed at 500 mb and 0 deg C is 13.3836 m/s for 900 cm2, 0.61 and 320 g.
    Series w("QCW");
    ASSERT_TRUE(W().w(&dz, &pres, &tdry, 900.0, 0.61, 320.0, &w));
    EXPECT_NEAR(w.data(29), 13.3836 - 15.9902, 0.002);
    Series few = seriesOf("QCDz", {-10.0, -10.0});
    EXPECT_FALSE(W().w(&few, &pres, &tdry, 900.0, 0.61, 320.0, &w));
    EXPECT_TRUE(w.empty());
}
