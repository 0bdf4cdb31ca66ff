#include "Observation.h"

#include "MadeSounding.h"
#include "SeriesText.h"

#include <gtest/gtest.h>
#include <limits>

namespace {

/// Four frames of a drop at 0, 1, 2 and 3 s, with everything measured in each.
struct Drop : MadeSounding {
    Drop() : MadeSounding(false) {
        const std::map<double, double> times{{0, 0}, {1, 1}, {2, 2}, {3, 3}};
        fill(sTime(), times);
        fill(sPres(), {{0, 500}, {1, 501}, {2, 502}, {3, 503}});
        fill(sTdry(), {{0, -5}, {1, -4}, {2, -3}, {3, -2}});
        fill(sRh0(), {{0, 50}, {1, 51}, {2, 52}, {3, 53}});
        fill(sWspd(), {{0, 10}, {1, 10}, {2, 10}, {3, 10}});
        fill(sWdir(), {{0, 90}, {1, 90}, {2, 90}, {3, 90}});
        fill(sLat(), {{0, 25}, {1, 25}, {2, 25}, {3, 25}});
        fill(sLon(), {{0, -80}, {1, -80}, {2, -80}, {3, -80}});
        fill(sGpsalt(), {{0, 5500}, {1, 5490}, {2, 5480}, {3, 5470}});
        fill(sSats(), {{0, 8}, {1, 8}, {2, 8}, {3, 8}});
    }
};

std::string times(const Observation& observation, const char* name) {
    return timesOf(*observation.getSeries(name));
}

} // namespace

TEST(Observation, LaunchValuesGoInFrontUnlessMissing) {
    for (const bool ascending : {false, true}) {
        MadeSounding file(ascending);
        MadeSounding::fill(file.sTime(), {{0, 0}});
        MadeSounding::fill(file.sPres(), {{0, 500}});
        file._launchPres = 499.0;
        file._launchLat = 25.0;
        const Observation observation(&file);
        const auto flag = ascending ? Value::ObsSurface : Value::ObsFlight;
        EXPECT_EQ(textOf(*observation.getSeries("RawTime")), "-1:-1 0:0");
        EXPECT_EQ(textOf(*observation.getSeries("RawPres")), "-1:499 0:500");
        EXPECT_EQ(observation.getSeries("RawPres")->attributes(0), flag);
        EXPECT_EQ(observation.getSeries("RawPres")->attributes(1), 0u);
        EXPECT_EQ(textOf(*observation.getSeries("RawLat")), "-1:25");
        EXPECT_TRUE(observation.getSeries("RawTdry")->empty());
        EXPECT_TRUE(observation.getSndMetaData().launchPres.avail(false));
        EXPECT_FALSE(observation.getSndMetaData().launchTdry.avail(true));
        EXPECT_EQ(observation.getSndMetaData().launchLat.value(), 25.0);
    }
}

TEST(Observation, DropsWhatIsMissingOrNoNumber) {
    MadeSounding file(false);
    const double nan = std::numeric_limits<double>::quiet_NaN();
    MadeSounding::fill(file.sPres(), {{0, -999}, {1, 500}, {2, nan}, {3, std::numeric_limits<double>::infinity()}});
    for (const auto& [pressure, time] : {std::pair(501.0, nan), {502, -999}, {-1e39, 4}, {503, 1e39}}) {
        file.sPres()->appendValue(pressure, time); // 1e39 is no number of the single precision of netCDF
    }
    file._launchAlt = 1e39;
    file._launchPres = nan;
    const Observation observation(&file);
    EXPECT_EQ(textOf(*observation.getSeries("RawPres")), "1:500");
    EXPECT_FALSE(observation.getSndMetaData().launchAlt.avail(true));
    EXPECT_EQ(observation.getSeries("RawRH0"), nullptr) << "of one channel of RH";
}

