#include "Hydrostatics.h"
#include "QcRun.h"
#include "VerticalVelocity.h"

#include <cmath>
#include <gmock/gmock.h>

namespace {

using testing::ElementsAre;

/// A drop through air of 20 deg C and 50 %, two samples a second for 49.5 s, in which the pressure grows by 1 mb a
/// second from 900 mb on. Its virtual temperature is 294.5 K, so the hydrostatic fall rate at the end is 287.04 * 294.5
/// / (949.5 * 9.80665) = 9.08 m/s.
CsvText evenDrop(const std::string& ascentAt20s = "-9.1", const std::string& temperature = "20",
                 const std::string& humidity = "50") {
    CsvText text(false);
    text.fields("Time,Pressure,Temperature,RH,Speed,Direction,Ascent");
    for (int i = 0; i < 100; ++i) {
        const std::string time = std::to_string(0.5 * i);
        text.data(time + "," + std::to_string(900.0 + 0.5 * i) + "," + temperature + "," + humidity + ",10,90," +
                  (i == 40 ? ascentAt20s : "-9.1"));
    }
    return text;
}

/// Another pressure by the number of the sample, in the same temperature.
CsvText dropOf(double (*pressure)(int)) {
    CsvText text(false);
    text.fields("Time,Pressure,Temperature");
    for (int i = 0; i < 100; ++i) {
        text.data(std::to_string(0.5 * i) + "," + std::to_string(pressure(i)) + ",20");
    }
    return text;
}

struct EvenDrop : QcRun {
    explicit EvenDrop(const CsvText& csv = evenDrop()) : QcRun(csv) {
        config.override("LaunchTdryOverride", 20.0);
        config.set.set("CabinTemp", 20.0); // nothing has to settle
        config.set.add("DragCoef", 0.61, false, false, true);
        config.set.add("DropSondeMass", 400.0, false, false, true);
        config.set.add("ChuteArea", 676.0, false, false, true);
    }
};

} // namespace

TEST(SoundingMotion, ExtrapolatesASurfaceObservation) {
    EvenDrop run;
    run.process();
    // 9.08 m/s for 0.54 s are 4.9 m, and 949.5 mb * 0.03414 * 4.9 m / 294.5 K are 0.54 mb.
    EXPECT_THAT(run.summary.items("Surface Observation"),
                ElementsAre("Splash time (time of the last usable frame): 49.50s", "Extrapolated surface time: 50.04s",
                            "Fall distance from last frame: 4.9m", "Extrapolated surface pressure: 950.0mb",
                            "Extrapolated surface temperature: 20.0C", "Extrapolated surface rh: 50.0%"));
    for (const char* name : {"QCPres", "QCVVPres", "QCTdry", "QCRH", "QCTime"}) {
        const Series& series = *run.sounding->getSeries(name);
        EXPECT_NEAR(series.time(series.lastIndex()), 50.04, 1e-9) << name;
        EXPECT_TRUE(series.testAttribute(series.lastIndex(), Value::ObsSurface)) << name;
    }
    double pressure = 0.0;
    ASSERT_TRUE(run.sounding->getRawTermPres(pressure));
    EXPECT_NEAR(pressure, 950.04, 0.01);
    EXPECT_EQ(run.sounding->getSeries("QCWspd")->time(99), 49.5) << "no wind at the surface";

    run.config.set.set("DropsondeHitSfc", 0.0);
    run.process();
    EXPECT_THAT(run.summary.items("Surface Observation"), ElementsAre());
    EXPECT_FALSE(run.sounding->getRawTermPres(pressure));
}

