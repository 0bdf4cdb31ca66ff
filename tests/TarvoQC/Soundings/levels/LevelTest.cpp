#include "LevelProfiles.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <map>

namespace {

using testing::ElementsAre;
using testing::Pair;

Level made(LevelType type, double time, double pressure, bool tag = false) {
    Level level(type);
    level.setField(LFtime, time);
    level.setField(LFpres, pressure);
    level.tag(tag);
    return level;
}

std::string timesOf(const std::vector<Level>& levels) {
    std::string text;
    for (const Level& level : levels) {
        double time = -1.0;
        level.getFieldData(LFtime, time);
        text += (text.empty() ? "" : " ") + std::to_string(static_cast<int>(time));
    }
    return text;
}

} // namespace

TEST(Level, TaggedFieldsReadAsAbsent) {
    Level level = made(LevelType::Standard, 1.0, 500.0);
    EXPECT_TRUE(level.empty());
    double value = 7.0;
    EXPECT_FALSE(level.getFieldData(LFwdir, value));
    EXPECT_EQ(value, 7.0);
    level.setField(LFwdir, 0.0);
    EXPECT_FALSE(level.empty());
    level.getField(LFwdir)->setTag(true);
    EXPECT_FALSE(level.getFieldData(LFwdir, value));
    EXPECT_TRUE(level.empty());
    level.setField(LFwdir, 5.0); // keeps its tag
    ASSERT_NE(level.getField(LFwdir), nullptr);
    EXPECT_TRUE(level.getField(LFwdir)->tag());
    EXPECT_EQ(level.getField(LFwdir)->value(), 5.0);
    EXPECT_EQ(level.getField(LFwdir)->id(), LFwdir);
    EXPECT_EQ(level.getField(LFnone), nullptr);
    EXPECT_EQ(LevelField().id(), LFnone);
}

// The numbers are those of the database.
TEST(Level, NamesItsNumbers) {
    const std::map<int, std::string> names{{0, "Standard"},
                                           {3, "Extrapolated Sfc Pressure"},
                                           {8, "110-100mb Temperature"},
                                           {13, "Missing Temperature Top"},
                                           {25, "GDL Wind Direction"},
                                           {34, "62626 REL Location"},
                                           {35, "Unknown"},
                                           {-1, "Unknown"}};
    for (const auto& [number, name] : names) {
        EXPECT_EQ(Level::LTname(static_cast<LevelType>(number)), name);
    }
    std::string fields;
    for (int id = 0; id <= 13; ++id) {
        fields += Level::LFname(static_cast<LevelFieldId>(id)) + ",";
    }
    EXPECT_EQ(fields, "time,pres,tdry,rh,wspd,wdir,u,v,alt,pres top,pres bot,latitude,longitude,Unknown,");
}

TEST(Level, OrdersByPressureThenTimeThenType) {
    Level timeless(LevelType::GDLRH);
    timeless.setField(LFpres, 500.0);
    Level pressureless(LevelType::Standard);
    pressureless.setField(LFtime, 5.0);
    int n = 0;
    for (const auto& [a, b, less, greater, equal] :
         {std::tuple{made(LevelType::GDLRH, 9, 400), made(LevelType::Standard, 1, 500), true, false, false},
          {made(LevelType::GDLRH, 1, 500), made(LevelType::Standard, 2, 500), true, false, true},
          {made(LevelType::Standard, 1, 500), made(LevelType::GDLRH, 1, 500), true, false, true},
          {made(LevelType::GDLRH, 1, 500), made(LevelType::GDLRH, 1, 500), false, false, true},
          {timeless, made(LevelType::Standard, 1, 500), false, false, true},
          {pressureless, made(LevelType::Standard, 6, 100), true, false, false},
          {pressureless, made(LevelType::GDLRH, 5, 900), false, false, false}}) {
        EXPECT_EQ(a < b, less) << n;
        EXPECT_EQ(b < a, greater) << n;
        EXPECT_EQ(a == b, equal) << n++;
    }
}

TEST(Levels, AnnouncesItsStepsAndSortsByPressure) {
    MadeDrop drop;
    drop.landed();
    const std::vector<Level>& levels = drop.run().levels();
    EXPECT_EQ(drop.agent.heard,
              "surface thermodynamic|surface winds|missing temperature|highest thermodynamic|110 mb thermodynamic|"
              "inversions|station base pressure|110 mb wind|highest wind|extrapolate mandatory altitude|"
              "GDL thermodynamic|GDL winds|tropopause|missing RH|standard|maxwind|62626|");
    ASSERT_GT(levels.size(), 8U);
    EXPECT_TRUE(std::is_sorted(levels.begin(), levels.end()));
    // Four at the top, of one time and pressure, by type.
    EXPECT_EQ(levels[0].levelType(), LevelType::HighestThermo);
    EXPECT_EQ(levels[1].levelType(), LevelType::HighestWind);
    EXPECT_EQ(levels[2].levelType(), LevelType::RELLocation);
    double lat = 0.0;
    double lon = 0.0;
    EXPECT_TRUE(drop.levels->highestPos(lat, lon));
    EXPECT_EQ(lat, 25.0);
    EXPECT_EQ(lon, -80.0);
    EXPECT_EQ(drop.levels->windHeightOffset(50.0), 0.0);
    drop.setting.windOffset = 2.0;
    EXPECT_EQ(drop.run().windHeightOffset(50.0), -20.0);
    EXPECT_EQ(drop.levels->windHeightOffset(101.0), -24.0); // no fall rate there
}

