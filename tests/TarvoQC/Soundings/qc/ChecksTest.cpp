#include "BuddyCheck.h"
#include "FilterCheck.h"
#include "OutlierCheck.h"
#include "ScalarAdjustment.h"
#include "Smooth.h"

#include "QcRun.h"

#include <algorithm>
#include <cmath>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sstream>

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

/// The times that bear a flag.
std::string stamped(const Series& series, Value::AttributeType attribute) {
    std::ostringstream text;
    for (int i = 0; i <= series.lastIndex(); ++i) {
        if (series.testAttribute(i, attribute)) {
            text << (text.tellp() > 0 ? " " : "") << series.time(i);
        }
    }
    return text.str();
}

/// A sounding that didn't reach the surface, so that nothing is added at its end.
struct CheckRun : QcRun {
    explicit CheckRun(const CsvText& csv) : QcRun(csv) {
        config.set.set("DropsondeHitSfc", 0.0);
        config.set.add("PresMonoCheck", 0.0, false, false, true);
        config.set.add("BlendLength", 0.0, false, false, true);
        config.set.add("WindVVPresWL", 0.0, false, false, true);
        load();
    }
    Series& at(const char* name) { return *sounding->getSeries(name); }
    std::string times(const char* name) { return timesOf(at(name)); }
    std::vector<std::string> items(const std::string& topic) { return summary.items(topic); }
    void expectWindTimes(const std::string& expected) {
        for (const char* name : {"QCWspd", "QCWdir", "QCU", "QCV"}) {
            EXPECT_EQ(times(name), expected) << name;
        }
    }
};

const char* const kFields = "Time,Pressure,Temperature,RH,Speed,Direction,Latitude,Longitude,GpsAlt,Sats";

CsvText drop() {
    CsvText text(false);
    text.fields(kFields);
    return text;
}

/// Five good samples.
CsvText fiveOfADrop() {
    CsvText text = drop();
    for (int i = 0; i < 5; ++i) {
        text.data(std::to_string(i) + "," + std::to_string(500 + i) + ",-5,50,10,90,25,-80," +
                  std::to_string(5000 - 10 * i) + ",8");
    }
    return text;
}

CsvText pressures(bool ascending, const std::vector<double>& data) {
    CsvText text(ascending);
    text.fields("Time,Pressure");
    for (std::size_t i = 0; i < data.size(); ++i) {
        text.data(std::to_string(i) + "," + std::to_string(data[i]));
    }
    return text;
}

} // namespace

TEST(ScalarAdjustment, LimitsPassBothEnds) {
    Series judged = seriesOf("QCPres", {0.99, 1.0, 1200.0, 1200.01, 500.0, 0.5});
    Series companion = seriesOf("QCVVPres", {1, 2, 3, 4, 5, 6});
    Series raw = seriesOf("RawPres", {1, 2, 3, 4, 5, 6});
    judged.setAttribute(5, Value::QcKeep);
    EXPECT_EQ(ScalarAdjustment::limits({&judged, &companion}, 1.0, 1200.0, {&raw}), 2);
    EXPECT_EQ(textOf(judged), "1:1 2:1200 4:500 5:0.5");
    EXPECT_EQ(timesOf(companion), "1 2 4 5");
    EXPECT_EQ(stamped(raw, Value::QcLimitCheck), "0 3");
    EXPECT_EQ(ScalarAdjustment::limits(&judged, 2.0, 1200.0, nullptr), 1) << "no stamp asked for";
    EXPECT_EQ(timesOf(judged), "2 4 5");
}

TEST(ScalarAdjustment, Thresholds) {
    Series series = seriesOf("QCRH", {-1.0, 0.0, 100.0, 101.0});
    EXPECT_EQ(ScalarAdjustment::minThreshold(series, 0.0), 1);
    EXPECT_EQ(ScalarAdjustment::maxThreshold(series, 100.0), 1);
    EXPECT_EQ(textOf(series), "0:0 1:0 2:100 3:100");
}