// The launch observation stands first, and everything behind it in order of time.
TEST(Observation, RawSeriesAscendFromTheLaunchObservation) {
    MadeSounding file(true);
    for (const auto& [time, pressure] :
         {std::pair(-70.0, 990.0), {-1.001, 991}, {-1.0, 992}, {-0.5, 993}, {1, 994}, {1, 995}, {2, 996}, {3, 997}}) {
        file.sTime()->appendValue(time, time);
        file.sPres()->appendValue(pressure, time);
    }
    file._launchPres = 998.0;
    const Observation observation(&file);
    EXPECT_EQ(times(observation, "RawTime"), "-1 -1 -0.5 1 1 2 3");
    EXPECT_EQ(textOf(*observation.getSeries("RawPres")), "-1:998 -1:992 -0.5:993 1:994 1:995 2:996 3:997");
    EXPECT_EQ(observation.getSeries("RawPres")->attributes(0), Value::ObsSurface);
    EXPECT_EQ(observation.GetMaxLastDataTime(), 3.0);
}

TEST(Observation, TailFramesWithoutDataDontExtendTheSounding) {
    Drop file;
    // A tail of heights, positions, rates and satellites, and CRC errors inside and behind the data.
    for (Series* series :
         {file.sTime(), file.sAlt(), file.sGpsalt(), file.sLat(), file.sLon(), file.sDz(), file.sSats()}) {
        series->appendValue(9, 4);
        series->appendValue(9, 5);
    }
    for (const double t : {4.0, 5.0}) {
        file.sPres()->appendValue(-999, t);
        file.sWspd()->appendValue(-999, t);
    }
    file.sPres()->setAttribute(1, Value::CrcPtu);
    file.sPres()->setAttribute(4, Value::CrcPtu);
    file.sWspd()->setAttribute(5, Value::CrcGps);
    file._crcErrors.ptu = 2;
    file._crcErrors.gps = 1;
    const Observation observation(&file);
    EXPECT_EQ(observation.GetMaxLastDataTime(), 3.0);
    EXPECT_EQ(times(observation, "RawTime"), "-1 0 1 2 3");
    EXPECT_EQ(times(observation, "RawGpsAlt"), "0 1 2 3");
    EXPECT_EQ(file.getPtuErrNum(), 1);
    EXPECT_EQ(file.getGpsErrNum(), 0);

    MadeSounding empty(true);
    EXPECT_EQ(Observation(&empty).GetMaxLastDataTime(), -1.0);
}

TEST(Observation, QcSetIsACopyWithWindComponents) {
    Drop file;
    file._launchLat = 25.5;
    file._launchWspd = 12.0; // without a direction it is no wind
    Observation observation(&file);
    EXPECT_FALSE(observation.QCavail());
    observation.initQCdata(0, true);
    EXPECT_TRUE(observation.QCavail());
    EXPECT_EQ(times(observation, "QCPres"), "0 1 2 3");
    EXPECT_EQ(times(observation, "QCWspd"), "0 1 2 3");
    EXPECT_EQ(times(observation, "QCWdir"), "0 1 2 3");
    EXPECT_NEAR(observation.getSeries("QCU")->data(2), -10.0, 1e-4);
    EXPECT_NEAR(observation.getSeries("QCV")->data(2), 0.0, 1e-4);
    EXPECT_EQ(textOf(*observation.getSeries("QCLat")), "-1:25.5");
    EXPECT_TRUE(observation.getSeries("QCLat")->testAttribute(0, Value::ObsFlight));
    EXPECT_TRUE(observation.getSeries("QCLon")->empty());
    EXPECT_EQ(times(observation, "QCVVPres"), "0 1 2 3");
    for (const char* empty : {"QCAltUp", "QCAltDn", "QCAltMissing", "QCDz", "QCW", "QCVVDz"}) {
        EXPECT_TRUE(observation.getSeries(empty)->empty()) << empty;
    }
    observation.eraseQCdata();
    EXPECT_TRUE(observation.findNamedSeries("QC").empty());
    EXPECT_FALSE(observation.QCavail());

    MadeSounding up(true);
    Observation upward(&up);
    upward.initQCdata(0, true);
    EXPECT_EQ(upward.getSeries("QCVVPres"), nullptr);
}