TEST(SoundingMotion, IntegratesHeightsFromTheEndsThatAreKnown) {
    EvenDrop run;
    run.config.override("LaunchAltOverride", 500.0);
    run.config.override("SfcAltOverride", 12.0);
    run.process();
    EXPECT_THAT(run.summary.items("QC Height Integration"),
                ElementsAre("Upward integration starts @ 12.0m", "Downward integration starts @ 500.0m"));
    const Series& up = *run.sounding->getAltSeries();
    EXPECT_EQ(up.id().name(), "QCAltUp");
    // 294.5 K / 0.034164 ln(950.04 / 900) = 466.5 m above the surface.
    EXPECT_NEAR(up.data(0), 12.0 + 466.5, 0.5);
    EXPECT_EQ(up.data(up.lastIndex()), 12.0);
    EXPECT_EQ(run.sounding->getSeries("QCPres")->time(0), 0.0) << "what the integration put in front is gone";

    run.config.override("SfcAltUnknown", 1.0);
    run.process();
    EXPECT_THAT(run.summary.items("QC Height Integration"), ElementsAre("Downward integration starts @ 500.0m"));
    EXPECT_EQ(run.series("QCAltUp"), "");
    EXPECT_EQ(run.sounding->getAltSeries()->id().name(), "QCAltDn");

    CsvText cold(true);
    cold.fields("Time,Pressure").data("0,1000").data("1,999");
    QcRun noTemperature(cold);
    noTemperature.process();
    EXPECT_THAT(noTemperature.summary.items("QC Height Integration"),
                ElementsAre("No temperature data (fewer than 2 data points)"));
}

TEST(SoundingMotion, AWindWhoseFallRateAgreesWithNeitherOtherGoes) {
    EvenDrop run(evenDrop("-3"));
    run.config.set.set("WindVVdelta", 2.5);
    run.process();
    for (const char* wind : {"QCWspd", "QCWdir", "QCU", "QCV"}) {
        EXPECT_EQ(run.sounding->getSeries(wind)->lastIndex(), 98) << wind;
        EXPECT_EQ(run.sounding->getSeries(wind)->indexFromTime(20.0), -1) << wind;
    }
    EXPECT_THAT(run.summary.items("QC for Winds"),
                testing::Contains("Points which failed the vertical velocity check: 1"));
    EXPECT_TRUE(run.sounding->getSeries("RawWdir")->testAttribute(40, Value::QcVerticalVelCheck));

    // The theoretical fall speed there is 13.2 m/s: a rate near it is good, whatever the pressure says.
    EvenDrop good(evenDrop("-13"));
    good.config.set.set("WindVVdelta", 2.5);
    good.process();
    EXPECT_EQ(good.sounding->getSeries("QCWspd")->lastIndex(), 99);
}

// The hydrostatic rate is 9.37 m/s there, and without a limit of its own 2.5 m/s off it are allowed.
TEST(SoundingMotion, FallRatesMayDifferBy2Point5WithoutALimit) {
    for (const auto& [rate, kept] : {std::pair("-6.95", 100), {"-6.75", 99}}) {
        EvenDrop run(evenDrop(rate));
        run.config.set.remove("WindVVdelta");
        run.process();
        EXPECT_EQ(run.sounding->getSeries("QCWspd")->lastIndex() + 1, kept) << rate;
    }
}

TEST(SoundingMotion, RatesGoByTheWavelengthOfThePressureOr10s) {
    EvenDrop run(dropOf([](int i) { return 900.0 + 0.5 * i + 2.0 * std::sin(0.3 * i); }));
    run.config.set.set("DropsondeHitSfc", 0.0);
    for (const double wavelength : {0.0, 6.0}) {
        run.config.set.set("PresSmoothWL", wavelength);
        run.process();
        Series dz("QCDz");
        ASSERT_TRUE(VerticalVelocity().verticalVelocity(
            run.sounding->getSeries("QCPres"), run.sounding->getSeries("QCTdry"), run.sounding->getSeries("QCRH"), &dz,
            wavelength == 0.0 ? 10.0 : wavelength));
        EXPECT_EQ(run.series("QCDz"), textOf(dz));
    }
}

// The launch wind isn't judged, nor is the last one.
TEST(SoundingMotion, WindsAreJudgedFromFourOn) {
    for (const bool launched : {false, true}) {
        for (const int winds : {3, 4}) {
            CsvText text(false);
            if (launched) {
                text.line("Speed,10").line("Direction,90");
            }
            text.fields("Time,Pressure,Speed,Direction,Ascent");
            for (int i = 0; i < 10; ++i) {
                text.data(std::to_string(i) + ",900," + (i < winds ? "10,90,0" : ",,0"));
            }
            QcRun run(text);
            run.process();
            const auto item = testing::HasSubstr("failed the vertical velocity check: 3");
            EXPECT_EQ(testing::Value(run.summary.items("QC for Winds"), testing::Contains(item)), winds == 4);
            EXPECT_EQ(run.sounding->getSeries("QCWspd")->lastIndex() + 1, (winds == 4 ? 1 : 3) + (launched ? 1 : 0));
        }
    }
}