TEST(BuddyCheck, SpikesStepsAndEnds) {
    struct {
        const char* what;
        std::vector<double> data;
        const char* removed;
    } const cases[] = {
        {"two values", {0, 100}, ""},
        {"a lone spike", {5, 5, 5, 5, 15, 5, 5, 5, 5}, "4"},
        {"a spike downward", {5, 5, 5, 5, -5, 5, 5, 5, 5}, "4"},
        {"a step", {5, 5, 5, 5, 15, 15, 15, 15, 15}, ""},
        {"the last value", {5, 5, 5, 5, 5, 5, 5, 5, 25}, "8"},
        {"the first value", {25, 5, 5, 5, 5, 5, 5, 5, 5}, ""},
        {"up and down at the end", {5, 5, 5, 5, 5, 5, 5, 25, 5}, "7 8"},
        {"a failed value stays a neighbour", {5, 5, 5, 25, 5, 25, 5, 5, 5}, "3 4 5"},
    };
    for (const auto& c : cases) {
        Series judged = seriesOf("QCTdry", c.data);
        Series raw = judged;
        Series companion = judged;
        const int removed = BuddyCheck().check({&judged, &companion}, 6.0, {&raw});
        EXPECT_EQ(removed, raw.lastIndex() - judged.lastIndex()) << c.what;
        EXPECT_EQ(stamped(raw, Value::QcBuddyCheck), c.removed) << c.what;
        EXPECT_EQ(textOf(companion), textOf(judged)) << c.what;
        for (const Value& value : judged) {
            EXPECT_FALSE(raw.testAttribute(raw.indexFromTime(value.time()), Value::QcBuddyCheck)) << c.what;
        }
    }
}

TEST(BuddyCheck, SlopesAreAboutTheTrend) {
    Series steep = seriesOf("QCPres", {0, 10, 20, 30, 40});
    EXPECT_EQ(BuddyCheck().check(&steep, 1.0, nullptr), 0) << "10 a second, all of it trend";
}

// The trend of both is level, at 2 and 4: slopes of exactly 10 a second.
TEST(BuddyCheck, ASlopeMustExceedTheLimit) {
    for (const std::vector<double>& data : {std::vector<double>{0, 0, 10, 0, 0}, {10, 0, 0, 0, 10}}) {
        Series judged = seriesOf("QCTdry", data);
        EXPECT_EQ(BuddyCheck().check(&judged, 10.0, nullptr), 0);
        EXPECT_EQ(BuddyCheck().check(&judged, 9.99, nullptr), 1);
    }
}

TEST(OutlierCheck, AboutTheTrendInStandardDeviations) {
    // About the mean 1 (the spike is in the middle, so there is no slope) the residuals are -1, eight times, and 8:
    // the standard deviation is sqrt((8 + 64) / 9) = 2.828, and the spike stands off by 2.828 of them.
    const std::vector<double> data{0, 0, 0, 0, 9, 0, 0, 0, 0};
    for (const bool kept : {false, true}) {
        for (const double limit : {2.82, 2.83}) {
            Series judged = seriesOf("QCTdry", data);
            Series companion = judged;
            Series raw = judged;
            if (kept) {
                judged.setAttribute(4, Value::QcKeep);
            }
            const bool fails = limit < 2.825 && !kept;
            EXPECT_EQ(OutlierCheck().check({&judged, &companion}, limit, {&raw}), fails ? 1 : 0) << limit;
            EXPECT_EQ(stamped(raw, Value::QcOutlierCheck), fails ? "4" : "");
            EXPECT_EQ(judged.lastIndex(), fails ? 7 : 8);
            EXPECT_EQ(textOf(companion), textOf(judged));
        }
    }
}

TEST(OutlierCheck, TheFirstIsNeverJudgedAndALineLosesNothing) {
    Series first = seriesOf("QCTdry", {90, 0, 0, 0, 0, 0, 0});
    EXPECT_EQ(OutlierCheck().check(&first, 0.0, nullptr), 6) << "all but the first";
    EXPECT_EQ(textOf(first), "0:90");
    EXPECT_EQ(OutlierCheck().check(&first, 0.0, nullptr), 0);
    Series line = seriesOf("QCTdry", {1, 2, 3, 4, 5});
    EXPECT_EQ(OutlierCheck().check(&line, 1.0, nullptr), 0);
    Series none = seriesOf("QCTdry", {});
    EXPECT_EQ(OutlierCheck().check(&none, 1.0, nullptr), 0);
}

TEST(FilterCheck, ObservationsAtTheEndsAreInTheFitOnly) {
    std::vector<double> data(41, 10.0);
    data.front() = 60.0;
    data.back() = 60.0;
    for (const bool observed : {false, true}) {
        Series judged = seriesOf("QCTdry", data);
        if (observed) {
            judged.setAttribute(0, Value::ObsFlight);
            judged.setAttribute(40, Value::ObsSurface);
        }
        bool failed = true;
        FilterCheck().check(&judged, 5.0, 20.0, nullptr, failed);
        EXPECT_FALSE(failed);
        EXPECT_EQ(judged.time(0) == 0.0, observed);
        EXPECT_EQ(judged.time(judged.lastIndex()) == 40.0, observed);
        EXPECT_LT(judged.lastIndex(), 40) << "the ends bend the curve away from their neighbours";
    }
}

