#include "Tropopause.h"
#include "LevelProfiles.h"

#include <gtest/gtest.h>

namespace {

/// A profile sampled each 10 m of height and each second, up to its last knot; 500 mb lie at 4.85 km and 200 mb at
/// 11.27 km.
struct Profile : MadeLevels {
    explicit Profile(const Knots& tdryByHeight, bool isAscending = true, double spacing = 10.0) {
        setting.ascending = isAscending;
        const double top = tdryByHeight.back().first;
        const int last = static_cast<int>(top / spacing);
        for (int i = 0; i <= last; ++i) {
            const double z = spacing * (isAscending ? i : last - i);
            alt.appendValue(z, i);
            pres.appendValue(1000.0 * std::exp(-z / 7000.0), i);
            tdry.appendValue(onLines(tdryByHeight, z), i);
        }
    }
};

struct TropCase {
    const char* name;
    Knots tdry;                  ///< deg C by height in m
    std::vector<double> heights; ///< m, from the top downward
};

constexpr double kFoot = -56.5; // deg C at 11 km, 6.5 K/km above 15 deg C

const std::vector<TropCase> kTropCases{
    {"One", {{0, 15}, {11000, kFoot}, {20000, kFoot}}, {11000}},
    {"BelowTheTropopause200mbAreNotReached", {{0, 15}, {8000, -37}, {11200, -37}}, {}},
    {"JustReached", {{0, 15}, {8000, -37}, {11300, -37}}, {8000}},
    {"Below500mbOnlyByFallback", {{0, 15}, {3000, 3}, {14000, 3}}, {3000}},
    {"FallbackUnderSlopes", {{0, 15}, {3000, 3}, {9000, 3}, {14000, -9.5}}, {3000}},
    {"NoFallbackUnderSteepSlopes", {{0, 15}, {3000, 3}, {9000, 3}, {14000, -14.5}}, {}},
    {"NoFallbackUnderAThinLayer", {{0, 15}, {3000, 3}, {3200, 3}, {14000, -26.16}}, {}},
    {"NoStableLayer", {{0, 15}, {14000, -76}}, {}},
    {"Slope1.9", {{0, 15}, {11000, kFoot}, {14000, kFoot - 5.7}, {16000, kFoot - 17}}, {11000}},
    {"Slope2.1", {{0, 15}, {11000, kFoot}, {14000, kFoot - 6.3}, {16000, kFoot - 17}}, {}},
    // Isothermal at first, then 5 K/km: 2 km above the foot the mean is 1.75 or 2.25.
    {"MeanBelow2", {{0, 15}, {11000, kFoot}, {12300, kFoot}, {16000, kFoot - 18.5}}, {11000}},
    {"MeanAbove2", {{0, 15}, {11000, kFoot}, {12100, kFoot}, {16000, kFoot - 19.5}}, {}},
    {"LayerReachesTheTop", {{0, 15}, {11000, kFoot}, {13150, kFoot}}, {11000}},
    {"LayerCutOffByTheTop", {{0, 15}, {11000, kFoot}, {12900, kFoot}}, {}},
    {"TwoAfterOneTooThin",
     {{0, 15}, {6000, -24}, {6500, -24}, {11000, -53}, {14000, -53}, {16000, -65}, {20000, -65}},
     {16000, 11000}},
    {"Three",
     {{0, 15}, {9000, -43}, {12000, -43}, {14000, -55}, {17000, -55}, {19000, -67}, {22000, -67}},
     {19000, 14000, 9000}},
    {"NeverFour",
     {{0, 15},
      {9000, -43},
      {12000, -43},
      {14000, -55},
      {17000, -55},
      {19000, -67},
      {22000, -67},
      {24000, -79},
      {27000, -79}},
     {19000, 14000, 9000}}};

} // namespace

// The spline turns a corner within 100 m.
TEST(Tropopause, StandsAtTheFootOfAStableLayer) {
    for (const TropCase& c : kTropCases) {
        for (const bool ascending : {true, false}) {
            Profile profile(c.tdry, ascending);
            profile.criteria.tropSmoothWL = ascending ? 10.0 : 0.0;
            profile.run();
            const std::vector<Level> found = profile.levels->subsetByType(LevelType::TropopauseLevel);
            ASSERT_EQ(found.size(), c.heights.size()) << c.name << ascending;
            for (std::size_t i = 0; i < found.size(); ++i) {
                EXPECT_NEAR(found[i].getField(LFalt)->value(), c.heights[i], 100.0) << c.name << ascending;
            }
        }
    }
}

