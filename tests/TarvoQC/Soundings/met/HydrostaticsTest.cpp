#include "Hydrostatics.h"

#include <gtest/gtest.h>

// ICAO standard atmosphere, dry: 111 m and 14.28 C at 1000 mb, 1457 m and 5.53 C at 850, 3012 m and -4.57 C at 700,
// 5574 m and -21.23 C at 500. The weighting of the mean temperature leaves a few metres in the thicker layers.
TEST(Hydrostatics, followTheStandardAtmosphere) {
    EXPECT_NEAR(deltaZ(1000, 850, 14.28, 5.53, 0, 0), 1457 - 111, 1.5);
    EXPECT_NEAR(deltaZ(850, 700, 5.53, -4.57, 0, 0), 3012 - 1457, 2.5);
    EXPECT_NEAR(deltaZ(700, 500, -4.57, -21.23, 0, 0), 5574 - 3012, 4);
    EXPECT_NEAR(hydroP(1000, 14.28, 5.53, 0, 0, 111, 1457), 850, 0.3);
    EXPECT_NEAR(hydroP(500, -21.23, -4.57, 0, 0, 5574, 3012), 700, 0.6);
}

// Computed apart with 50 digits.
TEST(Hydrostatics, ofMoistAir) {
    EXPECT_NEAR(deltaZ(1000, 900, 20, 15, 80, 60), 901.646903463487, 1e-9);
    EXPECT_NEAR(deltaZ(900, 1000, 15, 20, 60, 80), -901.646903463487, 1e-9);
    EXPECT_NEAR(hydroP(1000, 20, 15, 80, 60, 0, 850), 905.509810113743, 1e-9);
    EXPECT_NEAR(hydroP(850, 10, 18, 50, 90, 1500, 300), 979.617646683971, 1e-9);
}

TEST(Hydrostatics, equalHeightsKeepThePressureWhateverTheAirIsLike) {
    EXPECT_EQ(hydroP(873.25, -999.0, -273.15, 50, 1e9, 812.5, 812.5), 873.25);
}
