#include "Hydrostatics.h"
#include "LevelProfiles.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using testing::ElementsAre;

const std::vector<LevelFieldId> kThermo{LFtime, LFpres, LFtdry, LFrh};
const std::vector<LevelFieldId> kWind{LFtime, LFpres, LFalt, LFwspd, LFwdir};
const std::vector<LevelFieldId> kSurface{LFtime, LFpres, LFtdry, LFrh, LFalt, LFlat, LFlon};

} // namespace

TEST(Surface, ALandedDropHasBothSurfaceLevels) {
    MadeDrop drop;
    drop.landed();
    drop.run();
    EXPECT_EQ(drop.of(LevelType::SurfaceThermo, kSurface), "100 1000 20 90 0 26 -79");
    // 10 m stand at 99 s.
    EXPECT_EQ(drop.of(LevelType::SurfaceWind, kWind), "99 1000 10 10.1 270");
    EXPECT_EQ(drop.count(LevelType::LowestThermo) + drop.count(LevelType::LowestWind), 0);
    EXPECT_THAT(drop.summary.items("Surface Wind Determination"),
                ElementsAre("Surface wind coded for an adjusted altitude of 10.0m",
                            "PTU/wind offset is 0.00s (PTU observations lead wind observations by 0.00s)"));
}

TEST(Surface, ADropThatStopsEarlyHasTimesOnly) {
    MadeDrop drop;
    drop.setting.windOffset = -1.25;
    drop.run();
    EXPECT_EQ(drop.of(LevelType::SurfaceThermo, kSurface), "100 - - - - - -");
    EXPECT_EQ(drop.of(LevelType::LowestThermo, kThermo), "100 1000 20 90");
    EXPECT_EQ(drop.of(LevelType::SurfaceWind, kWind), "100 - - - -");
    EXPECT_EQ(drop.of(LevelType::LowestWind, kWind), "100 1000 - 10 270");
    // -10 m/s times -1.25 s above the last wind at 0 m: the limit itself counts.
    EXPECT_EQ(drop.of(LevelType::LastWindAlt, {LFtime, LFalt, LFpres}), "100 12.5 1000");
    EXPECT_THAT(drop.summary.items("Surface Wind Determination"),
                ElementsAre("Adjusted altitude of last wind is 12.5m, surface wind was not coded",
                            "PTU/wind offset is -1.25s (PTU observations lag wind observations by 1.25s)"));
    drop.setting.windOffset = -1.24;
    drop.run();
    EXPECT_EQ(drop.of(LevelType::LastWindAlt), "");
    drop.dz.removeAll(); // -12 m/s are assumed
    drop.run();
    EXPECT_EQ(drop.of(LevelType::LastWindAlt, {LFalt}), "14.88");

    MadeDrop aloft; // the last wind at 100 m, and 20 m below that by its own time
    aloft.setting.windOffset = 2.0;
    aloft.west(everySecond({{0, 20}, {90, 11}}));
    aloft.run();
    EXPECT_EQ(aloft.of(LevelType::LastWindAlt, {LFtime, LFalt, LFpres}), "90 80 980");
}

TEST(Surface, UnreadableValuesCallForTheLowestOnes) {
    MadeDrop drop;
    drop.landed();
    drop.rh = everySecond({{0, 40}, {30, 70}});
    drop.u = drop.v = samples({{0, 3}});
    drop.flagFirst({&drop.u}, Value::ObsFlight);
    drop.run();
    EXPECT_EQ(drop.of(LevelType::SurfaceThermo, kSurface), "100 1000 20 - 0 26 -79");
    // One with temperature alone, and one where both are.
    EXPECT_EQ(drop.of(LevelType::LowestThermo, kThermo), "30 860 13 70; 100 1000 20 -");
    EXPECT_EQ(drop.of(LevelType::HighestThermo, kThermo), "0 800 10 40");
    EXPECT_EQ(drop.of(LevelType::HighestWind), ""); // the launch observation alone
    EXPECT_EQ(drop.of(LevelType::SurfaceWind, kWind), "100 1000 - - -");
}

TEST(Surface, TakesALastPositionOfLessThan107Seconds) {
    for (const auto& [last, expected] : {std::pair{93.01, "200 25.5 -79.5"}, {93.0, "200 - -"}}) {
        MadeDrop drop;
        drop.pres = everySecond({{0, 800}, {200, 1000}});
        drop.landed();
        drop.lat = samples({{50, 25}, {last, 25.5}});
        drop.lon = samples({{50, -80}, {last, -79.5}});
        drop.run();
        EXPECT_EQ(drop.of(LevelType::SurfaceThermo, {LFtime, LFlat, LFlon}), expected);
        drop.lon = samples({{last, -79.5}}); // one sample is no series of positions
        drop.run();
        EXPECT_EQ(drop.of(LevelType::SurfaceThermo, {LFtime, LFlat, LFlon}), "200 - -");
    }
}