TEST(Tropopause, CarriesWhatCanBeReadThere) {
    Profile profile({{0, 15}, {11000, kFoot}, {20000, kFoot}});
    profile.rh = samples({{0, 80}, {2000, 0}});
    profile.west(samples({{1080, 25}, {1120, 25}}));
    profile.run();
    EXPECT_NEAR(profile.the(LevelType::TropopauseLevel, LFtime), 1100, 10);
    EXPECT_NEAR(profile.the(LevelType::TropopauseLevel, LFpres), 207.75, 3); // 1000 exp(-11/7)
    EXPECT_NEAR(profile.the(LevelType::TropopauseLevel, LFtdry), kFoot, 0.2);
    EXPECT_EQ(profile.of(LevelType::TropopauseLevel, {LFrh, LFwspd, LFwdir, LFu, LFv}), "- 25 270 25 0");
}

TEST(Tropopause, NeedsTenSamplesAnd200mb) {
    for (const auto& [count, top, searched] :
         {std::tuple{10, 200.0, true}, {9, 200, false}, {10, 200.1, false}, {10, 150, true}}) {
        for (const bool ascending : {true, false}) {
            Series pres;
            Series alt;
            for (int i = 0; i < count; ++i) {
                const int up = ascending ? i : count - 1 - i;
                pres.appendValue(top + 10.0 * (count - 1 - up), i);
                alt.appendValue(500.0 * up, i);
            }
            EXPECT_EQ(Tropopause(&alt, &alt, &pres, 0.0, ascending).test200mb(), searched) << count << " " << top;
        }
    }
}

// At 1000 m 1 mb is 8.07 m: the steps are of 4.7 and 5.4 mb.
TEST(Tropopause, FallbackNeedsFineSamples) {
    for (const auto& [spacing, count] : {std::pair{38.0, 1}, {44.0, 0}}) {
        Profile profile({{0, 15}, {1000, 11}, {14000, 11}}, true, spacing);
        profile.run();
        EXPECT_EQ(profile.count(LevelType::TropopauseLevel), count) << spacing;
    }
}

namespace {

/// An ascent of 10 mb and 200 m a second from 1000 mb, whose wind of 10 m/s peaks at \p peakTime.
struct WindyAscent : MadeLevels {
    WindyAscent(double peakTime, double peak, double firstPressure = 1000.0) {
        setting.ascending = true;
        criteria.wspdDelta = 10.0;
        pres = everySecond({{0, firstPressure}, {90, firstPressure - 900.0}});
        alt = everySecond({{0, 0}, {90, 18000}});
        west(everySecond({{0, 10}, {peakTime, peak}, {90, 10}}));
    }
};

const std::vector<LevelFieldId> kFields{LFtime, LFpres, LFalt, LFwspd, LFwdir};

} // namespace

TEST(MaxWind, CountsFrom60AndAHalfKnotsAnd500mb) {
    for (const auto& [time, peak, firstPressure, expected] :
         {std::tuple{60.0, 31.185567010309278, 1000.0, "60 400 12000 31.1856 270"},
          {60, 31.1855, 1000, ""},
          {50, 50, 1000, "50 500 10000 50 270"},
          {50, 50, 1000.1, ""}}) { // 500.1 mb
        WindyAscent up(time, peak, firstPressure);
        up.run();
        EXPECT_EQ(up.of(LevelType::MaxWind, kFields), expected) << peak << " " << firstPressure;
    }
}

// 914 m are 4.57 s; the wind falls by 40 m/s in 30 s above the peak at 60 s, and by 40 m/s in 60 s below.
TEST(MaxWind, HasTheShear914mAboveAndBelow) {
    WindyAscent up(60, 50);
    up.run();
    EXPECT_EQ(up.of(LevelType::ShearAbove, kFields), "64.57 354.3 12914 43.9067 270");
    EXPECT_EQ(up.of(LevelType::ShearBelow, kFields), "55.43 445.7 11086 46.9533 270");
    EXPECT_NEAR(up.the(LevelType::ShearAbove, LFu), 50 - 4.57 * 40 / 30, 1e-9);
    up.alt.removeAll();
    up.run();
    EXPECT_EQ(up.of(LevelType::MaxWind, kFields), "60 400 - 50 270");
    EXPECT_EQ(up.count(LevelType::ShearAbove) + up.count(LevelType::ShearBelow), 0);

    WindyAscent top(90, 50);
    top.west(everySecond({{0, 10}, {90, 50}}));
    top.run();
    EXPECT_EQ(top.of(LevelType::MaxWind, kFields), "90 100 18000 50 270");
    EXPECT_EQ(top.count(LevelType::ShearAbove), 0);
    EXPECT_EQ(top.of(LevelType::ShearBelow, {LFtime, LFalt}), "85.43 17086");
}
