#include "MandatoryHeights.h"
#include "MessageText.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

std::string message(const std::string& levels) {
    return "TTAA 0112/ 72469 99/// ///// ///// " + levels + " 88999 77999";
}

} // namespace

// Dry air of one temperature, so that a layer is T / 0.034164 ln(p1/p2) thick. At 17 deg C that is 2858 m from 700 to
// 500 mb, 1649 m from 850 to 700, 718 m from 925 to 850, 662 m from 1000 to 925; at -50 deg C 509, 552 and 1268 m
// between 1000, 925, 850 and 700 mb.
TEST(MandatoryHeights, GiveWayToHydrostaticsOnly) {
    struct Case {
        const char* what;
        const char* levels;
        std::vector<double> heights;
    };
    const Case cases[] = {
        {"deep hurricane", "00/// ///// 92066 170// 85784 170// 70433 170// 50529 170//", {66, 784, 2433, 5290}},
        {"deeper still", "00/// ///// 92680 170// 85538 170// 70187 170// 50504 170//", {-180, 538, 2187, 5040}},
        {"sea level reached",
         "00658 170// 92504 170// 85222 170// 70871 170// 50573 170//",
         {-158, 504, 1222, 2871, 5730}},
        {"height missing", "00/// ///// 92066 170// 85784 170// 70/// 170// 50529 170//", {66, 784, -999, 5290}},
        {"temperature missing", "00/// ///// 92066 170// 85784 170// 70433 ///// 50529 170//", {66, 1784, 3433, 5290}},
        {"garbled digits", "00/// ///// 92066 170// 85384 170// 70433 170// 50529 170//", {66, 1384, 2433, 5290}},
        {"no anchor", "00/// ///// 92066 170// 85784 170// 70433 170//", {66, 1784, 3433}},
        {"polar air", "00020 501// 92529 501// 85081 501// 70349 501//", {20, 529, 1081, 2349}},
    };
    for (const Case& test : cases) {
        EXPECT_EQ(column(UnLevels(message(test.levels)), UnLevels::MANDATORY, UnLevels::HEIGHT), test.heights)
            << test.what;
    }
    // Used on the way, and still not told.
    EXPECT_FALSE(UnLevels(message(cases[3].levels)).levels({UnLevels::MANDATORY})[2].has(UnLevels::HEIGHT));
}

// The eye of a hurricane from 700 mb: no level has all air around it, and 1000 and 925 mb lie below the sea. Dry air
// again: at 27 deg C 695 m from 920 to 850 mb, 968 m from 949, and 1706 m on to 700; at 17 deg C 1465 m from 1010 to
// 850 mb.
TEST(MandatoryHeights, RestOnTheSeaWithoutAnyOther) {
    struct Case {
        const char* what;
        const char* part;
        const char* surface;
        const char* levels;
        std::vector<double> heights;
    };
    const Case cases[] = {
        {"drop", "XXAA 6212/", "99920 270//", "85695 270// 70401 270//", {695, 2401}},
        {"ship", "UUAA ABCD 6212/", "99920 270//", "85695 270// 70401 270//", {695, 2401}},
        {"usual air", "XXAA 6212/", "99010 170//", "85465 170// 70114 170//", {1465, 3114}},
        {"extrapolated", "XXAA 6212/", "99920 /////", "85695 270// 70401 270//", {695, 2401}},
        {"less deep", "XXAA 6212/", "99949 /////", "85968 270// 70674 270//", {968, 2674}},
        {"temperatures missing", "XXAA 6212/", "99920 /////", "85695 ///// 70401 270//", {1695, 3401}},
        {"surface missing", "XXAA 6212/", "99/// /////", "85695 270// 70401 270//", {1695, 3401}},
    };
    for (const Case& test : cases) {
        const UnLevels read(std::string(test.part) + " 99246 70783 08148 " + test.surface +
                            " ///// 00/// ///// 92/// ///// " + test.levels + " 88999 77999");
        EXPECT_EQ(column(read, UnLevels::MANDATORY, UnLevels::HEIGHT), test.heights) << test.what;
        for (const UnLevels::Level& surface : read.levels({UnLevels::SURFACE})) {
            EXPECT_FALSE(surface.has(UnLevels::HEIGHT)) << test.what;
        }
    }
    // Ground under high pressure, 920 mb at 1000 m: at 17 deg C 850 mb lie 672 m above it, 700 mb 2321 m.
    EXPECT_EQ(
        column(UnLevels("TTAA 6212/ 72469 99920 170// ///// 00/// ///// 92/// ///// 85672 170// 70321 170// 88999"),
               UnLevels::MANDATORY, UnLevels::HEIGHT),
        (std::vector<double>{1672, 3321}));
}

// From 100 mb on 2434 m to 70 and 2296 m to 50 mb at -40 deg C: 18430 and 20730 m over 16000 m.
TEST(MandatoryHeights, AreTensOfMetresAbove) {
    std::vector<StandardLevel> levels{{100, -40, -999, 16000}, {70, -40, -999, 8430}, {50, -40, -999, 10730}};
    settleHeights(levels);
    EXPECT_EQ(levels[1].height, 18430);
    EXPECT_EQ(levels[2].height, 20730);
    std::vector<StandardLevel> none;
    settleHeights(none);
    EXPECT_TRUE(none.empty());
}
