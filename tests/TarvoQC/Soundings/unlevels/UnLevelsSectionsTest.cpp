#include "MessageText.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::DoubleNear;
using testing::Pointwise;

namespace {

constexpr double kKnot = 0.5144;

std::string partA(const std::string& groups) {
    return "TTAA 51121 72469 " + groups;
}

void expectColumn(const UnLevels& read, UnLevels::LEVEL_TYPE type, UnLevels::LEVEL_FIELD field,
                  const std::vector<double>& expected) {
    EXPECT_THAT(column(read, type, field), Pointwise(DoubleNear(1e-9), expected))
        << UnLevels::Level(type).name() << ' ' << UnLevels::Level::fieldName(field);
}

} // namespace

TEST(UnLevels, ReadsAllFourPartsOfADrop) {
    const UnLevels read(fourParts());
    using U = UnLevels;
    EXPECT_EQ(read.wmoType(), "TEMP DROP");
    EXPECT_TRUE(read.windsInKnots());
    expectColumn(read, U::SURFACE, U::PRES, {1012.0});
    expectColumn(read, U::SURFACE, U::DP, {27.6 - 3.2});
    expectColumn(read, U::SURFACE, U::WDIR, {125.0});
    expectColumn(read, U::SURFACE, U::WSPD, {25 * kKnot});
    expectColumn(read, U::MANDATORY, U::PRES,
                 {1000, 925, 850, 700, 500, 400, 300, 250, 200, 150, 100, 70, 50, 30, 20, 10, 7});
    expectColumn(
        read, U::MANDATORY, U::HEIGHT,
        {110, 797, 1528, 3156, 5880, 7590, 9680, 10940, 12420, 14170, 16630, 18440, 20460, 23700, 26200, 30900, 33300});
    expectColumn(read, U::MANDATORY, U::TDRY,
                 {27.0, 22.4, 17.2, 9.4, -5.9, -16.1, -31.7, -41.9, -53.5, -66.7, -77.7, -71.9, -63.5, -56.7, -52.1,
                  -43.5, -39.9});
    expectColumn(read, U::MANDATORY, U::WDIR,
                 {125, 130, 135, 140, 150, 160, 170, 180, 195, 200, 210, 90, 95, 100, 95, 90, 95});
    expectColumn(read, U::TROPOPAUSE, U::PRES, {130.0});
    expectColumn(read, U::TROPOPAUSE, U::DP, {-77.1});
    expectColumn(read, U::TROPOPAUSE, U::WDIR, {205.0});
    expectColumn(read, U::MAXWIND, U::PRES, {160.0, 7.0});
    expectColumn(read, U::MAXWIND, U::VA, {6 * kKnot, 10 * kKnot});
    expectColumn(read, U::MAXWIND, U::VB, {12 * kKnot, -999.0});
    expectColumn(read, U::SIGNIFICANT, U::PRES, {1012, 936, 700, 500, 130, 1012, 850, 105, 88.5, 62.0, 7, 88.5, 7});
    expectColumn(read, U::SIGNIFICANT, U::TDRY,
                 {27.6, 23.2, 9.4, -5.9, -71.1, -999, -999, -999, -73.7, -65.1, -39.9, -999, -999});
    EXPECT_EQ(read.allLevels().front().name(), "surface");
    EXPECT_EQ(read.allLevels().back().name(), "splashpointrawgps");
    EXPECT_EQ(read.allLevels().size(), 1U + 17 + 13 + 1 + 2 + 7);
    EXPECT_EQ(read.tokens().front(), "UZNT13");
    EXPECT_EQ(read.tokens().back(), "NNNN");
    EXPECT_EQ(UnLevels(read).allLevels().size(), read.allLevels().size());
}

TEST(UnLevels, NothingReadHasNoLevels) {
    EXPECT_TRUE(UnLevels().allLevels().empty());
    EXPECT_EQ(UnLevels(" =\n\t").wmoType(), "UNKNOWN");
    EXPECT_EQ(UnLevels::Level().name(), "generic");
    EXPECT_EQ(UnLevels::Level(static_cast<UnLevels::LEVEL_TYPE>(13)).name(), "unknown");
    EXPECT_EQ(UnLevels::Level::fieldName(UnLevels::VB), "vb");
    EXPECT_EQ(UnLevels::Level::fieldName(UnLevels::CLOCK), "unknown");
}