namespace {

struct WindCase {
    const char* name;
    Knots samples; ///< of the wind, m/s from the west
    double windOffset;
    double sfcAlt;
    const char* surfaceWind; ///< time, altitude, speed
};

// The altitude is 1000 m - 10 m/s t, and the wind offset moves it by -10 m/s times the offset.
const std::vector<WindCase> kWindCases{
    {"At10m", {{90, 9}, {100, 19}}, 0.0, -999.0, "99 10 18"},
    {"At10mAboveGround", {{60, 0}, {80, 20}}, 0.0, 250.0, "74 260 14"},
    {"WindsLater", {{90, 9}, {100, 19}}, 2.0, -999.0, "97 10 16"},
    {"WindsEarlier", {{90, 9}, {100, 19}}, -0.5, -999.0, "99.5 10 18.5"},
    {"GapOf25s", {{75, 0}, {100, 25}}, 0.0, -999.0, "99 10 24"},
    // The last wind itself lies at 0 m.
    {"GapOf26s", {{74, 0}, {100, 26}}, 0.0, -999.0, "100 0 26"},
    {"At12m", {{90, 9}, {98.85, 17.85}}, 0.0, -999.0, "98.8 12 17.8"},
    {"LastWindBelow12.5m", {{90, 9}, {98.78125, 17.78125}}, 0.0, -999.0, "98.7812 12.1875 17.7812"},
    {"LastWindAt12.5m", {{90, 9}, {98.75, 17.75}}, 0.0, -999.0, "100 - -"},
    {"NoTimeAtMovedAltitude", {{90, 9}, {100, 19}}, -2.0, -999.0, "100 - -"}};

} // namespace

TEST(Surface, WindIsLookedForInOrder) {
    for (const WindCase& c : kWindCases) {
        MadeDrop drop;
        drop.landed();
        drop.west(samples(c.samples));
        drop.setting.windOffset = c.windOffset;
        drop.setting.sfcAlt = c.sfcAlt;
        drop.run();
        EXPECT_EQ(drop.of(LevelType::SurfaceWind, {LFtime, LFalt, LFwspd}), c.surfaceWind) << c.name;
        EXPECT_EQ(drop.of(LevelType::SurfaceWind, {LFpres}), "1000") << c.name;
        EXPECT_EQ(drop.count(LevelType::LowestWind), std::string(c.surfaceWind).find('-') != std::string::npos ? 1 : 0)
            << c.name;
    }
}

TEST(Surface, AnUpsondeStartsFromItsObservation) {
    MadeLevels up;
    up.setting.ascending = true;
    up.pres = everySecond({{0, 1000}, {50, 950}});
    up.alt = everySecond({{0, 30}, {50, 480}});
    up.tdry = everySecond({{2, 20}, {50, 15}});
    up.rh = everySecond({{2, 50}, {40, 88}});
    up.west(everySecond({{0, 3}, {50, 28}}));
    up.flagFirst({&up.pres, &up.u}, Value::ObsSurface);
    up.run();
    EXPECT_EQ(up.of(LevelType::SurfaceWind, kWind), "0 1000 30 3 270");
    EXPECT_EQ(up.of(LevelType::SurfaceThermo, kThermo), "0 1000 - -");
    EXPECT_EQ(up.of(LevelType::LowestThermo, kThermo), "2 998 20 50");
    EXPECT_EQ(up.of(LevelType::HighestThermo, kThermo), "50 950 15 -; 40 960 16.0417 88");
    EXPECT_EQ(up.of(LevelType::HighestWind, kWind), "50 950 - 28 270");
    EXPECT_TRUE(up.summary.topics().empty());
    up.u.clearAttribute(Value::ObsSurface);
    up.run();
    EXPECT_EQ(up.of(LevelType::SurfaceWind, kWind), "0 - - - -");
    EXPECT_EQ(up.of(LevelType::LowestWind, kWind), "0 1000 - 3 270");
    up.pres.clearAttribute(Value::ObsSurface);
    up.run();
    EXPECT_EQ(up.of(LevelType::SurfaceThermo, kThermo), "0 - - -");
}

// The temperature changes by 0.05 deg C per mb, so that the difference over any step, divided by the step, is 0.05.
TEST(Surface, ExtrapolatesThePressureOfTheGround) {
    MadeDrop drop;
    drop.pres.timeTrimRight(80); // 960 mb, 200 m, 18 deg C, 80 %
    drop.setting.sfcAlt = 150.0;
    double out = 0.0;
    ASSERT_TRUE(drop.run().extrapSfcPres(out));
    EXPECT_NEAR(out, hydroP(960.0, 18.0, 18.05, 80.0, 80.0, 200.0, 150.0), 1e-9);
    EXPECT_NEAR(drop.the(LevelType::ExtrapSfcPres, LFpres), out, 1e-12);
    EXPECT_EQ(drop.the(LevelType::ExtrapSfcPres, LFtime), 80.0);
    drop.rh.removeAll(); // 70 % are assumed
    ASSERT_TRUE(drop.run().extrapSfcPres(out));
    EXPECT_NEAR(out, hydroP(960.0, 18.0, 18.05, 70.0, 70.0, 200.0, 150.0), 1e-9);
    drop.setting.sfcAlt = 200.0; // the sonde is there: no step
    ASSERT_TRUE(drop.run().extrapSfcPres(out));
    EXPECT_EQ(out, 960.0);
    for (const double ground : {200.1, -999.0}) {
        drop.setting.sfcAlt = ground;
        EXPECT_FALSE(drop.run().extrapSfcPres(out)) << ground;
        EXPECT_EQ(drop.of(LevelType::ExtrapSfcPres), "");
    }
    drop.setting.sfcAlt = 700.0;
    for (const auto& [end, reaches] : {std::pair{25.0, true}, {24.0, false}}) { // 850 and 848 mb
        drop.pres.timeTrimRight(end);
        EXPECT_EQ(drop.run().extrapSfcPres(out), reaches) << end;
    }
}