TEST(SoundingMotion, TellsAFastFall) {
    EvenDrop run;
    run.process();
    EXPECT_THAT(run.summary.items("Fast Fall Test"), ElementsAre("Number of points with excessive fall rate: 0",
                                                                 "Percentage of points with excessive fall rate:  0",
                                                                 "Sounding diagnosed as a fast fall: No"));
    EXPECT_EQ(run.errors(), "");

    // With 100 g the theoretical speed is 6.5 m/s, less than the hydrostatic one by a factor of 1.4 all the way.
    run.config.set.set("DropSondeMass", 100.0);
    run.process();
    const auto items = run.summary.items("Fast Fall Test");
    ASSERT_EQ(items.size(), 3u);
    EXPECT_EQ(items[1], "Percentage of points with excessive fall rate:  100");
    EXPECT_EQ(items[2], "Sounding diagnosed as a fast fall: <b><font color=\"red\">Yes</font></b>");
    EXPECT_EQ(run.errors(), "- This appears to be a fast fall sounding.\n");
}

TEST(SoundingMotion, ParachuteHasItsDefaults) {
    EvenDrop run;
    run.config.set.set("WindDisableW", 0.0);
    run.process();
    const std::string w = run.series("QCW");
    ASSERT_NE(w, "");
    for (const char* key : {"ChuteArea", "DragCoef", "DropSondeMass"}) {
        run.config.set.remove(key);
    }
    run.process();
    EXPECT_EQ(run.series("QCW"), w) << "676 cm2, 0.61 and 400 g";
}

TEST(SoundingMotion, AFastFallNeedsRates) {
    CsvText text(false);
    text.fields("Time,Temperature").data("0,20").data("1,20");
    QcRun run(text);
    run.process();
    EXPECT_THAT(run.summary.items("Fast Fall Test"),
                ElementsAre("<font color=\"red\">Not enough points for the fast fall check</font>"));
}

TEST(SoundingMotion, TiltsThePressureToAKnownSurfacePressure) {
    EvenDrop run;
    run.config.override("SfcPresOverride", 951.45);
    run.process();
    EXPECT_THAT(run.summary.items("Pressure Adjustment"),
                ElementsAre("QCPres profile adjusted for a surface pressure of 951.5mb",
                            "QCVVPres profile adjusted for a surface pressure of 951.5mb"));
    const Series& pres = *run.sounding->getSeries("QCPres");
    EXPECT_EQ(pres.data(0), 900.0);
    EXPECT_NEAR(pres.data(50), 925.0 + 25.0 * 1.95 / 49.5, 1e-9);
    EXPECT_NEAR(pres.data(99), 951.45, 1e-9);

    run.config.override("LaunchPresOverride", 899.0); // takes part, at -1 s
    run.process();
    EXPECT_EQ(run.sounding->getSeries("QCPres")->data(0), 899.0);
    EXPECT_NEAR(run.sounding->getSeries("QCPres")->data(51), 925.0 + 26.0 * 1.95 / 50.5, 1e-9);
    run.config.set.set("DropsondeHitSfc", 0.0);
    run.process();
    EXPECT_EQ(run.sounding->getSeries("QCPres")->data(51), 925.0);
    EXPECT_THAT(run.summary.items("Pressure Adjustment"), ElementsAre());
}

