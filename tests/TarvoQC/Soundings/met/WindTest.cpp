#include "Wind.h"

#include <gtest/gtest.h>

// The last digits come of pi as 3.14159: half a turn is 180.000152 degrees then.
TEST(Wind, speedAndDirectionOfComponents) {
    const double cases[][4] = {{0, 0, 0, 0},           {-5, 0, 5, 90},
                               {0, -5, 5, 359.999924}, {-0.03, -4, 4.000112498418, 0.429634}, // a little east of north
                               {0, 5, 5, 180.000076},  {3, 4, 5, 216.870005},
                               {-3, -4, 5, 36.869853}};
    for (const auto& [u, v, speed, direction] : cases) {
        double spd = -1;
        double dir = -1;
        SpeedDir(u, v, spd, dir);
        EXPECT_NEAR(spd, speed, 1e-12) << u << " " << v;
        EXPECT_NEAR(dir, direction, 2e-6) << u << " " << v;
    }
}

TEST(Wind, componentsPointWhereTheWindGoes) {
    const double cases[][3] = {{0, 0, -5}, {90, -5, 0}, {180, 0, 5}, {270, 5, 0}, {30, -2.5, -4.330127}};
    double u = 99;
    double v = 99;
    for (const auto& [dir, east, north] : cases) {
        UandV(5, dir, u, v);
        EXPECT_NEAR(u, east, 1e-4) << dir;
        EXPECT_NEAR(v, north, 1e-4) << dir;
    }
    UandV(5, 90, u, v);
    EXPECT_NEAR(v, 5 * 5.30717958645e-6, 1e-12) << "a whole turn of the short pi falls short by this angle";
}
