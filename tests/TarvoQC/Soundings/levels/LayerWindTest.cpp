#include "LevelProfiles.h"

#include <gtest/gtest.h>

namespace {

const std::vector<LevelFieldId> kLayer{LFtime, LFpres, LFalt, LFu, LFv};

/// 900 to 1000 mb and 1000 to 0 m in 100 s, a wind of u = t and v = 5 m/s.
struct LayerDrop : MadeLevels {
    LayerDrop() {
        setting.windRate = 1;
        pres = everySecond({{0, 900}, {100, 1000}});
        alt = everySecond({{0, 1000}, {100, 0}});
        dz = everySecond({{0, -10}, {100, -10}});
        winds(everySecond({{0, 0}, {100, 100}}));
    }
    void winds(const Series& speed) {
        west(speed);
        for (int i = 0; i <= v.lastIndex(); ++i) {
            v.setData(i, 5.0);
        }
    }
};

} // namespace

// Trapezes of a straight line give the mean of its ends: 51 to 100 s, 0 to 100 s, and 85 to 100 s.
TEST(LayerWinds, AreMeansOverThickness) {
    LayerDrop drop;
    drop.run();
    EXPECT_EQ(drop.of(LevelType::MeanBLWind, kLayer), "50 950 500 75.5 5");
    EXPECT_EQ(drop.of(LevelType::DeepLayer, {LFtime, LFpres, LFpresTop, LFpresBot, LFu, LFv}),
              "100 1000 900 1000 50 5");
    EXPECT_EQ(drop.of(LevelType::Layer150m, kLayer), "92.5 992.5 75 92.5 5");
    EXPECT_NEAR(drop.the(LevelType::MeanBLWind, LFwspd), std::hypot(75.5, 5.0), 1e-9);
    EXPECT_NEAR(drop.the(LevelType::DeepLayer, LFwdir), 270.0 - std::atan2(5.0, 50.0) * 180.0 / std::acos(-1.0), 1e-3);

    drop.setting.windOffset = 2.0; // the winds stand 20 m lower: from -20 m to 130 m
    drop.run();
    EXPECT_EQ(drop.of(LevelType::Layer150m, kLayer), "92.5 992.5 55 92.5 5");

    drop.setting.windOffset = 0.0;
    drop.setting.ascending = true;
    drop.run();
    EXPECT_EQ(drop.count(LevelType::MeanBLWind) + drop.count(LevelType::DeepLayer) + drop.count(LevelType::Layer150m),
              0);
}

// 14 m/s down to 80 s and 80 m, then 4 m/s: weights of 406 m (51 to 80 s) and 80 m (80 to 100 s). 2 mb/s down to 50 s,
// then 1 mb/s: weights of 100 and 50 mb.
TEST(LayerWinds, WeighByTheirOwnThickness) {
    LayerDrop drop;
    drop.alt = everySecond({{0, 1000}, {50, 500}, {80, 80}, {100, 0}});
    drop.pres = everySecond({{0, 850}, {50, 950}, {100, 1000}});
    drop.run();
    EXPECT_NEAR(drop.the(LevelType::MeanBLWind, LFu), (65.5 * 406.0 + 90.0 * 80.0) / 486.0, 1e-9);
    EXPECT_NEAR(drop.the(LevelType::DeepLayer, LFu), (25.0 * 100.0 + 75.0 * 50.0) / 150.0, 1e-9);
    // 75 s stands at 150 m: 70 m to 80 s, 80 m from there.
    EXPECT_NEAR(drop.the(LevelType::Layer150m, LFu), (77.5 * 70.0 + 90.0 * 80.0) / 150.0, 1e-9);
    drop.setting.windOffset = 1.0;
    drop.dz = everySecond({{0, -10}, {80, -10}, {100, 0}}); // thickness from 80 s on 70 m
    drop.run();
    EXPECT_NEAR(drop.the(LevelType::MeanBLWind, LFu), (65.5 * 406.0 + 90.0 * 70.0) / 476.0, 1e-9);
}

TEST(LayerWinds, NeedEnoughWinds) {
    // 41 winds are needed at 2 a second, from that of 51 s on, and a fifth of all to be expected in the deep layer.
    for (const auto& [last, rate, boundary, deep] :
         {std::tuple{92.0, 2, true, true}, {91, 2, false, true}, {92, 5, false, true}, {92, 6, false, false}}) {
        LayerDrop drop;
        drop.setting.windRate = rate;
        drop.winds(everySecond({{0, 0}, {last, last}}));
        drop.run();
        EXPECT_EQ(drop.count(LevelType::MeanBLWind) == 1, boundary) << last << " " << rate;
        EXPECT_EQ(drop.count(LevelType::DeepLayer) == 1, deep) << last << " " << rate;
        EXPECT_EQ(drop.count(LevelType::Layer150m), 1);
    }
    LayerDrop drop;
    drop.alt = everySecond({{0, 1500}, {100, 500.5}});
    drop.run();
    EXPECT_EQ(drop.of(LevelType::MeanBLWind), "");
    for (const auto& [highest, count] : {std::pair{85.0, 0}, {85.5, 1}}) { // at 150 m, where the layer ends
        LayerDrop few;
        few.winds(samples({{80, 1}, {highest, 1}, {90, 1}, {95, 1}, {100, 1}}));
        few.run();
        EXPECT_EQ(few.count(LevelType::Layer150m), count) << highest;
    }
    drop.setting.windRate = 0;
    drop.winds(samples({{97, 1}, {98, 2}, {99, 3}})); // fewer than four make nothing at all
    drop.run();
    EXPECT_EQ(drop.of(LevelType::DeepLayer), "");
    drop.winds(samples({{97, 1}, {98, 2}, {99, 3}, {100, 4}}));
    drop.pres = everySecond({{0, 990}, {96, 998.5}, {100, 999.5}}); // 0.75 mb deep
    drop.run();
    EXPECT_EQ(drop.of(LevelType::DeepLayer), "");
}