TEST(FilterCheck, TooShort) {
    bool failed = true;
    Series two = seriesOf("QCTdry", {1, 1000});
    EXPECT_EQ(FilterCheck().check(&two, 0.1, 20.0, nullptr, failed), 0);
    EXPECT_FALSE(failed);
    Series three = seriesOf("QCTdry", {1, 1000, 1});
    EXPECT_EQ(FilterCheck().check(&three, 0.1, 20.0, nullptr, failed), 0);
    EXPECT_TRUE(failed);
    EXPECT_EQ(three.lastIndex(), 2);
}

TEST(Smooth, SparesTheFirstValue) {
    std::vector<double> data;
    for (int i = 0; i <= 40; ++i) {
        data.push_back(i % 2 == 0 ? 9.0 : 11.0);
    }
    data.front() = 12.5;
    Series series = seriesOf("QCTdry", data);
    bool failed = true;
    Smooth().smooth(&series, 0.0, failed);
    EXPECT_FALSE(failed);
    EXPECT_EQ(series.dataArray(), data);
    Smooth().smooth(&series, 41.0, failed);
    EXPECT_TRUE(failed);
    EXPECT_EQ(series.dataArray(), data);
    Smooth().smooth(&series, 20.0, failed);
    EXPECT_FALSE(failed);
    EXPECT_EQ(series.data(0), 12.5);
    EXPECT_NEAR(series.data(20), 10.0, 0.1) << "waves of 2 s are gone";
}

TEST(Limits, EachQuantityInItsRange) {
    CsvText text = drop();
    text.data("0,500,-5,50,10,90,25,-80,5000,8");
    text.data("1,0.99,50.1,120.1,151,90,95,-80,40001,33");
    text.data("2,1,50,120,150,360,90,180,40000,32");
    text.data("3,1200,-100,0,0,0,-90,-180,-300,0");
    text.data("4,1200.1,-100.1,50,10,361,25,181,-301,8");
    CheckRun run(text);
    run.process();
    for (const char* name : {"QCPres", "QCVVPres", "QCTdry", "QCGpsLat", "QCGpsLon", "QCGpsAlt"}) {
        EXPECT_EQ(run.times(name), "0 2 3") << name;
    }
    EXPECT_EQ(run.times("QCRH"), "0 2 3 4");
    run.expectWindTimes("0 2 3");
    for (const char* name : {"RawPres", "RawTdry", "RawWspd", "RawWdir", "RawLat", "RawLon", "RawGpsAlt"}) {
        EXPECT_EQ(stamped(run.at(name), Value::QcLimitCheck), "1 4") << name;
    }
    EXPECT_THAT(run.items("QC for Winds"), Contains("Points which failed the wind speed limit check:  1"));
    EXPECT_THAT(run.items("QC for Winds"), Contains("Points which failed the wind direction limit check:  1"));
    EXPECT_THAT(run.items("QC for GPS Position"), Contains("Points which failed the latitude limit check:  1"));
    EXPECT_THAT(run.items("QC for GPS Position"), Contains("Points which failed the longitude limit check:  1"));
    for (const char* topic : {"QC for Pressure", "QC for VV Pressure", "QC for Temperature", "QC for GPS Altitude"}) {
        EXPECT_THAT(run.items(topic), Contains("Points which failed the limit check:  2")) << topic;
    }
    EXPECT_THAT(run.items("QC for Relative Humidity"), Contains("Points which failed the limit check:  1"));
    EXPECT_THAT(run.items("QC for RawSats"), ElementsAre("Points which failed the limit check:  1"));
    EXPECT_THAT(run.items("QC for RawWe"), ElementsAre("Points which failed the limit check:  0")) << "without data";
    EXPECT_EQ(run.times("RawSats"), "0 2 3 4");
}

TEST(Limits, TheLaunchValueHasNoProtection) {
    CsvText text(false);
    text.line("Speed,151").line("Direction,90").fields(kFields);
    text.data("0,500,-5,50,10,90,25,-80,5000,8").data("1,501,-5,50,10,90,25,-80,5000,8");
    CheckRun run(text);
    run.process();
    run.expectWindTimes("0 1");
}