TEST(Observation, OneWindValueIsNone) {
    MadeSounding file(false);
    MadeSounding::fill(file.sWspd(), {{0, 10}, {1, 11}});
    MadeSounding::fill(file.sWdir(), {{1, 90}, {2, 91}});
    Observation observation(&file);
    observation.initQCdata(0, true);
    for (const char* wind : {"QCWspd", "QCWdir", "QCU", "QCV"}) {
        EXPECT_TRUE(observation.getSeries(wind)->empty()) << wind;
    }
}

TEST(Observation, EndOfDropCutsTheQcSetAndFlagsTheRawTimes) {
    Drop file;
    Observation observation(&file);
    observation.initQCdata(1.5, 0, true);
    EXPECT_EQ(observation.qcLastDataTime(), 1.5);
    EXPECT_EQ(times(observation, "QCPres"), "0 1");
    EXPECT_EQ(times(observation, "RawPres"), "0 1 2 3");
    const Series& rawTime = *observation.getSeries("RawTime"); // -1 0 1 2 3
    EXPECT_FALSE(rawTime.testAttribute(2, Value::AfterEndOfDrop));
    EXPECT_TRUE(rawTime.testAttribute(3, Value::AfterEndOfDrop));
    observation.initQCdata(0.0, 0, true);
    EXPECT_EQ(observation.qcLastDataTime(), 3.0);
    EXPECT_FALSE(rawTime.testAttribute(3, Value::AfterEndOfDrop));

    // The end is told to the hundredth, the time of its frame isn't.
    for (const auto& [early, last] : {std::pair(2.4e-7, "0 1 2"), std::pair(1e-3, "0 1")}) {
        observation.initQCdata(2.0 - early, 0, true);
        EXPECT_EQ(observation.qcLastDataTime(), 2.0 - early);
        EXPECT_EQ(times(observation, "QCPres"), last);
        EXPECT_EQ(rawTime.testAttribute(3, Value::AfterEndOfDrop), early > 1e-5);
    }
}

TEST(Observation, BadCrcTakesOutWhatItCondemned) {
    Drop file;
    for (const int frame : {1, 3}) {
        for (Series* ptu : {file.sPres(), file.sTdry(), file.sRh0()}) {
            ptu->setAttribute(frame, Value::CrcPtu);
        }
        for (Series* gps : {file.sWspd(), file.sWdir(), file.sLat(), file.sLon(), file.sGpsalt()}) {
            gps->setAttribute(frame, Value::CrcGps);
        }
    }
    file.sTdry()->setAttribute(1, Value::QcKeep);
    Observation observation(&file);
    observation.initQCdata(0, true);
    EXPECT_EQ(times(observation, "QCPres"), "0 2 3") << "the last frame is spared";
    EXPECT_EQ(times(observation, "QCVVPres"), "0 2 3");
    EXPECT_EQ(times(observation, "QCTdry"), "0 1 2 3") << "kept by order";
    EXPECT_EQ(times(observation, "QCGpsLat"), "0 2") << "the last position isn't spared";
    EXPECT_EQ(times(observation, "QCGpsLon"), "0 2");
    EXPECT_EQ(times(observation, "QCGpsAlt"), "0 2 3");
    for (const char* wind : {"QCWspd", "QCWdir", "QCU", "QCV"}) {
        EXPECT_EQ(times(observation, wind), "0 2 3") << wind;
    }
    EXPECT_EQ(times(observation, "RawPres"), "0 1 2 3");

    observation.initQCdata(0, false);
    EXPECT_EQ(times(observation, "QCPres"), "0 1 2 3");
    file._soundingType = SoundingType::Pelo;
    observation.initQCdata(0, true);
    EXPECT_EQ(times(observation, "QCPres"), "0 1 2 3") << "only Ombra soundings have such frames";
}

TEST(Observation, WindsStayParallelWhenSamplesShareATime) {
    Drop file;
    for (Series* series : {file.sWspd(), file.sWdir()}) {
        series->setTime(2, 1.0);
        series->setAttribute(2, Value::CrcGps);
    }
    file.sWdir()->setAttribute(2, Value::QcKeep);
    Observation observation(&file);
    observation.initQCdata(0, true);
    for (const char* wind : {"QCWspd", "QCWdir", "QCU", "QCV"}) {
        EXPECT_EQ(times(observation, wind), "0 1 3") << wind;
    }
}

