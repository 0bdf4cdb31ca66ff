#include "Sounding.h"

#include "QcRun.h"
#include "SeriesText.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sstream>

namespace {

using testing::ElementsAre;
using testing::HasSubstr;

CsvText drop() {
    CsvText text(false);
    text.fields("Time,Pressure,Temperature,RH,Speed,Direction,Latitude,Longitude,Altitude,Ascent,Sats");
    text.data("0,500,-5,50,10,90,25,-80,5500,-11,8");
    text.data("0.5,505,-4.5,51,10,90,25,-80,5420,-11,8");
    text.data("1,510,-4,52,10,90,25,-80,5340,-11,8");
    return text;
}

} // namespace

TEST(Sounding, SaysWhyAFileIsNone) {
    struct {
        const char* text;
        const char* error;
    } const cases[] = {{"no sounding at all\n", "Unrecognized file type"},
                       {"", "Unrecognized file type"},
                       {"FileFormat,CSV\nYear,2021\n", "Sounding file is invalid"}};
    for (const auto& [text, error] : cases) {
        MadeConfig config;
        Summary summary;
        std::istringstream stream(text);
        const Sounding sounding("x", &stream, config.set, summary);
        EXPECT_FALSE(sounding.isValid());
        EXPECT_EQ(sounding.getSndfileErrorMsg(), error);
    }
}

TEST(Sounding, StepsOfADropsondeInTheirOrder) {
    QcRun run(drop());
    run.process();
    EXPECT_THAT(run.recorder.steps,
                ElementsAre("initializing", "applying TD dry bias correction", "applying launch parameters",
                            "applying offsets", "ambient equilibration", "post splash check", "RH thresholding",
                            "limit checks", "satellite check", "wind error check", "buddy check", "outlier check",
                            "filter check", "pressure smoothing", "pressure mono check", "compute vertical velocity",
                            "updating time constants", "dynamic tdry adjustment", "RH limit checking",
                            "final smoothing", "RH limit checking", "pressure adjustment", "compute vertical velocity",
                            "vertical velocity check", "compute w (dropsondes only)", "dynamic winds adjustment",
                            "fast fall check", "compute altitudes", "compute position"));
}

TEST(Sounding, AnUpsondePassesOverTheStepsOfADrop) {
    CsvText text(true);
    text.fields("Time,Pressure").data("0,1000").data("1,999");
    QcRun run(text);
    run.process();
    EXPECT_THAT(run.recorder.steps, testing::Not(testing::Contains("ambient equilibration")));
    EXPECT_THAT(run.recorder.steps, testing::Not(testing::Contains("pressure adjustment")));
    EXPECT_THAT(run.recorder.steps, testing::Contains("post splash check"));
    EXPECT_THAT(run.recorder.steps, testing::Contains("compute w (dropsondes only)"));
}

TEST(Sounding, ModesEndTheRunEarly) {
    QcRun run(drop());
    run.config.set.set("DoQC", 2.0);
    run.process();
    EXPECT_THAT(run.recorder.steps, ElementsAre("initializing"));
    EXPECT_EQ(run.series("QCAltUp"), "0:5500 0.5:5420 1:5340");
    EXPECT_EQ(run.series("QCDz"), "0:-11 0.5:-11 1:-11");
    EXPECT_EQ(run.sounding->getSeries("QCAltUp")->id().name(), "QCAltUp");

    run.config.set.set("DoQC", 3.0);
    run.process();
    EXPECT_THAT(run.recorder.steps, ElementsAre("initializing", "applying TD dry bias correction"));
    EXPECT_EQ(run.series("QCAltUp"), "") << "every run rebuilds the QC set";
}

TEST(Sounding, LaunchOverridesAndIgnoring) {
    QcRun run(drop().line("Pressure,495"));
    run.config.set.add("IgnoreLaunchPres", 1.0, false, true, true);
    run.process();
    EXPECT_EQ(run.series("QCPres"), "0:500 0.5:505 1:510");
    EXPECT_EQ(run.series("QCVVPres"), "0:500 0.5:505 1:510");

    run.config.override("LaunchPresOverride", 490.0);
    run.process();
    EXPECT_EQ(run.series("QCPres"), "-1:490 0:500 0.5:505 1:510") << "an override beats an ignore";
    EXPECT_EQ(run.sounding->getOrigSndMetaData().launchPres.value(), 495.0);

    run.config.set.remove("LaunchPresOverride");
    run.config.set.set("IgnoreLaunchPres", 0.0);
    run.config.override("LaunchTdryOverride", -6.0);
    run.config.set.set("CabinTemp", -6.0);
    run.process();
    EXPECT_EQ(run.series("QCPres"), "-1:495 0:500 0.5:505 1:510");
    EXPECT_EQ(run.series("QCTdry"), "-1:-6 0:-5 0.5:-4.5 1:-4") << "on a file that has no launch value";
    EXPECT_TRUE(run.sounding->isLaunchValue("QCTdry", 0));
    EXPECT_FALSE(run.sounding->isLaunchValue("QCTdry", 1));
    EXPECT_FALSE(run.sounding->isLaunchValue("QCTdry", 99));
}