TEST(Satellites, TooFew) {
    CsvText text(false);
    text.line("Speed,12").line("Direction,90").line("Latitude,25").line("Longitude,-80").fields(kFields);
    text.data("0,500,-5,50,10,90,25,-80,5000,6").data("1,501,-5,50,10,90,25,-80,4990,5");
    text.data("2,502,-5,50,10,90,25,-80,4980,5").data("3,503,-5,50,10,90,25,-80,4970,");
    CheckRun run(text);
    run.config.set.set("WindDisableSatsCheck", 0.0);
    run.config.set.add("WindSats", 6.9, false, false, true);
    ASSERT_TRUE(run.sounding->setDataAtt("RawWdir", 2.0, Value::QcKeep, true));
    run.process();
    run.expectWindTimes("-1 0 2 3");
    EXPECT_EQ(run.times("QCGpsLat"), "-1 0 3");
    EXPECT_EQ(run.times("QCGpsLon"), "-1 0 3");
    EXPECT_EQ(run.times("QCGpsAlt"), "0 3");
    EXPECT_EQ(stamped(run.at("RawWspd"), Value::QcSatsCheck), "1");
    EXPECT_EQ(stamped(run.at("RawWdir"), Value::QcSatsCheck), "1");
    EXPECT_EQ(stamped(run.at("RawLat"), Value::QcSatsCheck), "1 2");
    EXPECT_EQ(stamped(run.at("RawLon"), Value::QcSatsCheck), "1 2");
    EXPECT_EQ(stamped(run.at("RawGpsAlt"), Value::QcSatsCheck), "1 2");
    const std::string item = "Points which failed the number of satellites check: ";
    EXPECT_THAT(run.items("QC for Winds"), Contains(item + " 1"));
    EXPECT_THAT(run.items("QC for GPS Position"), Contains(item + " 2"));
    EXPECT_THAT(run.items("QC for GPS Altitude"), Contains(item + " 2"));
}

TEST(Satellites, DisabledOrNotApplied) {
    CheckRun run(pressures(false, {500, 501, 502}));
    for (const char* topic : {"QC for Winds", "QC for GPS Position", "QC for GPS Altitude"}) {
        run.config.set.set("WindDisableSatsCheck", 1.0);
        run.process();
        EXPECT_THAT(run.items(topic), Contains("Satellites check disabled"));
        run.config.set.set("WindDisableSatsCheck", 0.0);
        run.process();
        EXPECT_THAT(run.items(topic), Contains("Sats check not applied."));
    }
}

TEST(WindError, LimitsByHeight) {
    CsvText text(false);
    text.line("ThermoSensor,RSS421").line("Speed,12").line("Direction,90").fields(kFields);
    const char* const altitudes[] = {"10000", "9999", "5000", "101", "100", "", "", "", "5000"};
    for (int i = 0; i < 9; ++i) {
        text.data(std::to_string(i) + "," + std::to_string(500 + i) + ",-5,50,10,90,25,-80," + altitudes[i] + ",8");
    }
    CheckRun run(text);
    run.config.set.set("WindDisableErrorCheck", 0.0);
    run.config.set.add("WindErrorLow", 1.0, false, false, true);
    run.config.set.add("WindErrorHigh", 2.0, false, false, true);
    Series& we = run.at("RawWe");
    we.removeAll();
    const double errors[] = {1.5, 1.5, 1.0, 1.5, 1.5, 2.5, 2.0, 2.5, 1.5};
    we.appendValue(50.0, -1.0);
    for (int i = 0; i < 9; ++i) {
        we.appendValue(errors[i], i);
    }
    ASSERT_TRUE(run.sounding->setDataAtt("RawWdir", 7.0, Value::QcKeep, true));
    run.process();
    run.expectWindTimes("-1 0 2 4 6 7");
    EXPECT_EQ(stamped(run.at("RawWspd"), Value::QcWindErrorCheck), "1 3 5 8");
    EXPECT_EQ(stamped(run.at("RawWdir"), Value::QcWindErrorCheck), "1 3 5 8");
    EXPECT_THAT(run.items("QC for Winds"), Contains("Points which failed the wind error check:  4"));

    run.config.set.set("WindDisableErrorCheck", 1.0);
    run.process();
    EXPECT_THAT(run.items("QC for Winds"), Contains("Wind error check disabled"));
    run.expectWindTimes("-1 0 1 2 3 4 5 6 7 8");
}

