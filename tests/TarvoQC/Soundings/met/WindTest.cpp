#include "Wind.h"

#include <gtest/gtest.h>

// The last digits come of pi as 3.14159: half a turn is 180.000152 degrees then.
TEST(Wind, speedAndDirectionOfComponentsAndBack) {
    const double cases[][4] = {{0, 0, 0, 0},
                               {-5, 0, 5, 90},
                               {0, -5, 5, 359.999924},
                               {-0.03, -4, 4.000112498418, 0.429634}, // a little east of north
                               {3, 4, 5, 216.870005}};
    double u = 99;
    double v = 99;
    for (const auto& [east, north, speed, direction] : cases) {
        double spd = -1;
        double dir = -1;
        SpeedDir(east, north, spd, dir);
        EXPECT_NEAR(spd, speed, 1e-12) << east << " " << north;
        EXPECT_NEAR(dir, direction, 2e-6) << east << " " << north;
        UandV(spd, dir, u, v);
        EXPECT_NEAR(u, east, 1e-4) << east << " " << north;
        EXPECT_NEAR(v, north, 1e-4) << east << " " << north;
    }
    UandV(5, 90, u, v);
    EXPECT_NEAR(v, 5 * 5.30717958645e-6, 1e-12) << "a whole turn of the short pi falls short by this angle";
}