// Without observations at the surface its levels have only a time, which is the least of an upsonde and the greatest of
// a drop; the smallest pressure comes latest in the one and first in the other.
TEST(Levels, ALevelWithoutPressureDoesntUpsetTheOrder) {
    const auto listed = [](const MadeLevels& made) {
        std::string text;
        for (const Level& level : made.levels->levels()) {
            double pressure = 0.0;
            text +=
                (level.getFieldData(LFpres, pressure) ? std::to_string(std::lround(pressure)) : level.LTname()) + "|";
        }
        return text;
    };
    MadeLevels up;
    up.setting.ascending = true;
    up.pres = everySecond({{0, 1010}, {60, 890}});
    up.alt = everySecond({{0, 30}, {60, 1080}});
    up.tdry = up.rh = everySecond({{0, 20}, {60, 8}});
    up.west(everySecond({{0, 3}, {60, 33}}));
    up.run();
    // The ends of the data twice each, for temperature and wind; two standard levels.
    EXPECT_EQ(listed(up), "Surface Thermodynamic|Surface Wind|890|890|925|1000|1010|1010|");

    MadeDrop drop;
    drop.run();
    // Made ahead of the five at 1000 mb, which are no later.
    EXPECT_THAT(listed(drop), testing::EndsWith("985|Surface Thermodynamic|Surface Wind|1000|1000|1000|1000|1000|"));
}

TEST(Levels, SubsetsAndPairs) {
    MadeLevels made;
    Levels& levels = made.run();
    levels.append(::made(LevelType::Standard, 1, 2000));
    levels.append(::made(LevelType::GDLRH, 2, 850));
    levels.append(::made(LevelType::Standard, 3, 850, true));
    levels.append(::made(LevelType::Standard, 4, 100));
    Level bare(LevelType::Standard);
    bare.setField(LFtime, 5);
    bare.setField(LFrh, 30);
    levels.append(bare);
    levels.levels()[1].setField(LFrh, 55.04);
    levels.levels()[2].setField(LFrh, 66.0);
    levels.levels()[0].setField(LFrh, 11.0);

    EXPECT_EQ(timesOf(levels.subsetByType(LevelType::Standard)), "1 3 4 5");
    EXPECT_EQ(timesOf(levels.subsetByType(LevelType::Standard, 100, 2000, true)), "3 4");
    EXPECT_EQ(timesOf(levels.subsetByType(LevelType::Standard, 100, 2000.5, false)), "1 4");
    EXPECT_EQ(timesOf(levels.subsetByType(LevelType::Standard, 100.5, 2000, false)), "");
    const std::vector<LevelType> both{LevelType::GDLRH, LevelType::Standard};
    EXPECT_EQ(timesOf(levels.subsetByType(both, 0, 2000, true)), "2 3 4");
    EXPECT_EQ(timesOf(levels.sortByPres()), "4 2 3 1");

    Series out = samples({{2.5, 1.0}});
    levels.dataFromLevels(both, 0, 3000, true, out, LFrh);
    EXPECT_EQ(out.timeArray(), (std::vector<double>{1.0, 2.0, 2.5, 3.0}));
    EXPECT_EQ(out.data(1), 55.04);

    std::vector<std::pair<double, double>> pairs{{9.0, 9.0}};
    std::vector<std::string> labels{"old"};
    levels.dataFor2Fields(LFrh, LFtime, false, pairs, labels);
    EXPECT_THAT(pairs, ElementsAre(Pair(11.0, 1.0), Pair(55.04, 2.0), Pair(30.0, 5.0)));
    EXPECT_THAT(labels, ElementsAre("Standard", "GDL RH at 850.0 mb", "Standard"));
    levels.dataFor2Fields(LFrh, LFtime, true, pairs, labels);
    EXPECT_EQ(pairs.size(), 4U);

    EXPECT_EQ(levels.header(), "    Time     Pres     Tdry       RH    Speed      Dir      Alt     Type   ");
    EXPECT_EQ(levels.levelString(1), "     2.0    850.0              55.0                            GDL RH");
}