// The surface of a TEMP in knots: pressure, temperature and wind groups.
TEST(UnLevels, ReadsTheGroups) {
    struct Case {
        const char* groups;
        double pres, tdry, dp, wdir, knots;
    };
    const Case cases[] = {
        {"99013 12250 27035", 1013, 12.2, 7.2, 270, 35},     {"99987 12356 27535", 987, -12.3, -18.3, 275, 35},
        {"99100 00100 36005", 100, -0.1, -0.1, 360, 5},      {"99099 00099 00620", 1099, 0.0, -49.0, 5, 120},
        {"99013 122// /////", 1013, 12.2, -999, -999, -999}, {"99013 ///50 27///", 1013, -999, -999, -999, -999},
        {"99013 1X250 2X035", 1013, -999, -999, -999, -999}, {"99013 1225 //035", 1013, 12.2, -999, -999, -999},
        {"99013 12250 36535", 1013, 12.2, 7.2, 5, 35},       {"99013 12250 37035", 1013, 12.2, 7.2, -999, -999},
    };
    for (const auto& c : cases) {
        const UnLevels read(partA(std::string(c.groups) + " 88999 77999"));
        // A level of nothing but its pressure is none.
        const auto levels = read.levels({UnLevels::SURFACE});
        if (c.tdry == -999 && c.wdir == -999) {
            EXPECT_TRUE(levels.empty()) << c.groups;
            continue;
        }
        ASSERT_EQ(levels.size(), 1U) << c.groups;
        EXPECT_NEAR(levels[0].value(UnLevels::PRES), c.pres, 1e-9) << c.groups;
        EXPECT_NEAR(levels[0].value(UnLevels::TDRY), c.tdry, 1e-9) << c.groups;
        EXPECT_NEAR(levels[0].value(UnLevels::DP), c.dp, 1e-9) << c.groups;
        EXPECT_NEAR(levels[0].value(UnLevels::WDIR), c.wdir, 1e-9) << c.groups;
        EXPECT_NEAR(levels[0].value(UnLevels::WSPD), c.knots < 0 ? c.knots : c.knots * kKnot, 1e-9) << c.groups;
    }
    // Below 50 the day is in metres per second; a surface without pressure stays a standard level, at 0 mb.
    const UnLevels metric("TTAA 01121 72469 99/// 12250 27035 88999 77999");
    expectColumn(metric, UnLevels::MANDATORY, UnLevels::WSPD, {35.0});
    expectColumn(metric, UnLevels::MANDATORY, UnLevels::PRES, {0.0});
    EXPECT_FALSE(metric.windsInKnots());
}

TEST(UnLevels, HeightsFollowTheTable) {
    const std::vector<std::string> a{"00", "92", "85", "70", "50", "40", "30", "25", "20", "15", "10"};
    const std::vector<std::string> c{"70", "50", "30", "20", "10", "07", "05", "03", "02", "01"};
    struct Case {
        std::string head;
        const std::vector<std::string>& indicators;
        std::string digits;
        std::vector<double> heights;
    };
    const std::string headA = "TTAA 0112/ 72469 99/// ///// /////";
    const std::string headC = "TTCC 0112/ 72469";
    const Case cases[] = {
        {headA, a, "123", {123, 123, 1123, 3123, 1230, 1230, 11230, 11230, 11230, 11230, 11230}},
        {headA, a, "950", {-450, 950, 1950, 2950, 9500, 9500, 9500, 9500, 19500, 19500, 19500}},
        {headA, a, "500", {0, 500, 1500, 3500, 5000, 5000, 15000, 15000, 15000, 15000, 15000}},
        {headC, c, "123", {11230, 21230, 21230, 21230, 31230, 31230, 31230, 41230, 41230, 51230}},
        {headC, c, "950", {19500, 19500, 29500, 29500, 29500, 39500, 39500, 39500, 39500, 49500}},
        {headC, c, "500", {15000, 25000, 25000, 25000, 35000, 35000, 35000, 45000, 45000, 55000}},
    };
    for (const Case& test : cases) {
        std::string text = test.head;
        for (const std::string& indicator : test.indicators) {
            text.append(" ").append(indicator).append(test.digits).append(" /////");
        }
        const UnLevels read(text + " 88999 77999");
        expectColumn(read, UnLevels::MANDATORY, UnLevels::HEIGHT, test.heights);
        expectColumn(read, UnLevels::MANDATORY, UnLevels::PRES,
                     test.head == headA ? std::vector<double>{1000, 925, 850, 700, 500, 400, 300, 250, 200, 150, 100}
                                        : std::vector<double>{70, 50, 30, 20, 10, 7, 5, 3, 2, 1});
    }
}