TEST(Sounding, TextsOfTheFileStandAgainWhenTheirOverridesGo) {
    struct {
        const char* key;
        std::string SndMetaData::*field;
    } const cases[] = {{"PlatformType", &SndMetaData::platformType},
                       {"PlatformId", &SndMetaData::platformId},
                       {"Project", &SndMetaData::project},
                       {"Flight", &SndMetaData::flight}};
    QcRun run(drop().line("PlatformType,ship").line("PlatformId,ship").line("Project,ship").line("Flight,ship"));
    for (const auto& c : cases) {
        for (const auto& [text, expected] : {std::pair("mine", "mine"), std::pair("", "ship")}) {
            run.config.set.set(c.key, text);
            run.process();
            EXPECT_EQ(run.sounding->getSndMetaData().*c.field, expected) << c.key;
        }
    }
}

TEST(Sounding, ALaunchWindOrPositionExistsAsAPairOrNotAtAll) {
    QcRun run(drop());
    run.config.override("LaunchWspdOverride", 20.0);
    run.config.override("LaunchLatOverride", 24.0);
    run.config.override("LaunchLonOverride", -81.0);
    run.process();
    EXPECT_EQ(run.series("QCWspd"), "0:10 0.5:10 1:10");
    for (const char* wind : {"QCWdir", "QCU", "QCV"}) {
        EXPECT_EQ(timesOf(*run.sounding->getSeries(wind)), "0 0.5 1") << wind;
    }
    EXPECT_EQ(run.series("QCLat"), "") << "an empty series stays empty";
    EXPECT_EQ(run.series("QCGpsLat"), "-1:24 0:25 0.5:25 1:25");

    run.config.override("LaunchWdirOverride", 270.0);
    run.config.set.remove("LaunchLonOverride");
    run.process();
    EXPECT_EQ(run.series("QCWspd"), "-1:20 0:10 0.5:10 1:10");
    EXPECT_NEAR(run.sounding->getSeries("QCU")->data(0), 20.0, 1e-3) << "from the west";

    QcRun onlyLatitude(drop().line("Latitude,24.5"));
    onlyLatitude.process();
    EXPECT_EQ(onlyLatitude.series("QCLat"), "");
}

TEST(Sounding, PositionsStartOnTheGlobe) {
    for (const auto& [lat, lon, good] :
         {std::tuple("90", "-180", true), {"90.1", "-80", false}, {"25", "999", false}}) {
        QcRun run(drop().line(std::string("Latitude,") + lat).line(std::string("Longitude,") + lon));
        run.process();
        for (const char* name : {"QCLat", "QCLon"}) {
            EXPECT_EQ(timesOf(*run.sounding->getSeries(name)), good ? "-1 0 0.5 1" : "") << name << lat << lon;
        }
        for (const char* name : {"QCGpsLat", "QCGpsLon"}) {
            EXPECT_EQ(timesOf(*run.sounding->getSeries(name)), good ? "-1 0 0.5 1" : "0 0.5 1") << name << lat << lon;
        }
    }
}

TEST(Sounding, AWindOfALaunchAloneGoesWithItsDirection) {
    CsvText text(false);
    text.line("Speed,10").line("Direction,270").fields("Time,Pressure,Speed,Direction");
    text.data("0,500,,").data("1,501,9,260").data("2,502,9,260");
    QcRun run(text);
    run.config.override("LastDataTimeOverride", 0.5);
    run.process();
    ASSERT_EQ(run.series("QCWspd"), "-1:10");
    run.config.override("IgnoreLaunchWdir", 1.0);
    run.process();
    for (const char* wind : {"QCWspd", "QCWdir", "QCU", "QCV"}) {
        EXPECT_EQ(run.series(wind), "") << wind;
    }
}

