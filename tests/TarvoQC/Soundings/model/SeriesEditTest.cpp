#include "DCapture.h"
#include "MakeSeries.h"
#include "Series.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>
#include <sstream>

using testing::ElementsAre;

TEST(Series, insertGoesBeforeTheFirstValueAtOrAfterItsTime) {
    for (const auto& [time, index] : {std::pair{0.0, 0}, {1.0, 0}, {1.5, 1}, {2.0, 1}, {2.5, 3}, {3.0, 3}, {4.0, 4}}) {
        Series series = makeSeries({{1, 0}, {2, 0}, {2, 0}, {3, 0}});
        Value value(7, time);
        value.setAttributes(Value::ObsSurface | Value::QcKeep);
        ASSERT_EQ(series.insertValue(value), index) << time;
        EXPECT_EQ(series.lastIndex(), 4);
        EXPECT_EQ(series.data(index), 7);
        EXPECT_EQ(series.attributes(index), 0x22U);
    }
}

TEST(Series, sortsByTimeAndKeepsTheOrderOfOneTime) {
    Series series = makeSeries({{5, 1}, {2, 2}, {3, 3}, {2, 4}});
    series.setAttribute(3, Value::QcKeep);
    double out = 0.0;
    ASSERT_TRUE(series.interpolate(4, 60, out)); // what a search remembers is of the order before
    series.sortByTime();
    EXPECT_THAT(samplesOf(series), ElementsAre(Sample{2, 2}, Sample{2, 4}, Sample{3, 3}, Sample{5, 1}));
    EXPECT_TRUE(series.testAttribute(1, Value::QcKeep));
    ASSERT_TRUE(series.interpolate(4, 60, out));
    EXPECT_EQ(out, 2);
}

TEST(Series, timeTrims) {
    using Samples = std::vector<double>;
    const Samples all{1, 2, 2, 3, 5};
    const struct {
        const char* name;
        void (*trim)(Series&);
        Samples left;
    } cases[] = {
        {"left 0", [](Series& s) { s.timeTrimLeft(0); }, all},
        {"left 2", [](Series& s) { s.timeTrimLeft(2); }, {3, 5}},
        {"right 5", [](Series& s) { s.timeTrimRight(5); }, all},
        {"right 2", [](Series& s) { s.timeTrimRight(2); }, {1, 2, 2}},
        {"right 0", [](Series& s) { s.timeTrimRight(0); }, {1}},
        {"1 to 3", [](Series& s) { s.timeTrim(1, 3); }, {2, 2, 3}},
        {"2 to 0", [](Series& s) { s.timeTrim(2, 0); }, {3}},
        {"middle 1 to 3", [](Series& s) { s.timeTrimMiddle(1, 3); }, {1, 3, 5}},
        {"middle 0 to 6", [](Series& s) { s.timeTrimMiddle(0, 6); }, {}},
        {"middle 3 to 1", [](Series& s) { s.timeTrimMiddle(3, 1); }, all},
    };
    for (const auto& c : cases) {
        Series series;
        for (const double time : all) {
            series.appendValue(0, time);
        }
        c.trim(series);
        EXPECT_EQ(series.timeArray(), c.left) << c.name;
    }
    Series none;
    EXPECT_EQ(none.lastIndex(), -1);
    none.timeTrim(0, 1);
    EXPECT_TRUE(none.empty());
    // A series that runs back in time is cut up to the first later value, and not to the last early one.
    Series folded = makeSeries({{1, 0}, {4, 0}, {2, 0}});
    folded.timeTrim(2, 3);
    EXPECT_THAT(folded.timeArray(), ElementsAre(4, 2));
}

