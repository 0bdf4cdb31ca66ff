#include "LevelProfiles.h"

#include <gtest/gtest.h>

namespace {

/// 500 to 900 mb in 100 s, 4 mb a second, with the ends of temperature, RH and wind for anchors.
struct LineDrop : MadeLevels {
    LineDrop() {
        pres = everySecond({{0, 500}, {100, 900}});
        tdry = everySecond({{0, -10}, {100, 15}}); // 0.0625 deg C per mb
        rh = everySecond({{0, 25}, {100, 75}});
        landed();
    }
};

void bump(Series& series, int first, int last, double by) {
    for (int i = first; i <= last; ++i) {
        series.setData(i, series.data(i) + by);
    }
}

} // namespace

TEST(Significant, ADepartureMustExceedTheThreshold) {
    LineDrop drop;
    bump(drop.tdry, 50, 50, 1.0);
    drop.rh.setData(30, 60.0); // 20 above the line
    drop.criteria.tdryDelta = 1.0;
    drop.criteria.rhDelta = 20.0;
    drop.run();
    EXPECT_EQ(drop.of(LevelType::GDLTdry), "");
    EXPECT_EQ(drop.of(LevelType::GDLRH), "");
    bump(drop.tdry, 50, 50, 0.015625);
    bump(drop.rh, 30, 30, 0.015625);
    drop.run();
    EXPECT_EQ(drop.of(LevelType::GDLTdry, {LFtime, LFpres, LFtdry, LFrh}), "50 700 3.51562 50");
    EXPECT_EQ(drop.of(LevelType::GDLRH, {LFtime, LFpres, LFtdry, LFrh}), "30 620 -2.5 60.0156");
}

TEST(Significant, TheLineIsStraightInPressureNotInTime) {
    LineDrop drop;
    drop.pres = everySecond({{0, 500}, {50, 800}, {100, 900}});
    drop.landed();
    drop.criteria.rhDelta = 12.0; // at 50 s the RH is 50, and the line at 800 mb at 62.5
    drop.run();
    EXPECT_EQ(drop.of(LevelType::GDLRH), "50 800");
}

TEST(Significant, ASingleSampleBetweenAnchorsIsNone) {
    for (const auto& [times, expected] : {std::pair{Knots{{0, 25}, {40, 99}, {100, 75}}, ""},
                                          {Knots{{0, 25}, {40, 99}, {60, 55}, {100, 75}}, "40 660"}}) {
        LineDrop drop;
        drop.rh = samples(times);
        drop.criteria.rhDelta = 5.0;
        drop.run();
        EXPECT_EQ(drop.of(LevelType::GDLRH), expected); // after the split 60 s stands alone
    }
}

TEST(Significant, TemperatureLevelsAnchorTheHumidityButEdgesOfItsGapsDoNot) {
    LineDrop drop;
    drop.tdry = everySecond({{0, -10}, {40, 0}, {100, 45}});
    drop.rh = everySecond({{0, 25}, {40, 65}, {100, 75}});
    drop.criteria.tdryDelta = 2.0;
    drop.criteria.rhDelta = 2.0;
    drop.run();
    EXPECT_EQ(drop.of(LevelType::GDLTdry, {LFtime, LFrh}), "40 65");
    EXPECT_EQ(drop.of(LevelType::GDLRH), ""); // straight between them
    drop.criteria.tdryDelta = 1e6;
    drop.rh.timeTrimMiddle(20, 81);
    drop.run();
    EXPECT_EQ(drop.of(LevelType::MissingRHTop), "20 580");
    EXPECT_EQ(drop.of(LevelType::GDLRH), "20 580; 81 824");
}

namespace {

/// An upsonde of 100 s with a wind of 20 m/s, from the direction of the middle between 40 and 60 s.
struct TurningWind : MadeLevels {
    TurningWind(double ends, double middle) {
        setting.ascending = true;
        pres = everySecond({{0, 900}, {100, 700}});
        flagFirst({&pres}, Value::ObsSurface);
        alt = everySecond({{0, 0}, {100, 2000}});
        const double radian = std::acos(-1.0) / 180.0;
        for (int i = 0; i <= 100; ++i) {
            const double from = (i < 40 || i > 60 ? ends : middle) * radian;
            u.appendValue(-20.0 * std::sin(from), i);
            v.appendValue(-20.0 * std::cos(from), i);
        }
        wspd = everySecond({{0, 20}, {100, 20}});
    }
};

} // namespace