TEST(SoundingMotion, LeavesThePressureWhereTheSurfacePressureIsNone) {
    const auto errors = [](const std::string& surface) {
        return "- Unable to adjust QCPres to a surface pressure of " + surface +
               "mb\n- Unable to adjust QCVVPres to a surface pressure of " + surface + "mb\n";
    };
    for (const auto& [surface, text] : {std::pair(0.0, "0.0"), std::pair(1300.0, "1300.0")}) {
        EvenDrop run;
        run.config.override("SfcPresOverride", surface);
        run.process();
        EXPECT_EQ(run.errors(), errors(text));
        EXPECT_EQ(run.sounding->getSeries("QCPres")->data(50), 925.0);
    }

    // 100 mb growing by 2.3 % from sample to sample: half way, a tilt by 970 mb would leave less than nothing.
    EvenDrop growing(dropOf([](int i) { return 100.0 * std::exp(0.023 * i); }));
    growing.config.override("SfcPresOverride", 5.0);
    growing.process();
    EXPECT_THAT(growing.errors(), testing::HasSubstr(errors("5.0")));
    EXPECT_NEAR(growing.sounding->getSeries("QCPres")->data(50), 315.8, 0.1);
}

TEST(SoundingMotion, LaunchValuesOutOfTheirRangeArentKnown) {
    EvenDrop run;
    run.config.set.remove("LaunchTdryOverride");
    run.config.override("LaunchAltOverride", 500.0);
    run.config.override("SfcAltOverride", 12.0);
    run.process();
    const auto settled = run.summary.items("Ambient Equilibration");
    const std::string up = run.series("QCAltUp");
    const std::string down = run.series("QCAltDn");
    ASSERT_EQ(settled[2], "Ambient pressure: 250mb");
    for (const auto& [key, value] :
         {std::pair("Pres", 0.0), std::pair("Pres", -50.0), std::pair("Pres", 4300.0), std::pair("Tdry", -300.0),
          std::pair("Tdry", 60.0), std::pair("RH", -1.0), std::pair("RH", 130.0)}) {
        const std::string name = std::string("Launch") + key + "Override";
        run.config.override(name, value);
        run.process();
        run.config.set.remove(name);
        EXPECT_EQ(run.summary.items("Ambient Equilibration"), settled) << name << " " << value;
        EXPECT_EQ(run.series("QCAltUp"), up) << name << " " << value;
        EXPECT_EQ(run.series("QCAltDn"), down) << name << " " << value;
    }
    run.config.override("LaunchPresOverride", 880.0);
    run.process();
    EXPECT_EQ(run.summary.items("Ambient Equilibration")[2], "Ambient pressure: 880mb") << "one that is in";
}

TEST(SoundingMotion, HeightsMayUseAnIgnoredLaunch) {
    EvenDrop run(evenDrop().line("Pressure,899"));
    run.config.override("IgnoreLaunchPres", 1.0);
    for (const auto& [useIgnored, first] : {std::pair(1.0, -1.0), {0.0, 0.0}}) {
        run.config.set.set("UseIgnoredLaunch", useIgnored);
        run.process();
        EXPECT_EQ(run.sounding->getSeries("QCAltUp")->time(0), first);
        EXPECT_EQ(run.sounding->getSeries("QCPres")->time(0), 0.0);
    }
}

TEST(SoundingMotion, AnAscentNeedsTheAltitudeOfItsLaunch) {
    CsvText text(true);
    text.fields("Time,Pressure,Temperature").data("0,1000,20").data("1,999,20");
    QcRun run(text);
    run.config.override("SfcAltitude", 30.0);
    run.process();
    EXPECT_EQ(run.series("QCAltUp"), "");
    EXPECT_THAT(run.summary.items("QC Height Integration"), ElementsAre());
    QcRun known(text.line("Altitude,30"));
    known.config.override("SfcAltitude", 30.0);
    known.process();
    EXPECT_THAT(known.summary.items("QC Height Integration"), ElementsAre("Downward integration starts @ 30.0m"));
    EXPECT_EQ(timesOf(*known.sounding->getSeries("QCAltUp")), "0 1");
    known.config.override("IgnoreLaunchAlt", 1.0); // though ignored values may be used
    known.process();
    EXPECT_EQ(known.series("QCAltUp"), "");
    known.config.override("LaunchAltOverride", 50.0);
    known.process();
    EXPECT_THAT(known.summary.items("QC Height Integration"), ElementsAre("Downward integration starts @ 50.0m"));
}

