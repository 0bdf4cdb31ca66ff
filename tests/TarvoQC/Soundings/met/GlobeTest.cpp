#include "Globe.h"

#include <cmath>
#include <gtest/gtest.h>

TEST(Globe, hasItsBounds) {
    EXPECT_TRUE(isOnGlobe(90, -180));
    EXPECT_TRUE(isOnGlobe(-90, 180));
    EXPECT_FALSE(isOnGlobe(90.01, 0));
    EXPECT_FALSE(isOnGlobe(0, -180.01));
    EXPECT_FALSE(isOnGlobe(-999, -999));
    EXPECT_FALSE(isOnGlobe(NAN, 0));
    EXPECT_FALSE(isOnGlobe(0, NAN));
}

// One degree of the Clarke 1866 ellipsoid (a = 6378206.4 m, b = 6356583.8 m), from its radii of curvature.
TEST(Globe, degreeLengthsAreThoseOfTheEllipsoid) {
    const double cases[][3] = {{0, 110.56721, 111.32070},
                               {-30, 110.84845, 96.488227},
                               {45, 111.13089, 78.849162},
                               {60, 111.41453, 55.802171},
                               {90, 111.69937, 0.0}};
    for (const auto& [lat, north, east] : cases) {
        EXPECT_NEAR(kmperdeglat(lat), north, 0.0012) << lat;
        EXPECT_NEAR(kmperdeglon(lat), east, 0.0002) << lat;
    }
    // The small terms, by hand at the equator.
    EXPECT_NEAR(kmperdeglat(0), 110.566158, 1e-9);
    EXPECT_NEAR(kmperdeglon(0), 111.3207, 1e-9);
}