TEST(WindError, WithoutWinds) {
    CsvText text(false);
    text.line("ThermoSensor,RSS421").fields("Time,Pressure").data("0,500").data("1,501");
    CheckRun run(text);
    run.config.set.set("WindDisableErrorCheck", 0.0);
    run.process();
    EXPECT_THAT(run.items("QC for Winds"), Contains("Points which failed the wind error check:  0"));
}

TEST(MonotonicPressure, AgainstTheLastGoodValue) {
    struct {
        bool ascending;
        std::vector<double> data;
        double kept;
        const char* left;
        const char* failed;
    } const cases[] = {
        {false, {500, 501, 499, 502}, -9, "0 1 3", "2"},        {false, {500, 501, 501, 502}, -9, "0 1 2 3", ""},
        {false, {500, 510, 505, 508, 511}, -9, "0 1 4", "2 3"}, {false, {500, 510, 505, 508, 511}, 2, "0 1 2 3 4", ""},
        {true, {500, 499, 501, 498}, -9, "0 1 3", "2"},         {false, {1, 1, 2}, -9, "0 1 2", ""},
    };
    for (const auto& c : cases) {
        CheckRun run(pressures(c.ascending, c.data));
        run.config.set.set("PresMonoCheck", 1.0);
        run.sounding->setDataAtt("RawPres", c.kept, Value::QcKeep, true);
        run.process();
        EXPECT_EQ(run.times("QCPres"), c.left);
        EXPECT_EQ(stamped(run.at("RawPres"), Value::QcMonotonicPresCheck), c.failed);
        if (!c.ascending) {
            EXPECT_EQ(run.at("QCVVPres").lastIndex() + 1, static_cast<int>(c.data.size()));
        }
        EXPECT_THAT(run.items("QC for Pressure"), Contains(HasSubstr("Points which failed the monotonic check:  ")));
        run.config.set.set("PresMonoCheck", 0.0);
        run.process();
        EXPECT_THAT(run.items("QC for Pressure"), Not(Contains(HasSubstr("monotonic"))));
        EXPECT_EQ(run.at("QCPres").lastIndex() + 1, static_cast<int>(c.data.size()));
    }
}

TEST(SeriesChecks, DisabledFailedAndEmpty) {
    CheckRun run(fiveOfADrop());
    run.process();
    EXPECT_THAT(run.errors(),
                StartsWith("- Filter check failed for pressure\n- Filter check failed for VVpressure\n"
                           "- Filter check failed for Tdry\n- Filter check failed for RH\n"
                           "- Filter check failed for GPS Latitude\n- Filter check failed for GPS Longitude\n"
                           "- Filter check failed for GPS Altitude\n"));
    EXPECT_THAT(run.items("QC for Winds"), Contains("Outlier check disabled"));
    EXPECT_THAT(run.items("QC for Winds"), Contains("Q/C filter check disabled"));
    EXPECT_THAT(run.items("QC for VV Pressure"), Not(Contains("Outlier check disabled")));
    run.config.set.set("WindDisableQCFilter", 0.0);
    run.process();
    EXPECT_THAT(run.errors(), HasSubstr("- Filter check failed for winds\n"));

    CheckRun empty(pressures(false, {500, 501, 502, 503, 504, 505, 506, 507}));
    for (const char* key : {"PresQCWL", "WindQCWL"}) {
        empty.config.set.set(key, 4.0);
    }
    empty.config.set.set("WindDisableQCFilter", 0.0);
    empty.config.set.set("WindDisableOutlierCheck", 0.0);
    empty.config.set.add("WindOutlier", 10.0, false, false, true);
    empty.process();
    EXPECT_THAT(empty.errors(), Not(HasSubstr("Filter check")));
    EXPECT_THAT(empty.items("QC for Winds"),
                ElementsAre("Points which failed the wind speed limit check:  0",
                            "Points which failed the wind direction limit check:  0", "Satellites check disabled",
                            "Wind error check not applied (sonde is not xRD41)",
                            "Points which failed the buddy check:  0", "Points which failed the outlier check:  0",
                            "Points which failed the Q/C filter check:  0", "Vertical winds not calculated"));

    CheckRun ascent(pressures(true, {1000, 999, 998}));
    ascent.process();
    EXPECT_THAT(ascent.items("QC for VV Pressure"), ElementsAre()) << "a series that only drops have";
}