TEST(Observation, IgnoreOrdersTakeTheLastFrameTooAndAllOfAWind) {
    Drop file;
    Observation observation(&file);
    ASSERT_TRUE(observation.setDataAtt("RawPres", 3.0, Value::QcIgnore, true));
    ASSERT_TRUE(observation.setDataAtt("RawWdir", 1.0, Value::QcIgnore, true));
    observation.initQCdata(0, true);
    EXPECT_EQ(times(observation, "QCPres"), "0 1 2");
    for (const char* wind : {"QCWspd", "QCWdir", "QCU", "QCV"}) {
        EXPECT_EQ(times(observation, wind), "0 2 3") << wind;
    }
}

TEST(Observation, KeepAndIgnoreOrders) {
    Drop file;
    file.registerRHchan(1);
    Observation observation(&file);
    Series& pres = *observation.getSeries("RawPres");
    EXPECT_TRUE(observation.setDataAtt("RawPres", 1.005, Value::QcIgnore, true)) << "within a hundredth of a second";
    EXPECT_TRUE(pres.testAttribute(1, Value::QcIgnore));
    EXPECT_TRUE(observation.setDataAtt("RawPres", 1.0, Value::QcKeep, true));
    EXPECT_EQ(pres.attributes(1), Value::QcKeep);
    EXPECT_TRUE(observation.setDataAtt("RawPres", 1.0, Value::QcKeep, false));
    EXPECT_EQ(pres.attributes(1), 0u);

    pres.setAttribute(2, Value::QcAmbientEquilibration);
    EXPECT_FALSE(observation.setDataAtt("RawPres", 2.0, Value::QcKeep, true));
    EXPECT_EQ(pres.attributes(2), Value::QcAmbientEquilibration);
    observation.getSeries("RawRH")->setAttribute(2, Value::QcAmbientEquilibration);
    EXPECT_FALSE(observation.setDataAtt("RawRH0", 2.0, Value::QcKeep, true)) << "refused by the RH in force";

    EXPECT_TRUE(observation.setDataAtt("RawPres", 99.0, Value::QcKeep, true)) << "no such sample: nothing to do";
    EXPECT_TRUE(observation.setDataAtt("RawDz", 1.0, Value::QcKeep, true)) << "an empty series";
    EXPECT_FALSE(observation.setDataAtt("NoSuchSeries", 1.0, Value::QcKeep, true));
}

TEST(Observation, RhChannelReplacesTheRhInForce) {
    Drop file;
    file.registerRHchan(2);
    MadeSounding::fill(file.sRh1(), {{0, 61}, {1, 61}});
    MadeSounding::fill(file.sRh2(), {{0, 72}, {1, 72}});
    file._launchRH = 40.0;
    Observation observation(&file);
    const Series* inForce = observation.getSeries("RawRH");
    for (const auto& [channel, text] : {std::pair(1, "-1:40 0:61 1:61"), std::pair(2, "-1:40 0:72 1:72"),
                                        std::pair(7, "-1:40 0:50 1:51 2:52 3:53")}) {
        observation.initQCdata(channel, true);
        EXPECT_EQ(textOf(*observation.getSeries("QCRH")), text) << channel;
        EXPECT_EQ(observation.getSeries("RawRH"), inForce) << "pointers to raw series outlive a run";
    }
}

TEST(Observation, VersionsCountTheChanges) {
    MadeSounding file(true);
    Observation observation(&file);
    observation.initQCdata(0, true);
    EXPECT_EQ(observation.QCversion(), 1);
    EXPECT_EQ(observation.RawVersion(), 1);
    for (int i = 1; i < 99999; ++i) {
        observation.rawVersionUp();
    }
    EXPECT_EQ(observation.RawVersion(), 99999);
    observation.initQCdata(0, true);
    EXPECT_EQ(observation.RawVersion(), 0);
    EXPECT_EQ(observation.QCversion(), 2);
}
