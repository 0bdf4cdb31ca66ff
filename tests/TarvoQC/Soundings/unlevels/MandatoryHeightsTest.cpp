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