TEST(SoundingMotion, HeightsPassOverAFirstPressureThatIsNone) {
    CsvText text(false);
    text.fields("Time,Pressure,Temperature").data("0,0,20").data("1,901,20").data("2,902,20");
    EvenDrop run(text);
    run.config.set.set("DropsondeHitSfc", 0.0);
    run.config.override("LaunchAltOverride", 500.0);
    run.process();
    const Series& down = *run.sounding->getAltSeries();
    EXPECT_EQ(timesOf(down), "1 2");
    EXPECT_EQ(down.data(0), 500.0);
    // 294 K / 0.034164 ln(902 / 901) = 9.55 m
    EXPECT_NEAR(down.data(1), 500.0 - 9.55, 0.05);
}

TEST(SoundingMotion, EquilibrationTakesTheHeadAndSaysWhy) {
    EvenDrop run;
    run.config.override("TdryEquilTimeOverride", 3.0);
    run.config.override("RHEquilTimeOverride", 2.0);
    run.config.override("PresEquilTimeOverride", 1.0);
    run.config.set.add("WindEquilTime", 4.0, false, false, true);
    run.process();
    EXPECT_THAT(run.summary.items("Ambient Equilibration"),
                ElementsAre("Cabin temperature: 20C", "Sensor type: RS80", "Ambient pressure: 250mb",
                            "Ambient temperature: 20C", "Ambient RH: 50%", "Temperature equilibration accuracy: 0.1C",
                            "RH equilibration accuracy: 5.0%", "Temperature equilibration (override) at time: 3.0s.",
                            "RH equilibration (override) at time: 2.0s.",
                            "Pressure equilibration (override) at time: 1.0s", "Wind equilibration: 4.0s"));
    const std::map<std::string, double> firstKept{{"QCRH", 2.0}, {"QCPres", 1.0}, {"QCVVPres", 3.0}, {"QCWspd", 4.0}};
    for (const auto& [name, time] : firstKept) {
        EXPECT_EQ(run.sounding->getSeries(name)->time(0), time) << name;
    }
    const Series& tdry = *run.sounding->getSeries("QCTdry");
    EXPECT_EQ(tdry.time(0), -1.0) << "the launch value stays";
    EXPECT_EQ(tdry.time(1), 3.0) << "both bounds are strict";
    const Series& raw = *run.sounding->getSeries("RawTdry");
    EXPECT_TRUE(raw.testAttribute(0, Value::QcAmbientEquilibration));
    EXPECT_TRUE(raw.testAttribute(5, Value::QcAmbientEquilibration));
    EXPECT_FALSE(raw.testAttribute(6, Value::QcAmbientEquilibration));
}

// 5.86 time constants of 2.72 s from 25 to -10 deg C but for 0.1, in 500 mb. Of the RH sensor 10.22 s at 500 mb: the
// 30922 of 17.67 * 35 K * 50 % are 138 % at -10 deg C, and those to 5 % take 3.32 of them.
TEST(SoundingMotion, EquilibrationIsWorkedOutFromTheLaunch) {
    CsvText text(false);
    text.line("Pressure,500").line("Temperature,-10").line("RH,50").fields("Time,Pressure,Temperature,RH");
    for (int i = 0; i < 60; ++i) {
        text.data(std::to_string(i) + ",500,-10,50");
    }
    EvenDrop run(text);
    run.config.set.remove("LaunchTdryOverride");
    run.config.set.set("CabinTemp", 25.0);
    for (const char* none : {"TdryEquilTimeOverride", "RHEquilTimeOverride", "PresEquilTimeOverride"}) {
        run.config.override(none, 0.0);
    }
    run.process();
    const auto attributes = run.sounding->attributes();
    EXPECT_EQ(attributes.at("TdryEquilTime"), "15.92");
    EXPECT_EQ(attributes.at("PresEquilTime"), "15.92");
    EXPECT_EQ(attributes.at("RHEquilTime"), "33.92");
    const auto items = run.summary.items("Ambient Equilibration");
    ASSERT_EQ(items.size(), 11u);
    EXPECT_EQ(items[7], "Temperature equilibration at time: 15.9s, RS80 T sensor time constants: 5.9");
    EXPECT_EQ(items[8], "RH equilibration at time: 33.9s, RS80 RH sensor time constants: 3.3");
    EXPECT_EQ(items[9], "Pressure: same equilibration time used as for temperature");
    for (const auto& [name, time] : {std::pair("QCTdry", 16.0), {"QCPres", 16.0}, {"QCVVPres", 16.0}, {"QCRH", 34.0}}) {
        EXPECT_EQ(run.sounding->getSeries(name)->time(1), time) << name << " behind the launch value";
    }
}