TEST(Sounding, OffsetsSpareTheLaunchValue) {
    QcRun run(drop().line("Pressure,495"));
    run.config.set.set("PresOffset", 1.5);
    run.config.set.set("RHOffset", -2.0);
    run.process();
    EXPECT_EQ(run.series("QCPres"), "-1:495 0:501.5 0.5:506.5 1:511.5");
    EXPECT_EQ(run.series("QCVVPres"), "-1:495 0:501.5 0.5:506.5 1:511.5");
    EXPECT_EQ(run.series("QCRH"), "0:48 0.5:49 1:50");
    EXPECT_EQ(run.series("RawPres"), "-1:495 0:500 0.5:505 1:510");
}

TEST(Sounding, EndOfDropOverrideIsRoundedUpHalfATenth) {
    QcRun run(drop());
    run.config.override("LastDataTimeOverride", 0.52);
    run.process();
    EXPECT_NEAR(run.sounding->QClastDataTime(), 0.55, 1e-12);
    EXPECT_EQ(timesOf(*run.sounding->getSeries("QCPres")), "0 0.5");
}

TEST(Sounding, RhIsForcedInItsBandsAndLimitedToItsRange) {
    CsvText text(false);
    text.fields("Time,RH").data("0,-5").data("1,-5.1").data("2,109.9").data("3,110").data("4,0.05").data("5,100");
    QcRun run(text);
    run.config.set.set("RHThreshold", 1.0);
    run.process();
    EXPECT_EQ(run.series("QCRH"), "0:0.1 2:100 3:100 4:0.1 5:100");
    const Series& raw = *run.sounding->getSeries("RawRH");
    for (int i = 0; i <= raw.lastIndex(); ++i) {
        EXPECT_EQ(raw.testAttribute(i, Value::QcRHThreshold), i == 0 || i == 2) << i;
    }
    EXPECT_THAT(
        run.summary.items("QC for Relative Humidity"),
        ElementsAre("Points which were forced to 0% or 100%:  2", "Points which failed the limit check:  1",
                    "Points which failed the buddy check:  0", "Outlier check disabled",
                    "Points which failed the Q/C filter check:  0", "Points which failed the lower limit check:  2",
                    "Points which failed the upper limit check:  1", "Points which failed the lower limit check:  0",
                    "Points which failed the upper limit check:  0"));
    run.config.set.set("RHThreshold", 0.0);
    run.process();
    EXPECT_FALSE(raw.testAttribute(0, Value::QcRHThreshold)) << "the stamps of the first run are gone";
}

namespace {

struct Splash {
    const char* name;
    int rows; ///< two a second
    double (*pressure)(int row);
    int (*satellites)(int row);
    const char* reason; ///< empty for none
};

void PrintTo(const Splash& splash, std::ostream* out) {
    *out << splash.name;
}

class PostSplash : public testing::TestWithParam<Splash> {};

double falling(int row) {
    return 900.0 + row;
}
int eight(int) {
    return 8;
}

CsvText splashDrop(const Splash& splash) {
    CsvText text(false);
    text.fields("Time,Pressure,Sats");
    for (int row = 0; row < splash.rows; ++row) {
        text.data(std::to_string(row * 0.5) + "," + std::to_string(splash.pressure(row)) + "," +
                  std::to_string(splash.satellites(row)));
    }
    return text;
}

const char* const kNotMax = "Floating sonde detected - last pressure is not max pressure";
const char* const kGpsEnds = "Floating sonde detected - GPS data ends before end of sounding";
const char* const kGpsGap = "Floating sonde detected - gap larger than 1 second in GPS near surface";

const Splash kSplashes[] = {
    {"clean", 100, falling, eight, ""},
    {"floating", 100, [](int row) { return row < 90 ? 900.0 + row : 987.8; }, eight, kNotMax},
    {"exactly one mb is no reason", 100, [](int row) { return row < 90 ? 900.0 + row : 988.0; }, eight, ""},
    {"the peak lies 31 samples back", 100, [](int row) { return row == 69 ? 1200.0 : 900.0 + row; }, eight, ""},
    {"the peak lies 30 samples back", 100, [](int row) { return row == 70 ? 1200.0 : 900.0 + row; }, eight, kNotMax},
    {"GPS ends", 100, falling, [](int row) { return row < 98 ? 8 : 0; }, kGpsEnds},
    {"GPS ends half a second early", 100, falling, [](int row) { return row < 99 ? 8 : 0; }, ""},
    {"GPS gap of one second", 100, falling, [](int row) { return row == 80 ? 0 : 8; }, kGpsGap},
    {"GPS gap 60 samples back", 100, falling, [](int row) { return row < 41 ? 0 : 8; }, ""},
    {"no GPS at all", 100, falling, [](int) { return 0; }, ""},
};

} // namespace