// The 39 winds from 51 to 90 s and the one at 100 s are too few by one; the surface wind, at 10 m and 99 s, is the
// 41st.
TEST(LayerWinds, ASurfaceWindClosesTheLayers) {
    for (const bool landed : {true, false}) {
        LayerDrop drop;
        drop.setting.windRate = 2;
        Series speed = everySecond({{0, 0}, {90, 90}});
        speed.appendValue(100, 100);
        drop.winds(speed);
        if (landed) {
            drop.landed();
        }
        drop.run();
        EXPECT_EQ(drop.count(LevelType::MeanBLWind), landed ? 1 : 0);
        if (landed) { // its components: those of the wind, so that the mean stays
            EXPECT_NEAR(drop.the(LevelType::MeanBLWind, LFu), 75.5, 1e-3);
            EXPECT_NEAR(drop.the(LevelType::MeanBLWind, LFv), 5.0, 1e-3);
        }
    }
}

// u is 0 at the launch and 60 from the next sample on, which follows 50 mb or more below.
TEST(LayerWinds, AFarLaunchWindStaysOutOfTheDeepLayer) {
    for (const auto& [second, flag, expected] :
         {std::tuple{900.0, true, "850 45"}, {900.5, true, "900.5 60"}, {900.5, false, "850 44.85"}}) {
        LayerDrop drop;
        drop.pres = samples({{0, 850}, {10, second}, {50, 940}, {100, 950}});
        drop.winds(samples({{0, 0}, {10, 60}, {50, 60}, {100, 60}}));
        drop.setting.windRate = 0;
        if (flag) {
            drop.flagFirst({&drop.wspd}, Value::ObsFlight);
        }
        drop.run();
        EXPECT_EQ(drop.of(LevelType::DeepLayer, {LFpresTop, LFu}), expected) << second << flag;
    }
}

// Where the altitude begins inside of the 150 m the highest wind closes the layer.
TEST(LayerWinds, TheLowLayerMayEndBelow150m) {
    struct Case {
        Knots alt; ///< each second from 5 s on; the winds stand at 4, 5, 7, 8 and 10 s
        const char* expected;
    };
    for (const auto& [alt, expected] : {Case{{{5, 120}, {7, 80}, {8, 40}, {10, 0}}, "7.5 60 28.3333"},
                                        {{{5, 112.5}, {7, 80}, {8, 40}, {10, 0}}, "7.5 56.25 27.2222"},
                                        {{{5, 120}, {7, 90}, {8, 50}, {10, 10}}, ""},
                                        {{{6, 120}, {7, 80}, {8, 40}, {10, 0}}, ""}}) {
        LayerDrop drop;
        drop.alt = samples(alt);
        drop.winds(samples({{4, 90}, {5, 60}, {7, 30}, {8, 20}, {10, 10}}));
        drop.run();
        EXPECT_EQ(drop.of(LevelType::Layer150m, {LFtime, LFalt, LFu}), expected);
    }
}

// 300 m stand at 60 s. With altitudes behind that the layer goes from 96 s, 30 m, up to 76 s, without from 60 to 45 s.
TEST(LayerWinds, TheLowLayerReadsAltitudesAcross40s) {
    for (const auto& [end, expected] : {std::pair{100.0, "86 105"}, {100.5, "52.5 375"}}) {
        LayerDrop drop;
        drop.alt = samples({{0, 900}, {10, 800}, {60, 300}, {end, 0}});
        drop.alt.insertValue(Value(550, 35));
        Series speed;
        for (const double time : {40, 45, 50, 55, 58, 60, 72, 80, 84, 90, 96}) {
            speed.appendValue(30, time);
        }
        drop.winds(speed);
        drop.run();
        EXPECT_EQ(drop.of(LevelType::Layer150m, {LFtime, LFalt}), expected);
    }
}

TEST(LayerWinds, PlacesAreThoseOfTheEndsThatHaveAPosition) {
    const std::vector<LevelFieldId> fields{LFtime, LFpres, LFwspd, LFwdir, LFlat, LFlon};
    LayerDrop drop;
    drop.lat = everySecond({{10, 25}, {90, 26}});
    drop.lon = everySecond({{10, -80}, {90, -79}});
    drop.run();
    EXPECT_EQ(drop.of(LevelType::SPGLocation, fields), "90 990 90 270 26 -79");
    EXPECT_EQ(drop.of(LevelType::RELLocation, fields), "10 910 10 270 25 -80");
    drop.lon.timeTrimRight(80);
    drop.run();
    EXPECT_EQ(drop.of(LevelType::SPGLocation), "");
    EXPECT_EQ(drop.of(LevelType::RELLocation), "10 910");
    drop.lat.removeAll();
    drop.run();
    EXPECT_EQ(drop.of(LevelType::RELLocation), "");
}