TEST(Significant, DirectionsTurnTheShorterWay) {
    for (const auto& [ends, middle, delta, expected] : {std::tuple{10.0, 350.0, 19.8, "40"},
                                                        {10, 350, 20.2, ""},
                                                        {350, 10, 19.8, "40"},
                                                        {350, 10, 20.2, ""},
                                                        {90, 150, 59.8, "40"},
                                                        {90, 150, 60.2, ""}}) {
        TurningWind up(ends, middle);
        up.criteria.wdirDelta = delta;
        up.run();
        EXPECT_EQ(up.of(LevelType::GDLWdir, {LFtime}), expected) << ends << " " << delta;
    }
}

TEST(Significant, WindsBelow10KnotsHaveNoDirection) {
    for (const auto& [speed, expected] : {std::pair{5.154639175257732, "50 800 5.15464 90"}, {5.1546, ""}}) {
        TurningWind up(180, 180);
        up.u.setData(50, -speed);
        up.v.setData(50, 0.0);
        up.criteria.wdirDelta = 89.5;
        up.run();
        EXPECT_EQ(up.of(LevelType::GDLWdir, {LFtime, LFpres, LFwspd, LFwdir}), expected);
    }
}

// From 225 degrees at the start and 180 at the end, halfway 202.5: that is 112.5 from the east. With their speeds the
// line would stay at 225 degrees, 135 from the east.
TEST(Significant, SpeedsOfTheEndsDoNotWeighInADirection) {
    for (const auto& [delta, expected] : {std::pair{112.0, "50"}, {113.0, ""}}) {
        TurningWind up(180, 180);
        for (const auto& [i, u, v] : {std::tuple{0, 300.0, 300.0}, {50, -6.0, 0.0}, {100, 0.0, 1.0}}) {
            up.u.setData(i, u);
            up.v.setData(i, v);
        }
        up.criteria.wdirDelta = delta;
        up.run();
        EXPECT_EQ(up.of(LevelType::GDLWdir, {LFtime}), expected);
    }
}

namespace {

/// 700 to 1000 mb in 100 s, 850 mb at 50 s; winds of 20 m/s but for a peak in each of the two layers.
struct LayeredDrop : MadeLevels {
    explicit LayeredDrop(double peak) {
        pres = everySecond({{0, 700}, {100, 1000}});
        west(everySecond(
            {{0, 20}, {20, 20}, {25, 20 + peak}, {30, 20}, {70, 20}, {75, 20 + peak}, {80, 20}, {100, 20}}));
        criteria.wspdDelta = 10.0;   // 5.1546 m/s
        criteria.wspd850Delta = 5.0; // 2.5773 m/s
    }
};

} // namespace

TEST(Significant, WindSpeedsOfADropHaveTwoLayers) {
    for (const auto& [peak, upper, lower] :
         {std::tuple{2.57, false, false}, {2.58, false, true}, {5.15, false, true}, {5.16, true, true}}) {
        LayeredDrop drop(peak);
        drop.run();
        const std::string times = " " + drop.of(LevelType::GDLWspd, {LFtime}) + ";";
        EXPECT_EQ(times.find(" 25;") != std::string::npos, upper) << peak;
        EXPECT_EQ(times.find(" 75;") != std::string::npos, lower) << peak;
        EXPECT_NE(times.find(" 50;"), std::string::npos) << peak;
    }
    LayeredDrop up(5.0); // an upsonde has one threshold
    up.setting.ascending = true;
    up.pres = everySecond({{0, 1000}, {100, 700}});
    up.run();
    EXPECT_EQ(up.of(LevelType::GDLWspd), "");
}

TEST(Significant, TheLayersMeetAt850mbOrAtTheWindsAroundIt) {
    const std::vector<LevelFieldId> fields{LFtime, LFpres, LFwspd, LFwdir};
    for (const auto& [winds, expected] :
         {std::pair{Knots{{0, 20}, {47.5, 20}, {52.5, 20}, {100, 20}}, "50 850 20 270"},
          {Knots{{0, 20}, {47, 20}, {53, 20}, {100, 20}}, "47 841 20 270; 53 859 20 270"},
          {Knots{{0, 20}, {53, 20}, {100, 20}}, "53 859 20 270"}, // the first sample doesn't count
          {Knots{{0, 20}, {20, 20}, {47, 20}}, "47 841 20 270"},
          {Knots{{0, 20}}, ""}}) {
        LayeredDrop drop(0.0);
        drop.west(samples(winds));
        drop.run();
        EXPECT_EQ(drop.of(LevelType::GDLWspd, fields), expected);
    }
    LayeredDrop drop(6.0);
    drop.pres = everySecond({{0, 851}, {100, 1000}}); // never at 850 mb
    drop.run();
    EXPECT_EQ(drop.of(LevelType::GDLWspd).find("850"), std::string::npos);
    EXPECT_NE(drop.of(LevelType::GDLWspd), "");
}