// In part A up to the level of Id; above 10 mb, for which there is no Id, as many as make the groups fit.
TEST(UnLevels, KnowsWhichStandardLevelsHaveWind) {
    const std::pair<const char*, std::vector<double>> cases[] = {
        {"TTAA 0112/ 72469 99/// ///// 09001 00/// 100// 92/// 100// 88999 77999", {90, -999, -999}},
        {"TTAA 01129 72469 99/// ///// 09001 00/// 100// 10001 92/// 100// 11001 85/// 100// 88999 77999",
         {90, 100, 110, -999}},
        {"TTCC 01120 72469 70/// 601// 09001 88999 77999", {90}},
        {"TTCC 01127 72469 70/// 601// 09001 50/// 601// 88999 77999", {90, -999}},
        {"TTCC 01121 72469 70/// 601// 01001 50/// 601// 02001 30/// 601// 03001 20/// 601// 04001 10/// 601// 05001 "
         "07/// 401// 05/// 401// 03/// 401// 88999 77999",
         {10, 20, 30, 40, 50, -999, -999, -999}},
        {"TTCC 01121 72469 70/// 601// 01001 50/// 601// 02001 30/// 601// 03001 20/// 601// 04001 10/// 601// 05001 "
         "07/// 401// 05006 05/// 401// 03/// 401// 31313 00000 81200",
         {10, 20, 30, 40, 50, 50, -999, -999}},
        {"TTCC 01121 72469 70/// 601// 01001 50/// 601// 02001 30/// 601// 03001 20/// 601// 04001 10/// 601// 05001 "
         "07/// 401// 06001 05/// 401// 07001 03/// 401// 08001 02/// 201// 09001 01/// 101// 10001 88999 77999",
         {10, 20, 30, 40, 50, 60, 70, 80, 90, 100}},
    };
    for (const auto& [text, directions] : cases) {
        SCOPED_TRACE(text);
        expectColumn(UnLevels(text), UnLevels::MANDATORY, UnLevels::WDIR, directions);
    }
}

TEST(UnLevels, TropopausesAndMaximumWinds) {
    struct Case {
        const char* text;
        std::vector<double> tropopauses, winds; // mb
        int obsTime;
    };
    const Case cases[] = {
        {"88999 77999 31313 00000 81155", {}, {}, 1155},
        {"88250 501// 09001 88200 551// 09001 77999 31313 00000 81155", {250, 200}, {}, 1155},
        {"88250 501// 09001 77300 09099 66200 09098 41020 31313 00000 81155", {250}, {300, 200}, 1155},
        {"88/// 501// 09001 77999 31313 00000 81155", {-999}, {}, 1155},
        // A withdrawn maximum wind has no group at all.
        {"88250 501// 09001 31313 00000 81155", {250}, {}, 1155},
        {"88250 501// 09001 51515 10190 85500", {250}, {}, -1},
        {"88250 501// 09001", {250}, {}, -1},
        {"88250 501// 09001 TTBB 51128 72469 00/// /////", {250}, {}, -1},
        // 100.0 mb is coded as 0.
        {"88999 77000 09099 31313 00000 81155", {}, {100}, 1155},
        {"TTCC 0112/ 72469 88000 701// 09001 77000 09099 31313 00000 81155", {100}, {100}, 1155},
        // And 99.9 mb as what stands for none.
        {"TTCC 0112/ 72469 88999 77999 31313 00000 81155", {}, {}, 1155},
        {"TTCC 0112/ 72469 88999 701// 09001 77999 09099 40101 31313 00000 81155", {99.9}, {99.9}, 1155},
        {"TTCC 0112/ 72469 88999 77500 09099 31313 00000 81155", {}, {50}, 1155},
        // Nor is it lost at -77 or -66 deg C, where its temperature looks like a maximum wind.
        {"TTCC 0112/ 72469 88999 77385 09030 77999 31313 00000 81155", {99.9}, {}, 1155},
        {"TTCC 0112/ 72469 88999 66585 09030 77999 31313 00000 81155", {99.9}, {}, 1155},
        {"TTCC 0112/ 72469 88999 77385 09030 77999 09080 41010 31313 00000 81155", {99.9}, {99.9}, 1155},
        {"TTCC 0112/ 72469 88999 771// 09030 66380 09080 41010 31313 00000 81155", {99.9}, {38}, 1155},
        {"TTCC 0112/ 72469 88999 77385 09099 41010 77300 09080 41010 31313 00000 81155", {}, {38.5, 30}, 1155},
        {"TTCC 0112/ 72469 88999 77385 09099 77300 09080 31313 00000 81155", {}, {38.5, 30}, 1155},
        {"TTCC 0112/ 72469 88999 77400 09099 77300 09080 41010 31313 00000 81155", {}, {40, 30}, 1155},
        {"TTCC 0112/ 72469 88999 77352 09099 77999 31313 00000 81155", {}, {35.2}, 1155},
        {"TTCC 0112/ 72469 88999 31313 00000 81155", {}, {}, 1155},
    };
    for (const Case& test : cases) {
        SCOPED_TRACE(test.text);
        const std::string text = test.text[0] == 'T' ? test.text : partA("99/// ///// ///// " + std::string(test.text));
        const UnLevels read(text);
        expectColumn(read, UnLevels::TROPOPAUSE, UnLevels::PRES, test.tropopauses);
        expectColumn(read, UnLevels::MAXWIND, UnLevels::PRES, test.winds);
        EXPECT_EQ(read.obsTime(), test.obsTime);
    }
}

