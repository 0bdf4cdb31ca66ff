#include "Hydrostatics.h"
#include "LevelProfiles.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

const std::vector<LevelFieldId> kAll{LFtime, LFpres, LFtdry, LFrh, LFwspd, LFwdir, LFalt};

} // namespace

TEST(Standard, StandsAtTheMandatorySurfaces) {
    MadeDrop drop;
    drop.landed();
    drop.run();
    EXPECT_EQ(drop.of(LevelType::Standard, kAll),
              "25 850 12.5 52.5 17.5 270 750; 62.5 925 16.25 71.25 13.75 270 375; 100 1000 20 90 10 270 0");
    drop.alt.removeAll();
    drop.v.removeAll();
    drop.rh = samples({{0, 40}, {60, 60}, {121, 70}});
    drop.run();
    EXPECT_EQ(drop.of(LevelType::Standard, kAll),
              "25 850 12.5 48.3333 - - -; 62.5 925 16.25 - - - -; 100 1000 20 - - - -");
}

TEST(Standard, KeepsPlacesOfSurfacesBelowTheData) {
    MadeDrop drop;
    drop.pres = everySecond({{0, 480}, {100, 910}});
    drop.run();
    EXPECT_EQ(drop.of(LevelType::Standard, {LFpres}), "500; 700; 850; 925; 1000");
    EXPECT_EQ(drop.of(LevelType::Standard, {LFwspd}), "19.5349; 14.8837; 11.3953; -; -");
    drop.pres = everySecond({{0, 410}, {100, 495}}); // reaches none
    drop.run();
    EXPECT_EQ(drop.of(LevelType::Standard), "");
}

TEST(Standard, GivesAnUnderground1000mbSurfaceAHeight) {
    for (const auto& [ground, rh, height] :
         {std::tuple{949.5, true, true}, {949.5, false, true}, {999.9, true, true}, {949.4, true, false}}) {
        MadeDrop drop;
        drop.pres = everySecond({{0, 800}, {100, ground}});
        drop.landed();
        if (!rh) {
            drop.rh.removeAll();
        }
        drop.run();
        const Level lowest = drop.levels->subsetByType(LevelType::Standard, 1000, 1001, false).at(0);
        double altitude = 0.0;
        EXPECT_EQ(lowest.getFieldData(LFalt, altitude), height) << ground;
        EXPECT_NE(lowest.has(LFtime), height) << ground;
        if (height) {
            const double humidity = rh ? 90.0 : 50.0;
            EXPECT_NEAR(altitude, deltaZ(ground, 1000.0, 20.0, 20.0, humidity, humidity), 1e-9) << ground;
        }
    }
}

// A drop from just above 300 mb, whose first wind but for the launch observation comes more than a minute later.
TEST(Standard, TakesTheLaunchWindJustBelowTheAircraft) {
    for (const auto& [launch, windFlag, presFlag, ascending, expected] : {std::tuple{298.0, true, true, false, "8 25"},
                                                                          {297.99, true, true, false, "- -"},
                                                                          {298.0, false, true, false, "- -"},
                                                                          {298.0, true, false, false, "- -"},
                                                                          {298.0, true, true, true, "- -"}}) {
        MadeLevels drop;
        drop.setting.ascending = ascending;
        drop.pres = everySecond({{0, launch}, {1, 299}, {100, 390}});
        drop.west(samples({{0, 25}, {70, 20}, {80, 20}, {90, 20}}));
        drop.u.setData(0, 8); // components of their own, to tell what is taken
        if (windFlag) {
            drop.flagFirst({&drop.wspd}, Value::ObsFlight);
        }
        if (presFlag) {
            drop.flagFirst({&drop.pres}, Value::ObsFlight);
        }
        drop.run();
        EXPECT_THAT(drop.of(LevelType::Standard, {LFu, LFwspd}), testing::StartsWith(std::string(expected) + ";"))
            << launch;
    }
}

TEST(Standard, MarksTheEdgesOfGapsOverAMinute) {
    MadeDrop drop;
    drop.tdry = samples({{0, 10}, {20, 12}, {80.0, 18}, {100, 20}});
    drop.rh = samples({{0, 40}, {20, 50}, {80.5, 80}, {100, 90}});
    const std::vector<LevelFieldId> fields{LFtime, LFpres, LFtdry, LFrh};
    drop.run();
    EXPECT_EQ(drop.count(LevelType::MissingTdryTop) + drop.count(LevelType::MissingTdryBottom), 0);
    EXPECT_EQ(drop.of(LevelType::MissingRHTop, fields), "20 840 12 50");
    EXPECT_EQ(drop.of(LevelType::MissingRHBottom, fields), "80.5 961 18.05 80");
    drop.setting.ascending = true;
    drop.rh.removeAll();
    drop.tdry.remove(2);
    drop.run();
    EXPECT_EQ(drop.of(LevelType::MissingTdryBottom, fields), "20 840 12 -");
    EXPECT_EQ(drop.of(LevelType::MissingTdryTop, fields), "100 1000 20 -");
}