namespace {

struct InversionCase {
    const char* name;
    Knots tdry; ///< by time; the pressure is 600 mb + 4 mb/s t
    const char* top;
    const char* bottom;
};

// From 40 s, 760 mb. The rise counts to the sample behind the end.
const std::vector<InversionCase> kInversionCases{
    {"None", {{0, -10}, {100, 15}}, "", ""},
    {"ShallowAndWarm", {{0, -10}, {40, 0}, {44, -3}, {45, -2.75}, {100, 11}}, "40 760 0 20", "44 776 -3 22"},
    {"ShallowAndJustNotWarm", {{0, -10}, {40, 0}, {44, -2.75}, {45, -2.5}, {100, 11}}, "", ""},
    {"DeepAndHardlyWarm", {{0, -10}, {40, 0}, {46, -0.5}, {100, 11}}, "40 760 0 20", "46 784 -0.5 23"},
    {"Isothermal", {{0, -10}, {40, 0}, {46, 0}, {100, 11}}, "40 760 0 20", "46 784 0 23"},
    {"Of20mb", {{0, -10}, {40, 0}, {45, 0}, {100, 11}}, "", ""},
    {"Two",
     {{0, -10}, {40, 0}, {46, -1}, {60, 5}, {66, 4}, {100, 11}},
     "40 760 0 20; 60 840 5 30",
     "46 784 -1 23; 66 864 4 33"},
    // The walk ends at the last sample but one.
    {"ToTheEnd", {{0, -10}, {90, 5}, {100, 0}}, "90 960 5 45", "99 996 0.5 49.5"}};

} // namespace

TEST(Inversions, AreDeepOrWarm) {
    for (const InversionCase& c : kInversionCases) {
        MadeLevels drop;
        drop.pres = everySecond({{0, 600}, {100, 1000}});
        drop.tdry = everySecond(c.tdry);
        drop.rh = everySecond({{0, 0}, {100, 50}});
        drop.run();
        EXPECT_EQ(drop.of(LevelType::InversionTop, {LFtime, LFpres, LFtdry, LFrh}), c.top) << c.name;
        EXPECT_EQ(drop.of(LevelType::InversionBottom, {LFtime, LFpres, LFtdry, LFrh}), c.bottom) << c.name;
    }
}

TEST(Inversions, LieBelow300mb) {
    struct Case {
        const char* name;
        bool ascending;
        Knots pres;
        Knots tdry;
        const char* top;
        const char* bottom;
    };
    const Knots up{{0, 1000}, {100, 200}}; // 300 mb at 87.5 s
    const Knots down{{0, 200}, {100, 1000}};
    for (const Case& c : {
             Case{"drop",
                  false,
                  down,
                  {{0, 0}, {20, -20}, {50, 10}, {60, 5}, {100, 20}},
                  "13 304; 50 600",
                  "20 360; 60 680"},
             {"above", false, down, {{0, 0}, {12, -20}, {100, 20}}, "", ""},
             {"ascent", true, up, {{0, 20}, {40, 0}, {50, 5}, {80, -20}, {100, 0}}, "86 312; 50 600", "80 360; 40 680"},
             {"from 300", false, {{0, 300}, {100, 1100}}, {{0, 0}, {10, -10}, {100, 20}}, "0 300", "10 380"},
             {"to 299.9", false, {{0, 100}, {100, 299.9}}, {{0, 0}, {100, -30}}, "", ""},
             {"ascent from 299.9", true, {{0, 299.9}, {100, 100}}, {{0, -30}, {100, 0}}, "", ""},
         }) {
        MadeLevels made;
        made.setting.ascending = c.ascending;
        made.pres = everySecond(c.pres);
        made.tdry = everySecond(c.tdry);
        made.run();
        EXPECT_EQ(made.of(LevelType::InversionTop), c.top) << c.name;
        EXPECT_EQ(made.of(LevelType::InversionBottom), c.bottom) << c.name;
    }
}