namespace {

/// The even drop with further lines at its end.
CsvText drawnOut(const std::vector<std::string>& rows) {
    CsvText text = evenDrop();
    for (const std::string& row : rows) {
        text.data(row);
    }
    return text;
}

std::vector<std::string> surfaceItems(const CsvText& text, double endOfDrop = 0.0) {
    EvenDrop run(text);
    if (endOfDrop > 0.0) {
        run.config.override("LastDataTimeOverride", endOfDrop);
    }
    run.process();
    return run.summary.items("Surface Observation");
}

} // namespace

TEST(SoundingMotion, SplashIsTheLastUsableFrame) {
    const auto splash = [](const std::string& time) {
        return "Splash time (time of the last usable frame): " + time + "s";
    };
    EXPECT_EQ(surfaceItems(drawnOut({"59.5,,20,,,,"}))[0], splash("59.50")) << "10.0 s after the last pressure";
    EXPECT_TRUE(surfaceItems(drawnOut({"59.6,,20,,,,"})).empty()) << "10.1 s after it";
    EXPECT_EQ(surfaceItems(drawnOut({"50.4,,,,,90,"}))[0], splash("50.40")) << "a direction alone, 0.9 s later";
    EXPECT_EQ(surfaceItems(drawnOut({"50.5,,,,,90,"}))[0], splash("49.50")) << "1.0 s later";
    EXPECT_EQ(surfaceItems(evenDrop(), 49.0)[0], splash("49.00")) << "an end set half a second before that of the file";
    EXPECT_EQ(surfaceItems(drawnOut({"50.4,,,,,90,"}), 50.4)[0], splash("50.40")) << "an end set at that of the file";
}

TEST(SoundingMotion, SurfaceValuesNeedRecentSamples) {
    const auto lastTime = [](const EvenDrop& run, const char* name) {
        const Series& series = *run.sounding->getSeries(name);
        return series.time(series.lastIndex());
    };
    for (const char* dry : {"QCTdry", "QCRH"}) {
        const std::string cells = dry == std::string("QCTdry") ? ",,50,10,90," : ",20,,10,90,";
        CsvText text = evenDrop();
        for (const char* row : {"50,950", "50.5,950.5", "51,951"}) {
            text.data(row + cells);
        }
        EvenDrop recent(text);
        recent.process();
        EXPECT_NEAR(lastTime(recent, dry), 51.54, 1e-9) << "1.5 s before the splash";
        EvenDrop run(text.data("51.5,951.5" + cells));
        run.process();
        EXPECT_EQ(lastTime(run, dry), 49.5) << "2 s before the splash";
        for (const char* name : {"QCPres", "QCTdry", "QCRH"}) {
            EXPECT_TRUE(name == std::string(dry) || std::abs(lastTime(run, name) - 52.04) < 1e-9) << name;
        }
    }
}

TEST(SoundingMotion, SurfacePressureIsThatOfTheAirBelow) {
    for (const auto& [humidity, assumed] : {std::pair("50", 50.0), {"", 70.0}}) {
        EvenDrop run(evenDrop("-9.1", "20", humidity));
        run.process();
        const Series& dz = *run.sounding->getSeries("QCDz");
        const double way = 0.54 * dz.data(dz.lastIndex());
        double pressure = 0.0;
        ASSERT_TRUE(run.sounding->getRawTermPres(pressure));
        EXPECT_NEAR(pressure, hydroP(949.5, 20.0, 20.0, assumed, assumed, 0.0, way), 1e-9) << assumed;
    }
}