namespace {

constexpr int kSamples = 41; // one each half second
constexpr int kBlended = 8;  // samples in the 4 s before the last

std::string cell(double value) {
    std::ostringstream text;
    text.precision(17);
    text << value;
    return text.str();
}

double pressureAt(int i) {
    return 500.0 + 2.0 * i + 3.0 * std::sin(1.3 * i) + std::cos(0.21 * i);
}

CsvText longPressures(bool ascending) {
    CsvText text(ascending);
    text.line("Pressure,700").fields("Time,Pressure");
    for (int i = 0; i < kSamples; ++i) {
        text.data(cell(0.5 * i) + "," + cell(pressureAt(i)));
    }
    return text;
}

CsvText longWinds(bool ascending) {
    CsvText text(ascending);
    text.line("Speed,25").line("Direction,200").fields("Time,RH,Speed,Direction");
    for (int i = 0; i < kSamples; ++i) {
        text.data(cell(0.5 * i) + "," + cell(50.0 + 10.0 * std::sin(2.1 * i)) + "," +
                  cell(12.0 + 3.0 * std::sin(1.3 * i)) + "," + cell(300.0 + 20.0 * std::cos(0.9 * i)));
    }
    return text;
}

Series smoothedCopy(const Series& series, double wavelength) {
    Series copy = series;
    bool failed = false;
    Smooth().smooth(&copy, wavelength, failed);
    EXPECT_FALSE(failed);
    return copy;
}

/// \p blended is \p longWave, but for its last 4 s, where the weight of \p shortWave grows by an eighth a sample to 1.
void expectBlend(const Series& blended, const Series& longWave, const Series& shortWave) {
    ASSERT_EQ(blended.lastIndex(), longWave.lastIndex());
    const int last = blended.lastIndex();
    for (int i = 0; i <= last; ++i) {
        const double share = std::max(0, kBlended - (last - i)) / static_cast<double>(kBlended);
        EXPECT_NEAR(blended.data(i), share * shortWave.data(i) + (1.0 - share) * longWave.data(i), 1e-9) << i;
    }
    EXPECT_GT(std::abs(shortWave.data(last - 1) - longWave.data(last - 1)), 1e-3) << "the two can be told apart";
}

} // namespace

TEST(PressureSmoothing, BlendOfADrop) {
    CheckRun run(longPressures(false));
    run.process();
    const Series raw = run.at("QCPres");
    ASSERT_EQ(raw.lastIndex(), kSamples);
    EXPECT_EQ(raw.data(0), 700.0);
    EXPECT_EQ(raw.data(5), pressureAt(4)) << "no wavelength, no blend";

    run.config.set.set("BlendLength", 4.0);
    run.process();
    expectBlend(run.at("QCPres"), raw, smoothedCopy(raw, 4.0));
    EXPECT_EQ(run.series("QCVVPres"), textOf(raw));

    run.config.set.set("PresSmoothWL", 10.0);
    run.config.set.set("WindVVPresWL", 8.0);
    run.process();
    expectBlend(run.at("QCPres"), smoothedCopy(raw, 10.0), smoothedCopy(raw, 4.0));
    EXPECT_EQ(run.at("QCPres").data(0), 700.0);
    EXPECT_EQ(run.series("QCVVPres"), textOf(smoothedCopy(raw, 8.0)));
    EXPECT_THAT(run.errors(), Not(HasSubstr("smoothing")));
}

TEST(PressureSmoothing, FailuresOfADrop) {
    CheckRun run(longPressures(false));
    run.process();
    const Series raw = run.at("QCPres");
    run.config.set.set("BlendLength", 4.0);
    run.config.set.set("PresSmoothWL", 1000.0);
    run.config.set.set("WindVVPresWL", 1000.0);
    run.process();
    EXPECT_THAT(run.errors(), HasSubstr("- Final smoothing failed for VV pressure\n"
                                        "- Final smoothing failed for pressure\n"));
    EXPECT_THAT(run.errors(), Not(HasSubstr("blended")));
    expectBlend(run.at("QCPres"), raw, smoothedCopy(raw, 4.0));

    run.config.set.set("BlendLength", 1000.0);
    run.config.set.set("PresSmoothWL", 10.0);
    run.config.set.set("WindVVPresWL", 0.0);
    run.process();
    EXPECT_THAT(run.errors(), HasSubstr("- Final smoothing failed for blended pressure\n"));
    EXPECT_EQ(run.series("QCPres"), textOf(smoothedCopy(raw, 10.0)));
}

