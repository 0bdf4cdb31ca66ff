#include "MetFormulas.h"

#include <gtest/gtest.h>

// Saturation pressures of water from the international steam tables (Wagner and Pruss), mb.
TEST(MetFormulas, saturationPressureAgreesWithTheSteamTables) {
    const double cases[][2] = {{0.01, 6.11657}, {20, 23.393}, {25, 31.699}, {50, 123.52}, {100, 1014.18}};
    for (const auto& [t, mb] : cases) {
        EXPECT_NEAR(MetFormulas().e_sw_hardy_1998(t + 273.15), mb, 1e-4 * mb) << t;
    }
    EXPECT_NEAR(MetFormulas().e_sw_hardy_1998(-40 + 273.15), 0.190310977649393, 1e-13) << "computed with 50 digits";
}

// theta_e and w computed apart with 50 digits; 2^(2/7) = 1.219013654.
TEST(MetFormulas, potentialTemperatures) {
    const MetFormulas formulas;
    EXPECT_DOUBLE_EQ(formulas.theta_dry(280.0, 1000.0), 280.0);
    EXPECT_NEAR(formulas.theta_dry(250.0, 500.0), 304.7534135511, 1e-9);
    const double cases[][5] = {{20, 18, 850, 15.4846516749, 354.033714762583},
                               {30, 20, 1000, 14.8987325502734, 347.571761795297},
                               {-10, -30, 500, 0.635451853616, 323.145899453141},
                               {25, 25, 1013.25, 20.0875019594, 355.362464225049}};
    for (const auto& [t, td, p, w, thetaE] : cases) {
        EXPECT_NEAR(formulas.w_sat(td + 273.15, p), w, 1e-9) << td;
        EXPECT_NEAR(formulas.theta_e(t + 273.15, td + 273.15, p), thetaE, 1e-9) << t;
    }
}
