#include "SkewTMetFormulas.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

const skewt::SkewTMetFormulas formulas;

/// Bolton (1980), equation 10: vapour pressure, mb, at \p t (deg C).
double boltonVapourPressure(double t) {
    return 6.112 * std::exp(17.67 * t / (t + 243.5));
}

/// Bolton (1980), equations 43 and 2, for saturated air, with his own constants throughout.
double boltonThetaE(double T, double p) {
    const double e = boltonVapourPressure(T - 273.15);
    const double r = 622.0 * e / (p - e);
    return T * std::pow(1000.0 / p, 0.2854 * (1.0 - 0.28e-3 * r)) *
           std::exp((3.376 / T - 0.00254) * r * (1.0 + 0.81e-3 * r));
}

} // namespace

TEST(SkewTMetFormulas, vapourPressures) {
    // Steam tables: the triple point, and 20 and -20 deg C over water.
    EXPECT_NEAR(formulas.e_sw_hardy_1998(273.16), 6.1166, 1e-3);
    EXPECT_NEAR(formulas.e_sw_hardy_1998(293.15), 23.39, 0.01);
    EXPECT_NEAR(formulas.e_sw_hardy_1998(253.15), 1.2559, 2e-3);
    EXPECT_DOUBLE_EQ(formulas.e_sw_herzegh_1988(210.0), 0.01296);
    EXPECT_DOUBLE_EQ(formulas.e_sw_herzegh_1988(273.0), 6.04158);
    EXPECT_DOUBLE_EQ(formulas.e_sw_herzegh_1988(310.0), 62.14212);
    // Half way between two nodes it is their mean, which the formula isn't: it is convex.
    const double mean = (formulas.e_sw_herzegh_1988(300.0) + formulas.e_sw_herzegh_1988(300.5)) / 2.0;
    EXPECT_DOUBLE_EQ(formulas.e_sw_herzegh_1988(300.25), mean);
    // Beyond it the formula: 6.1078 * 4.7615 * exp(-9.0873) and 6.1078 * 0.45270 * exp(3.63757).
    EXPECT_NEAR(formulas.e_sw_herzegh_1988(200.0), 0.0032900, 2e-6);
    EXPECT_NEAR(formulas.e_sw_herzegh_1988(320.0), 105.07, 0.02);
}

TEST(SkewTMetFormulas, thetaIsPoissonsInEveryRange) {
    const auto expectPoissons = [](double p, double tolerance) {
        const double poisson = 250.0 * std::pow(1000.0 / p, 0.28537338);
        EXPECT_NEAR(formulas.theta_dry(250.0, p), poisson, tolerance) << p;
        EXPECT_NEAR(formulas.theta_to_t(poisson, p), 250.0, tolerance) << p;
    };
    for (const double p : {850.0, 600.0, 450.0, 300.0, 210.0, 150.0, 125.0, 100.0, 20.0}) {
        expectPoissons(p, 0.001);
    }
    for (const double p : {1050.0, 1000.0, 500.5, 499.5, 250.5, 249.5, 126.0}) { // where the polynomials end
        expectPoissons(p, 0.01);
    }
}

TEST(SkewTMetFormulas, thetaEOfAir) {
    EXPECT_NEAR(formulas.w_sat(293.15, 1000.0), 14.90, 0.01); // 622 * 23.388 / (1000 - 23.388)
    EXPECT_NEAR(formulas.theta_e(293.15, 293.15, 1000.0), boltonThetaE(293.15, 1000.0), 0.15);
    EXPECT_NEAR(formulas.theta_e(300.0, 200.0, 700.0), formulas.theta_dry(300.0, 700.0), 0.02) << "dry";
    EXPECT_LT(formulas.theta_e(293.15, 283.15, 1000.0), formulas.theta_e(293.15, 293.15, 1000.0));
}

TEST(SkewTMetFormulas, saturatedAirKeepsItsThetaE) {
    for (double start = 233.15; start < 309.0; start += 5.0) {
        const double thetaE = formulas.theta_e(start, start, 1000.0);
        EXPECT_NEAR(formulas.t_sat(thetaE, 1000.0), start, 0.02);
        for (double p = 1050.0; p >= 200.0; p -= 50.0) {
            const double T = formulas.t_sat(thetaE, p);
            EXPECT_NEAR(formulas.theta_e(T, T, p), thetaE, 0.05) << start << " " << p;
            if (start <= 303.0) {
                EXPECT_NEAR(boltonThetaE(T, p), thetaE, 0.35) << start << " " << p;
            }
        }
    }
    formulas.t_sat(1e300, 1000.0); // ends
    // Colder than the first round of the bisection comes.
    EXPECT_LT(formulas.t_sat(233.5, 200.0), 150.0);
}

TEST(SkewTMetFormulas, condensationLevel) {
    // 1 / (1 / 227.15 + ln(293.15 / 283.15) / 800) + 56, and 1000 (280.93 / 293.15)^(1 / 0.28537)
    EXPECT_NEAR(formulas.lcl_temp(293.15, 283.15), 280.93, 0.01);
    EXPECT_NEAR(formulas.lcl_pres(293.15, 283.15, 1000.0), 861.4, 0.2);
    EXPECT_DOUBLE_EQ(formulas.lcl_pres(283.15, 283.15, 900.0), 900.0);
    formulas.lcl_pres(300.0, 500.0, 1000.0); // ends, with more vapour than the air can hold
}

TEST(SkewTMetFormulas, wetBulbAndVirtualTemperature) {
    // Psychrometric tables at 1000 mb: 20 deg C with a dew point of 10 deg C (53 %) has a wet bulb of 14 deg C.
    EXPECT_NEAR(formulas.t_wet(293.15, 283.15, 1000.0), 287.2, 0.3);
    EXPECT_NEAR(formulas.t_wet(290.0, 290.0, 900.0), 290.0, 0.02);
    // 300 (1 + 0.608 w) with w of 10 g/kg, to the second order in w.
    EXPECT_NEAR(formulas.t_v(300.0, formulas.t_mr(850.0, 10.0), 850.0), 301.81, 0.02);
    EXPECT_NEAR(formulas.dewpoint(formulas.e_from_dp(265.5)), 265.5, 1e-3);
    EXPECT_DOUBLE_EQ(skewt::SkewTMetFormulas::square(3.0), 9.0);
    EXPECT_DOUBLE_EQ(skewt::SkewTMetFormulas::ten_to_the(3.0), 1000.0);
}