namespace {

struct BandCase {
    const char* name;
    bool ascending;
    Knots pres;
    double firstSample; ///< s, then one each 10 s
    const char* expected;
};

const std::vector<BandCase> kBandCases{
    {"Drop", false, {{0, 95}, {40, 135}}, 2, "12 107 -12"},
    {"DropTo110Itself", false, {{0, 95}, {40, 135}}, 5, "15 110 -15"},
    {"DropFrom100", false, {{0, 100}, {40, 140}}, 0, "10 110 -10"},
    {"DropFrom100AtOnce", false, {{0, 100}, {9, 109}, {19, 129}}, 0, "0 100 0"},
    {"DropFrom99.9", false, {{0, 99.9}, {9, 109}, {19, 129}}, 0, ""},
    {"DropFromBelow", false, {{0, 111}, {40, 151}}, 0, ""},
    {"DropWithNoneLater", false, {{0, 95}, {16, 111}}, 2, ""},
    {"DropWithNoneBefore", false, {{0, 95}, {40, 135}}, 16, ""},
    {"AscentWithNoneBefore", true, {{0, 135}, {40, 95}}, 26, ""},
    {"AscentWithNoneLater", true, {{0, 135}, {26, 109}}, 2, ""},
    {"Ascent", true, {{0, 135}, {40, 95}}, 2, "32 103 -32"},
    {"AscentAt110Itself", true, {{0, 135}, {40, 95}}, 5, "25 110 -25"},
    {"AscentPast100", true, {{0, 125}, {15, 110}, {20, 100}, {40, 80}}, 0, "20 100 -20"},
    {"AscentTooSteep", true, {{0, 120}, {9, 111}, {10, 99}, {40, 49}}, 0, ""}};

} // namespace

TEST(Standard, TakesTheSampleJustAbove110mb) {
    for (const BandCase& c : kBandCases) {
        MadeLevels made;
        made.setting.ascending = c.ascending;
        made.pres = samples(c.pres);
        for (double time = c.firstSample; time <= c.pres.back().first; time += 10.0) {
            made.tdry.appendValue(-time, time);
        }
        made.west(made.tdry);
        made.run();
        EXPECT_EQ(made.of(LevelType::Mb110Thermo, {LFtime, LFpres, LFtdry}), c.expected) << c.name;
        EXPECT_EQ(made.of(LevelType::Mb110Wind, {LFtime, LFpres, LFu}), c.expected) << c.name;
    }
}

TEST(Standard, TakesTheStationBasePressureBySurfaceAltitude) {
    for (const auto& [altitude, expected] : {std::pair{-10.0, "50 850 15 65"},
                                             {999.9, "50 850 15 65"},
                                             {1000.0, "25 800 12.5 52.5"},
                                             {1400.0, "25 800 12.5 52.5"},
                                             {1400.1, "0 750 10 40"},
                                             {2000.0, "0 750 10 40"},
                                             {2000.1, ""},
                                             {-999.0, ""}}) {
        MadeDrop drop;
        drop.pres = everySecond({{0, 750}, {100, 950}});
        drop.setting.sfcAlt = altitude;
        drop.run();
        EXPECT_EQ(drop.of(LevelType::StationBasePres, {LFtime, LFpres, LFtdry, LFrh}), expected) << altitude;
    }
}

// The temperature changes by 0.1 deg C per second, and a difference over a step is divided by the step.
TEST(Standard, ExtrapolatesAltitudesToSurfacesJustBeyondTheData) {
    for (const auto& [top, bottom, landed, upper, lower] : {std::tuple{100.005, 130.0, false, 0.0, 150.0},
                                                            {100.02, 120.5, false, 100, 0},
                                                            {125.0, 160, false, 100, 0},
                                                            {125.1, 149, false, 0, 0},
                                                            {125.1, 148.9, false, 0, 150},
                                                            {125.1, 180, false, 0, 200},
                                                            {125.0, 180, false, 100, 200},
                                                            {160.0, 225, false, 150, 250},
                                                            {160.0, 224.9, false, 150, 0},
                                                            {160.0, 240, true, 150, 0}}) {
        for (const bool ascending : {false, true}) {
            MadeDrop drop;
            drop.setting.ascending = ascending;
            drop.pres = ascending ? everySecond({{0, bottom}, {100, top}}) : everySecond({{0, top}, {100, bottom}});
            if (landed) {
                drop.landed();
            }
            drop.run();
            const double slope = (ascending ? -1 : 1) * 10.0 / (bottom - top); // deg C per mb
            std::vector<double> expected;
            if (upper > 0) {
                const double t = ascending ? 20.0 : 10.0;
                const double rh = ascending ? 90.0 : 40.0;
                expected.push_back((ascending ? 0.0 : 1000.0) + deltaZ(top, upper, t, t + slope, rh, rh));
            }
            if (lower > 0 && !ascending) {
                expected.push_back(deltaZ(bottom, lower, 20.0, 20.0 + slope, 90.0, 90.0));
            }
            std::vector<double> found;
            for (const Level& level : drop.levels->subsetByType(LevelType::ExtrapAlt)) {
                found.push_back(level.getField(LFalt)->value());
            }
            EXPECT_THAT(found, testing::Pointwise(testing::DoubleNear(1e-6), expected)) << top << " " << bottom;
            drop.tdry = everySecond({{0, -300}, {100, -290}}); // below 0 K
            drop.run();
            EXPECT_EQ(drop.count(LevelType::ExtrapAlt), 0);
        }
    }
    MadeDrop dry;
    dry.pres = everySecond({{0, 120}, {100, 145}});
    dry.landed();
    dry.tdry = everySecond({{0, 20}, {100, 30}}); // 8 deg C in 20 mb
    dry.rh.removeAll();                           // 70 % are assumed
    dry.run();
    EXPECT_NEAR(dry.the(LevelType::ExtrapAlt, LFalt), 1000.0 + deltaZ(120.0, 100.0, 20.0, 20.4, 70.0, 70.0), 1e-6);
}