TEST(UnLevels, SignificantLevelsEndWhereAnotherSectionBegins) {
    const std::pair<const char*, std::vector<double>> cases[] = {
        {"TTBB 01128 72469 00013 201// 66666 101// 77600 091// 21212 00013 09001 31313 00000 81155",
         {1013, 666, 600, 1013}},
        {"TTBB 01128 72469 00/// ///// 11850 101// 41414 22222 NNNN", {850}},
        {"TTBB 01128 72469 00/// ///// 11850 101// 51515 10190 85500", {850}},
        {"TTBB 01128 72469 00/// ///// 11850 101// 21212 00/// ///// 11700 09001 61616 X", {850, 700}},
        {"TTBB 01128 72469 00013 201// TTAA 0112/ 72469 99/// ///// ///// 88999 77999", {1013}},
        // A pressure that isn't told is no pressure.
        {"TTBB 01128 72469 00/// 201// 118X0 101//", {-999, -999}},
        {"TTDD 0112/ 72469 11000 701// 22951 701// 21212 11000 09001", {100, 95.1, 100}},
    };
    for (const auto& [text, pressures] : cases) {
        SCOPED_TRACE(text);
        expectColumn(UnLevels(text), UnLevels::SIGNIFICANT, UnLevels::PRES, pressures);
    }
}

TEST(UnLevels, SaysWhatIsWrongAndWhere) {
    const std::pair<const char*, const char*> cases[] = {
        {"TTA 51121", "WMO type and part identifier (MMMM) must be 4 characters. Error detected at TTA 51121 ..."},
        {"YYAA", "Message type identifier (TT, UU, XX or II) was not found."},
        {"TTEE", "Part identifier AA, BB, CC or DD was not found."},
        {"TTBB 51128 72469 00013 101// UUBB", "Two different WMO message types have been found in this message."},
        {"TTAA 5112X 72469", "The last wind indicator (Id) is incorrectly coded."},
        {"TTCC 51124 72469", "The last wind indicator (Id) is incorrectly coded."},
        {"TTDD 51128 72469", "The last character in the third code group of Part D, section 1, should be /."},
        {"TTAA 51121 7246", "Block and station number is incorrect: 7246"},
        {"XXAA 51121 98254 70804 08145", "The position group must begin with 99."},
        {"XXAA 51121 99254 20804 08145", "The quadrant indicator must be 1, 3, 5, 7 or /."},
        {"XXAA 51121 99254", "At least 3 code groups are required. Error detected at99254  ..."},
        {"TTAA 51121 72469 00013 12250", "The mandatory significant observation is incorrectly coded."},
        {"TTAA 51121 72469 99013 12251", "Dewpoint depression code may not be between 51 to 56."},
        {"TTAA 51121 72469 99013 12255", "Dewpoint depression code may not be between 51 to 56."},
        {"TTAA 51121 72469 99013 12250 27035 88999 77999 31313", "At least 3 code groups are required. "},
        {"TTBB 51128 72469 31313 00000 71200",
         "The first character of the observation time code group in section 7 must be \"8\"."},
        {"TTAA 51121 72469 99013 12250 27035 88250 501// 09001 12345 501// 09001",
         "The tropopause observation is incorrectly coded. Error detected at 12345 501// 09001 ..."},
    };
    for (const auto& [text, error] : cases) {
        EXPECT_EQ(errorOf(text).substr(0, std::string(error).size()), error) << text;
    }
}