TEST_P(PostSplash, IsTold) {
    QcRun run(splashDrop(GetParam()));
    run.process();
    const std::string reason = GetParam().reason;
    if (reason.empty()) {
        EXPECT_THAT(run.summary.items("Post-splash Test"), ElementsAre());
        EXPECT_EQ(run.errors(), "");
        return;
    }
    EXPECT_THAT(run.summary.items("Post-splash Test"), ElementsAre(reason));
    EXPECT_EQ(run.errors(), "- This sounding appears to contain post-splash data. Please remove post-splash data by "
                            "setting end-of-drop time.\n");
    EXPECT_THAT(run.recorder.steps, testing::Contains("compute position")) << "all steps still run";

    run.config.override("LastDataTimeOverride", 30.0);
    run.process();
    EXPECT_EQ(run.errors(), "") << "off once the user has set the end of the drop";
    run.config.set.remove("LastDataTimeOverride");
    run.config.set.set("DropsondeHitSfc", 0.0);
    run.process();
    EXPECT_EQ(run.errors(), "") << "off when the sonde didn't reach the surface";
}

TEST(Sounding, TwoSamplesDontTellASplash) {
    CsvText text(false);
    text.fields("Time,Pressure,Sats").data("0,900,1").data("1,890,0");
    QcRun run(text);
    run.process();
    EXPECT_THAT(run.summary.items("Post-splash Test"), ElementsAre());
    QcRun pressures(text.data("1.5,880,"));
    pressures.process();
    EXPECT_THAT(pressures.summary.items("Post-splash Test"), ElementsAre(kNotMax));
    QcRun satellites(CsvText(false).fields("Time,Pressure,Sats").data("0,,1").data("1,,0").data("2,900,0"));
    satellites.process();
    EXPECT_THAT(satellites.summary.items("Post-splash Test"), ElementsAre(kGpsEnds));
}

INSTANTIATE_TEST_SUITE_P(Sounding, PostSplash, testing::ValuesIn(kSplashes),
                         [](const auto& splash) { return "case" + std::to_string(splash.index); });

TEST(Sounding, AltitudesAndSurface) {
    QcRun run(drop());
    run.load();
    EXPECT_EQ(run.sounding->getAltSeries(), nullptr) << "no QC run yet";
    run.process();
    double p = 0.0;
    double alt = -1.0;
    EXPECT_FALSE(run.sounding->getRawTermPres(p));
    EXPECT_TRUE(run.sounding->getSfcAlt(alt));
    EXPECT_EQ(alt, 0.0);
    run.config.override("SfcAltOverride", 120.0);
    run.sounding->getSfcAlt(alt);
    EXPECT_EQ(alt, 120.0);

    run.sounding->getSeries("QCPres")->setAttribute(2, Value::ObsSurface);
    EXPECT_TRUE(run.sounding->getRawTermPres(p));
    EXPECT_EQ(p, 510.0);

    struct {
        double hitSurface, unknown, missing;
        const char* series;
    } const cases[] = {{1, 0, 0, "QCAltUp"}, {0, 0, 0, "QCAltDn"}, {1, 1, 0, "QCAltDn"}, {1, 0, 1, "QCAltMissing"}};
    for (const auto& c : cases) {
        run.config.set.set("DropsondeHitSfc", c.hitSurface);
        run.config.set.set("SfcAltUnknown", c.unknown);
        run.config.set.set("SetHtsMissing", c.missing);
        EXPECT_EQ(run.sounding->getAltSeries()->id().name(), c.series);
    }
}

TEST(Sounding, SensorTypeComesFromTheThermoSensor) {
    for (const auto& [sensor, type, name] : {std::tuple("RSS904", SensorType::RS80, "RS80"),
                                             {"x RSS921", SensorType::RS90, "RS90/92"},
                                             {"RSS921 RSS421", SensorType::RS41, "RS41"}}) {
        QcRun run(drop().line(std::string("ThermoSensor,") + sensor));
        EXPECT_EQ(run.load().sensorType(), type) << sensor;
        EXPECT_EQ(run.sounding->sensorName(), name);
    }
}