// 98.88 % at 48 s, and 3 % more at the splash.
TEST(SoundingMotion, SurfaceRHIsLimited) {
    CsvText text(false);
    text.fields("Time,Pressure,Temperature,RH");
    for (int i = 0; i < 100; ++i) {
        text.data(std::to_string(0.5 * i) + "," + std::to_string(900.0 + 0.5 * i) + ",20," +
                  (i > 96 ? "" : std::to_string(1.03 * i)));
    }
    EvenDrop run(text);
    run.process();
    const Series& rh = *run.sounding->getSeries("QCRH");
    EXPECT_NEAR(rh.time(rh.lastIndex()), 50.04, 1e-9);
    EXPECT_EQ(rh.data(rh.lastIndex()), 100.0);
    EXPECT_THAT(run.summary.items("Surface Observation"), testing::Contains("Extrapolated surface rh: 100.0%"));
}

TEST(SoundingMotion, WithoutTemperatureTheSondeFalls12MetresASecond) {
    QcRun run(evenDrop("-9.1", ""));
    run.process();
    // 12 m/s for 0.54 s are 6.48 m, and those 6.48 / 8.7 mb.
    EXPECT_THAT(run.summary.items("Surface Observation"),
                ElementsAre("Splash time (time of the last usable frame): 49.50s", "Extrapolated surface time: 50.04s",
                            "Fall distance from last frame: 6.5m", "Extrapolated surface pressure: 950.2mb",
                            "Extrapolated surface rh: 50.0%"));
}

TEST(SoundingMotion, ARisingSondeReachesNoSurface) {
    EvenDrop run(dropOf([](int i) { return 950.0 - 0.005 * i; }));
    run.process();
    EXPECT_THAT(run.summary.items("Surface Observation"),
                ElementsAre("Splash time (time of the last usable frame): 49.50s"));
}

TEST(SoundingMotion, GpsAloneCondemnsOnlyASondeThatDoesntFall) {
    for (const auto& [rate, kept] : {std::pair("0", 99), std::pair("-0.1", 100)}) {
        QcRun run(evenDrop(rate, ""));
        run.config.set.set("WindVVdelta", 2.5);
        run.process();
        EXPECT_EQ(run.sounding->getSeries("QCWspd")->lastIndex() + 1, kept) << rate;
    }
}

TEST(SoundingMotion, LagsThatCannotBeWorkedOutAreTold) {
    EvenDrop run;
    run.process();
    const std::string tdry = run.series("QCTdry");
    const std::string wspd = run.series("QCWspd");
    for (const char* quantity : {"Tdry", "Wind"}) {
        run.config.override(std::string(quantity) + "DynCor", 1.0);
        run.config.override(std::string(quantity) + "DynCorWL", 1000.0);
    }
    run.process();
    EXPECT_EQ(run.errors(), "- Unable to dynamically adjust temperature\n- Unable to dynamically adjust winds\n");
    EXPECT_THAT(run.summary.items("QC for Temperature"),
                testing::Contains("Unable to dynamically adjust temperature (usually due to spline fit failure)"));
    EXPECT_THAT(run.summary.items("QC for Winds"),
                testing::Contains("Unable to dynamically adjust winds (usually due to spline fit failure)"));
    EXPECT_EQ(run.series("QCTdry"), tdry);
    EXPECT_EQ(run.series("QCWspd"), wspd);
    run.config.override("TdryDynCor", 0.0);
    run.config.override("WindDynCor", 0.0);
    run.process();
    EXPECT_EQ(run.errors(), "");
}

TEST(SoundingMotion, DryBiasIsTakenOutOfTheSensorsThatHaveIt) {
    CsvText text(false);
    text.line("ThermoSensor,RSS904").fields("Time,Temperature,RH").data("0,0,50").data("1,0,60").data("2,0,70");
    QcRun run(text);
    run.config.set.set("CabinTemp", -50.0);
    run.process();
    EXPECT_EQ(run.sounding->attributes().at("TDDryBiasCorrApplied"), "false") << "a CSV file needs no correction";
    EXPECT_THAT(run.summary.items("TD Dry Bias Correction"), ElementsAre());
    EvenDrop other;
    other.process();
    EXPECT_EQ(other.sounding->attributes().count("TDDryBiasCorrApplied"), 0u);
}