TEST(PressureSmoothing, OfAnUpsonde) {
    CheckRun run(longPressures(true));
    run.config.set.set("BlendLength", 4.0);
    run.process();
    const Series raw = run.at("QCPres");
    EXPECT_EQ(raw.data(0), 700.0);
    EXPECT_EQ(raw.data(raw.lastIndex()), pressureAt(kSamples - 1)) << "no blend";
    run.config.set.set("PresSmoothWL", 10.0);
    run.process();
    EXPECT_EQ(run.series("QCPres"), textOf(smoothedCopy(raw, 10.0)));
    run.config.set.set("PresSmoothWL", 1000.0);
    run.process();
    EXPECT_THAT(run.errors(), HasSubstr("- Final smoothing failed for pressure\n"));
    EXPECT_EQ(run.series("QCPres"), textOf(raw));
}

TEST(FinalSmoothing, WindsAreRebuiltFromTheirComponents) {
    for (const bool ascending : {false, true}) {
        CheckRun run(longWinds(ascending));
        run.process();
        const Series u = run.at("QCU");
        const Series v = run.at("QCV");
        const Series rh = run.at("QCRH");
        run.config.set.set("WindSmoothWL", 10.0);
        run.config.set.set("RHSmoothWL", 10.0);
        run.config.set.set("BlendLength", 4.0);
        run.process();
        if (ascending) {
            EXPECT_EQ(run.series("QCU"), textOf(smoothedCopy(u, 10.0)));
            EXPECT_EQ(run.series("QCV"), textOf(smoothedCopy(v, 10.0)));
        } else {
            expectBlend(run.at("QCU"), smoothedCopy(u, 10.0), smoothedCopy(u, 4.0));
            expectBlend(run.at("QCV"), smoothedCopy(v, 10.0), smoothedCopy(v, 4.0));
        }
        EXPECT_EQ(run.series("QCRH"), textOf(smoothedCopy(rh, 10.0)));
        for (int i = 0; i <= u.lastIndex(); ++i) {
            const double eastward = run.at("QCU").data(i);
            const double northward = run.at("QCV").data(i);
            const double degrees = std::atan2(-eastward, -northward) * 180.0 / std::acos(-1.0);
            EXPECT_NEAR(run.at("QCWspd").data(i), std::hypot(eastward, northward), 1e-9) << i;
            EXPECT_NEAR(run.at("QCWdir").data(i), degrees < 0.0 ? degrees + 360.0 : degrees, 1e-3) << i;
        }
        EXPECT_EQ(run.at("QCU").data(0), u.data(0));
    }
}

TEST(FinalSmoothing, WithoutAWavelengthADropIsStillBlended) {
    CheckRun run(longWinds(false));
    run.process();
    const Series u = run.at("QCU");
    const Series v = run.at("QCV");
    run.config.set.set("BlendLength", 4.0);
    run.process();
    expectBlend(run.at("QCU"), u, smoothedCopy(u, 4.0));
    expectBlend(run.at("QCV"), v, smoothedCopy(v, 4.0));
}

TEST(FinalSmoothing, Failures) {
    for (const bool ascending : {false, true}) {
        CheckRun run(longWinds(ascending));
        run.config.set.set("WindSmoothWL", 1000.0);
        run.config.set.set("RHSmoothWL", 1000.0);
        run.config.set.set("BlendLength", 4.0);
        run.process();
        EXPECT_THAT(run.errors(), HasSubstr(std::string("- Final smoothing failed for RH\n") +
                                            (ascending ? "- Final smoothing failed for winds\n"
                                                       : "- Final smoothing failed for U winds\n")));
        EXPECT_THAT(run.errors(), Not(HasSubstr("tdry"))) << "an empty series is passed over";
        EXPECT_THAT(run.errors(), Not(HasSubstr("V winds"))) << "the first failure ends the step";
    }
    CheckRun run(longWinds(false));
    run.config.set.set("BlendLength", 1000.0);
    run.process();
    EXPECT_THAT(run.errors(), HasSubstr("- Final smoothing failed for Uprime winds\n"));

    CheckRun dry(fiveOfADrop());
    dry.config.set.set("TdrySmoothWL", 1000.0);
    dry.process();
    EXPECT_THAT(dry.errors(), HasSubstr("- Final smoothing failed for tdry\n"));
    EXPECT_EQ(dry.series("QCTdry"), "0:-5 1:-5 2:-5 3:-5 4:-5");
}