// The slope tells whether the kept fit was made anew.
TEST(Series, trendFollowsEveryChange) {
    const struct {
        const char* name;
        void (*change)(Series&);
        double slope;
    } cases[] = {
        {"setData", [](Series& s) { s.setData(2, 6); }, 3},
        {"setTime", [](Series& s) { s.setTime(2, 3); }, 3.0 / 14.0},
        {"append", [](Series& s) { s.appendValue(-1, 3); }, -0.4},
        {"prepend", [](Series& s) { s.prependValue(3, -1); }, -0.4},
        {"insert", [](Series& s) { s.insertValue(Value(5, 0)); }, -8.0 / 11.0},
        {"remove", [](Series& s) { s.remove(0); }, -1},
        {"left", [](Series& s) { s.timeTrimLeft(0); }, -1},
        {"right", [](Series& s) { s.timeTrimRight(1); }, 2},
        {"middle", [](Series& s) { s.timeTrimMiddle(-1, 0.5); }, -1},
        {"removeAll", [](Series& s) { s.removeAll(); }, 0},
        {"reset", [](Series& s) { s.reset(Id("b")); }, 0},
    };
    for (const auto& c : cases) {
        Series series = makeSeries({{0, 0}, {1, 2}, {2, 1}});
        ASSERT_EQ(series.trend().slope(), 0.5);
        c.change(series);
        EXPECT_NEAR(series.trend().slope(), c.slope, 1e-14) << c.name;
    }
}

TEST(Series, averageOfAHalfOpenRange) {
    const Series series = makeSeries({{1, 10}, {2, 20}, {3, 60}});
    double out = 7;
    for (const auto& [first, last] : {std::pair{1, 1}, {2, 1}, {-1, 2}, {0, 4}}) {
        EXPECT_FALSE(series.average(first, last, out)) << first << " " << last;
    }
    EXPECT_EQ(out, 7);
    EXPECT_TRUE(series.average(0, 3, out));
    EXPECT_EQ(out, 30);
    EXPECT_TRUE(series.average(1, 2, out));
    EXPECT_EQ(out, 20);
}

TEST(Series, matchKeepsValuesOfCommonTimesAndPairsOffThoseThatShareOne) {
    Series speed = makeSeries({{1, 10}, {2, 20}, {2, 21}, {3, 30}, {3, 31}, {5, 50}}, "spd");
    Series direction = makeSeries({{0, 4}, {2, 5}, {2, 6}, {2, 7}, {3, 8}, {4, 9}}, "dir");
    speed.setAttribute(1, Value::QcIgnore);
    direction.setAttribute(4, Value::CrcGps);
    const auto [mine, theirs] = speed.matchSeries(direction);
    EXPECT_THAT(samplesOf(mine), ElementsAre(Sample{2, 20}, Sample{2, 21}, Sample{3, 30}));
    EXPECT_THAT(samplesOf(theirs), ElementsAre(Sample{2, 5}, Sample{2, 6}, Sample{3, 8}));
    EXPECT_EQ(mine.attributes(0), 0x10U);
    EXPECT_EQ(theirs.attributes(2), 0x08U);

    Series result = makeSeries({{9, 9}}, "old");
    speed.matchSeries(direction, result);
    EXPECT_THAT(result.dataArray(), ElementsAre(20, 21, 30, 31));
}

TEST(Series, dumpAndCapture) {
    const Series series = makeSeries({{-1, 1013.25}, {0.5, -0.00012345}, {12345.67, 1e7}}, "QCPres");
    EXPECT_THAT(series.dump(0, 99, "before"),
                ElementsAre("QCPres values for indices 0:2 before\n", "        1013 (t   -1.0)",
                            "  -0.0001234 (t    0.5)", "       1e+07 (t 12345.7)"));
    EXPECT_THAT(series.dump(1, 1, "x"), ElementsAre("QCPres values for indices 1:1 x\n", "  -0.0001234 (t    0.5)"));
    EXPECT_THAT(Series(Id("e")).dump(0, 5, "x"), ElementsAre("e values for indices 0:-1 x\n"));

    const auto before = std::filesystem::current_path();
    std::filesystem::current_path(testing::TempDir());
    series.capture(0, 2, "lost");
    DCapture::enable(true);
    series.capture(0, 0, "kept");
    DCapture::enable(false);
    DCapture::instance().flush();
    std::ostringstream content;
    content << std::ifstream(DCapture::instance().fileName()).rdbuf();
    std::filesystem::remove(DCapture::instance().fileName());
    std::filesystem::current_path(before);
    EXPECT_EQ(content.str(), "QCPres values for indices 0:0 kept\n\n        1013 (t   -1.0)\n");
}