namespace {

/// Which columns a check of whole series looks at, and what it takes along.
struct Spiked {
    const char* key; ///< of the configuration, without the kind of limit
    int column;
    double value;
    const char* topic;
    const char* which; ///< in the item text
    std::vector<const char*> series;
    std::vector<const char*> stamped;
};

const Spiked kSpikes[] = {
    {"Pres", 1, 520, "QC for Pressure", "", {"QCPres", "QCVVPres"}, {"RawPres"}},
    {"Pres", 1, 520, "QC for VV Pressure", "", {"QCPres", "QCVVPres"}, {"RawPres"}},
    {"Tdry", 2, 15, "QC for Temperature", "", {"QCTdry"}, {"RawTdry"}},
    {"RH", 3, 70, "QC for Relative Humidity", "", {"QCRH"}, {"RawRH"}},
    {"Wind", 4, 30, "QC for Winds", "", {"QCWspd", "QCWdir", "QCU", "QCV"}, {"RawWspd", "RawWdir"}},
    {"GPSPos", 6, 45, "QC for GPS Position", "latitude ", {"QCGpsLat", "QCGpsLon"}, {"RawLat", "RawLon"}},
    {"GPSPos", 7, -60, "QC for GPS Position", "longitude ", {"QCGpsLat", "QCGpsLon"}, {"RawLat", "RawLon"}},
    {"GPSAlt", 8, 5020, "QC for GPS Altitude", "", {"QCGpsAlt"}, {"RawGpsAlt"}},
};

/// 41 samples, flat but for the column's spike at 10 s.
CsvText spikedText(const Spiked& spiked) {
    CsvText text = drop();
    for (int i = 0; i < kSamples; ++i) {
        double cells[] = {0.5 * i, 500, -5, 50, 10, 90, 25, -80, 5000, 8};
        if (i == 20) {
            cells[spiked.column] = spiked.value;
        }
        std::string line;
        for (const double value : cells) {
            line += (line.empty() ? "" : ",") + cell(value);
        }
        text.data(line);
    }
    return text;
}

/// The spike goes from the series of its quantity alone, and stays when the user keeps it.
void expectRemoved(CheckRun& run, const Spiked& spiked, Value::AttributeType attribute, const std::string& check) {
    SCOPED_TRACE(check + " of column " + std::to_string(spiked.column));
    run.process();
    for (const char* name : spiked.series) {
        EXPECT_EQ(run.at(name).lastIndex() + 1, kSamples - 1) << name;
        EXPECT_EQ(run.at(name).indexFromTime(10.0), -1) << name;
    }
    for (const char* name : {"RawPres", "RawTdry", "RawRH", "RawLat", "RawLon", "RawGpsAlt", "RawWspd", "RawWdir"}) {
        const auto& due = spiked.stamped;
        const bool isDue = std::find(due.begin(), due.end(), std::string(name)) != due.end();
        EXPECT_EQ(stamped(run.at(name), attribute), isDue ? "10" : "") << name;
    }
    EXPECT_THAT(run.items(spiked.topic), Contains("Points which failed the " + (spiked.which + check) + ":  1"));

    for (const char* name : spiked.stamped) {
        ASSERT_TRUE(run.sounding->setDataAtt(name, 10.0, Value::QcKeep, true));
    }
    run.process();
    for (const char* name : spiked.series) {
        EXPECT_EQ(run.at(name).lastIndex() + 1, kSamples) << name;
    }
    for (const char* name : spiked.stamped) {
        EXPECT_EQ(run.at(name).attributes(20), Value::QcKeep) << name << ": the stamp of the first run is gone";
    }
}

} // namespace

TEST(SeriesChecks, TakeOutASpikeUnlessItIsKept) {
    for (const Spiked& spiked : kSpikes) {
        const std::string key = spiked.key;
        CheckRun buddy(spikedText(spiked));
        buddy.config.set.set(key + "BuddySlope", 5.0);
        expectRemoved(buddy, spiked, Value::QcBuddyCheck, "buddy check");

        CheckRun filter(spikedText(spiked));
        filter.config.set.set("WindDisableQCFilter", 0.0);
        filter.config.set.set(key + "QCDev", 7.0);
        expectRemoved(filter, spiked, Value::QcFilterCheck, "Q/C filter check");

        CheckRun outlier(spikedText(spiked));
        if (outlier.config.set.exists(key + "DisableOutlierCheck")) {
            outlier.config.set.set(key + "DisableOutlierCheck", 0.0);
            outlier.config.set.add(key + "Outlier", 5.0, false, false, true);
            expectRemoved(outlier, spiked, Value::QcOutlierCheck, "outlier check");
        } else {
            outlier.process();
            EXPECT_THAT(outlier.items(spiked.topic), Not(Contains(HasSubstr("utlier"))));
        }
    }
}
