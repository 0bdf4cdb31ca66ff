#include "OmbraText.h"
#include "ReadText.h"

#include <gmock/gmock.h>

using testing::ElementsAre;

namespace {

/// The file of one frame at 1 s behind its launch.
std::string oneFrame(const std::string& frame) {
    return version16() + launchLine(0.0) + frame;
}

std::string asAcs(std::string text) {
    for (auto at = text.find("OMBRA"); at != std::string::npos; at = text.find("OMBRA")) {
        text.replace(at, 5, "ACS");
    }
    return text;
}

const double kMissingFrame[] = {9999, 99, 999, 999, 999, 99, 999, 99, 99999, 99, 999, 999, 99, 99999};

} // namespace

TEST(OmbraFile, EveryColumnGoesToItsSeries) {
    const std::string frame = "OMBRA-D01 S00 204715063  210801 120001.50  1.5 2.5 3.5 4.5 5.5 6.5  7.5 8.5 9.5 10 11.5 "
                              "12.5 999 13.5 14.5\n";
    const auto file = readText(oneFrame(frame));
    ASSERT_TRUE(file->isValid());
    EXPECT_THAT(recordOf(*file), ElementsAre(1.5, 2.5, 3.5, 4.5, 5.5, 6.5, 7.5, 8.5, 9.5, 10, 11.5, 12.5, 13.5, 14.5));
    EXPECT_EQ(file->sPres()->time(0), 1.5);
    EXPECT_EQ(file->sTime()->data(0), 1.5);
    EXPECT_EQ(file->dataPoints(), 1);
    EXPECT_EQ(file->numRhChan(), 3);
    EXPECT_EQ(file->ombraWindRate(), 2);
    EXPECT_TRUE(file->descending());
    EXPECT_EQ(file->soundingType(), SoundingType::Ombra);
    EXPECT_EQ(codesOf(*file), "08|0|8|96");
}

TEST(OmbraFile, MarksAreMissingAndNothingElseIs) {
    Frame frame;
    double* const fields[] = {&frame.pres, &frame.tdry, &frame.rh,  &frame.wdir,  &frame.wspd,
                              &frame.dz,   &frame.lon,  &frame.lat, &frame.alt,   &frame.sats,
                              &frame.rh1,  &frame.rh2,  &frame.we,  &frame.gpsAlt};
    for (std::size_t i = 0; i < std::size(fields); ++i) {
        *fields[i] = kMissingFrame[i];
    }
    EXPECT_THAT(recordOf(*readText(oneFrame(frameText(frame)))), testing::Each(-999.0));
    for (double* field : fields) {
        *field += 1.0;
    }
    EXPECT_THAT(recordOf(*readText(oneFrame(frameText(frame)))),
                ElementsAre(10000, 100, 1000, 1000, 1000, 100, 1000, 100, 100000, 100, 1000, 1000, 100, 100000));
    frame.dz = 999.0;
    EXPECT_EQ(readText(oneFrame(frameText(frame)))->sDz()->data(0), -999.0);
}

TEST(OmbraFile, AbsentWordsAreZeroAndOddOnesRead) {
    EXPECT_THAT(recordOf(*readText(oneFrame("OMBRA-D01 S00 204715063 210801 120001.50 +900.5 x nan 1e999 10mb\n"))),
                ElementsAre(900.5, 0, -999, -999, 10, 0, 0, 0, 0, 0, 0, 0, 0, 0));
}

TEST(OmbraFile, ALineThatIsCutOffIsTold) {
    const std::string whole = shortDrop(); // two lines ahead of 31 frames
    const std::string missing = "- Values are missing at the end of line ";
    EXPECT_EQ(readText(whole)->getErrorMsg(), "");
    EXPECT_EQ(readText(whole.substr(0, whole.size() - 20))->getErrorMsg(), missing + "33\n");
    Frame aircraft;
    aircraft.key = "A00";
    EXPECT_EQ(readText(whole + frameText(aircraft))->getErrorMsg(), "");
    EXPECT_EQ(readText(whole + frameText(aircraft, false))->getErrorMsg(), missing + "34\n");
}

TEST(OmbraFile, TheVersionAppliesToAllFramesWhereverItStands) {
    const std::string head = "OMBRA-T01 COM\n" + launchLine(0.0);
    const std::string frame = frameText({});
    const std::pair<std::string, double> cases[] = {
        {head + frame, -999.0},
        {head + frame + version16(), 0.5},
        {head + "OMBRA-T01 COM FORMAT VERSION NUMBER: 1.4\n" + frame, -999.0},
        {head + version16() + frame + "OMBRA-T01 COM FORMAT VERSION NUMBER: 1.5\n", -999.0},
        {head + "OMBRA-T01 FMT VERSION 1.60            \n" + frame, 0.5},
    };
    for (const auto& [text, windError] : cases) {
        const auto file = readText(text);
        EXPECT_EQ(file->sWe()->data(0), windError) << text;
        EXPECT_EQ(file->sGpsalt()->data(0), windError == -999.0 ? -999.0 : 5510.0) << text;
    }
}

TEST(OmbraFile, AcsFilesReadTheSame) {
    Frame bad;
    bad.second = 10.5;
    bad.key = "S11";
    const std::string text = comment("Operator Name:", "Doe") + shortDrop() + frameText(bad);
    const auto ombra = readText(text);
    const auto acs = readText(asAcs(text));
    ASSERT_TRUE(acs->isValid());
    EXPECT_EQ(acs->sPres()->dataArray(), ombra->sPres()->dataArray());
    EXPECT_EQ(acs->sGpsalt()->timeArray(), ombra->sGpsalt()->timeArray());
    EXPECT_EQ(acs->sysOperator(), "Doe");
    EXPECT_EQ(acs->getPGErrNum(), 1);
}

TEST(OmbraFile, CommentsGoToTheirFields) {
    const auto file = readText(
        comment("Project Name/Flight ID:", "EXP, RF01") + comment("Aircraft Type/ID:", "C-130, N1") +
        comment("Operator Comments:", "calm") + comment("Standard Comments:", "good drop") +
        comment("Operator Name/Comments:", "Roe, late") + comment("Data Type/Data Channel:", "Dropsonde/Channel 2") +
        comment("Pre-launch Obs Data System/Time:", "AIMS,  11:59:58") +
        comment("Sonde Type/ID/Ver (n):", "RSS999, 1, 2") +
        comment("Sonde ID/Type/Rev/Built/Sensors:", "204715063, RD, B, 2020, RSS111") +
        comment("Sonde Freq/Batt/Head/Sensor:", "1, 2, 3, RSS222") +
        comment("Sonde Freq/Batt/Firmware/Shutoff:", "1, 2, 3, RSS333") + shortDrop());
    ASSERT_TRUE(file->isValid());
    EXPECT_EQ(file->project() + "|" + file->flight() + "|" + file->platformType() + "|" + file->platformId(),
              "EXP|RF01|C-130|N1");
    EXPECT_EQ(file->comments(), "calm, good drop, late");
    EXPECT_EQ(file->sysOperator(), "Roe");
    EXPECT_EQ(file->dataType(), "Dropsonde/Channel 2");
    EXPECT_EQ(file->launchObsSource() + "|" + file->launchObsTime(), "AIMS|11:59:58");
    EXPECT_EQ(file->sondeModel() + "|" + file->thermoSensor() + "|" + file->sondeId(), "RSS111|RSS222|204715063");
    EXPECT_EQ(file->description(), "D20210801_120003.1 204715063 EXP, RF01 C-130, N1");
    EXPECT_THAT(file->getSummaryInfo(),
                ElementsAre("Data type: Dropsonde/Channel 2", "Sonde model: RSS999", "Sonde model: RSS111",
                            "Thermo sensor: RSS111", "Thermo sensor: RSS222"));
}

TEST(OmbraFile, TheWindOffsetHasTheSignOfItsWord) {
    const std::pair<std::string, double> cases[] = {
        {comment("Met/Wind Offset (s):", "PTU lags wind by 0.5 sec"), -0.5},
        {comment("Met/Wind Offset (s):", "PTU leads  wind by  0.25  sec  "), 0.25},
        {comment("Met/Wind Offset (s):", "PTU matches wind by 0.5 sec"), 0.0},
        {"OMBRA-T01 TOF 0.75                   \n", 0.75},
    };
    for (const auto& [line, offset] : cases) {
        EXPECT_EQ(readText(line + shortDrop())->ptuWindTimeDiff(), offset) << line;
    }
}

TEST(OmbraFile, TheDryBiasOfOldSondes) {
    const std::string biased = comment("Sonde ID/ID$/Built/Rev/Model:", "204715063, 0, 2010, B, RSS904");
    const auto at = [](const char* date) {
        Frame frame;
        frame.date = date;
        frame.second = 1.0;
        return "OMBRA-T01 LAU 204715063 " + std::string(date) + " 120000.00\n" + frameText(frame);
    };
    const std::pair<std::string, bool> cases[] = {
        {biased + at("090101"), true},
        {biased + at("081231"), false},
        {version16() + at("090101"), false},
        {comment("Operator Comments:", "an RS904") + at("210801"), true},
        {comment("Sonde Dynamic Errors:", "0.0, RSS921") + at("210801"), true},
        {biased + comment("Standard Comments:", "TDDryBiasCorrApplied") + at("090101"), false},
    };
    for (const auto& [text, needed] : cases) {
        EXPECT_EQ(readText(text)->needsTDDryBiasCorr(), needed) << text;
    }
}

TEST(OmbraFile, HeatingIsOffOnceAChannelDiffers) {
    EXPECT_TRUE(readText(shortDrop())->rhHeatingOn());
    for (double Frame::*channel : {&Frame::rh1, &Frame::rh2}) {
        Frame frame;
        frame.second = -6.0;
        frame.*channel = 50.01;
        EXPECT_FALSE(readText(version16() + launchLine(0.0) + frameText(frame) + drop(-5.0, 10.0))->rhHeatingOn());
    }
}

TEST(OmbraFile, MinisondesGoWithTheirOwnSet) {
    const auto textOf = [](const std::string& revision, const std::string& model) {
        return comment("Sonde ID/Type/Rev/Built/Sensors:", "204715063, RD, " + revision + ", 2020, " + model) +
               shortDrop();
    };
    const std::tuple<const char*, const char*, const char*, const char*> cases[] = {
        {"A3", "RSS421", "mini-dropsonde",
         "This is not a minisonde, but you are using the mini-dropsonde config set. Please close this file, select a "
         "different config set, and reopen the file.\n"},
        {"A3", "RSS421", "dropsonde", ""},
        {"N1", "RSS421", "dropsonde",
         "This is a minisonde, but you are not using the mini-dropsonde config set. Please close this file, select the "
         "mini-dropsonde config set, and reopen the file.\n"},
        {"N1", "RSS421", "mini-dropsonde", ""},
        {"NA", "RSS421", "dropsonde", ""},
        {"N1", "RSS904", "dropsonde", ""},
        {"A3", "RSS904", "mini-dropsonde", ""},
        {"B1", "RSS421", "mini-dropsonde", ""},
    };
    for (const auto& [revision, model, set, error] : cases) {
        const auto file = readText(textOf(revision, model), set);
        EXPECT_EQ(file->getErrorMsg(), error) << revision << model << set;
        EXPECT_EQ(file->isValid(), *error == '\0');
    }
}

TEST(OmbraFile, SondeIdentifiersHaveToAgree) {
    const std::string mismatch = "- Sonde ID from LAU line (204715063) does not match sonde ID from COM Sonde ID line "
                                 "(111). This file may have been manually edited.\n";
    const std::string id = comment("Sonde ID/ID$/Built/Rev/Model:", "111, 0, 2010, B, RSS421");
    for (const std::string& text : {shortDrop() + id, id + shortDrop()}) {
        const auto file = readText(text);
        EXPECT_TRUE(file->isValid());
        EXPECT_EQ(file->getErrorMsg(), mismatch);
        EXPECT_EQ(file->sondeId(), "204715063");
    }
    EXPECT_EQ(readText(id + version16() + drop(-5.0, 10.0))->sondeId(), "111");
}

TEST(OmbraFile, AFrameWithoutATimeIsDropped) {
    std::string cases[] = {frameText({}), frameText({}), "OMBRA-D01 S00 204715063 210801\n",
                           "OMBRA-D01 S00 204715063 210801 1201\n"};
    cases[0].replace(cases[0].find("210801"), 6, "21O801");
    cases[1].replace(cases[1].find("1200"), 4, "12:0");
    for (const std::string& line : cases) {
        const auto file = readText(version16() + line + launchLine(0.0) + drop(-5.0, 10.0));
        EXPECT_TRUE(file->isValid());
        EXPECT_EQ(file->getErrorMsg(), "- Error in the date or time value in line 2\n");
        EXPECT_EQ(file->dataPoints(), 22);
    }
}

TEST(OmbraFile, TimesHaveToAscend) {
    Frame again;
    for (const double second : {10.0, 9.5, -100.0}) {
        again.second = second;
        const auto file = readText(shortDrop() + frameText(again));
        EXPECT_FALSE(file->isValid());
        EXPECT_EQ(file->getErrorMsg(), "- Time values out of sequence in line34\n");
        EXPECT_EQ(file->dataPoints(), 23);
    }
}

TEST(OmbraFile, CrcFlagsMarkTheFrameAndCount) {
    const auto fileOf = [](const std::vector<Frame>& frames) {
        std::string text = version16() + launchLine(0.0) + drop(-5.0, 0.0);
        for (std::size_t i = 0; i < frames.size(); ++i) {
            Frame frame = frames[i];
            frame.second = static_cast<double>(i + 1);
            text += frameText(frame);
        }
        return readText(text);
    };
    const auto keyed = [](const char* key) {
        Frame frame;
        frame.key = key;
        return frame;
    };
    Frame winds{0.0, 9999, "S11", 99, 999, 180, 10, -12, 999, 99, 99999, 8, 999, 999, 0.5, 5510};
    // an 'S' frame at 0 s ahead of these, and one pre-launch frame
    const auto file =
        fileOf({keyed("S10"), keyed("S01"), keyed("S11"), winds, keyed("P11"), keyed("S1 "), keyed("S11")});
    EXPECT_EQ(file->getPtuErrNum(), 3);
    EXPECT_EQ(file->getGpsErrNum(), 4);
    EXPECT_EQ(file->getPGErrNum(), 2);
    const auto marked = [](Series* series, Value::AttributeType flag) {
        std::string marks;
        for (const Value& value : *series) {
            marks += value.testAttribute(flag) ? '1' : '0';
        }
        return marks;
    };
    for (Series* series : {file->sPres(), file->sTdry(), file->sRh0(), file->sRh1(), file->sRh2()}) {
        EXPECT_EQ(marked(series, Value::CrcPtu), "001010001");
        EXPECT_EQ(marked(series, Value::CrcGps), "000000000");
    }
    for (Series* series : {file->sWdir(), file->sWspd(), file->sLat(), file->sLon(), file->sGpsalt()}) {
        EXPECT_EQ(marked(series, Value::CrcGps), "000111001");
        EXPECT_EQ(marked(series, Value::CrcPtu), "000000000");
    }
    EXPECT_EQ(marked(file->sAlt(), Value::CrcPtu) + marked(file->sDz(), Value::CrcGps), std::string(18, '0'));

    const auto counts = [&] {
        return std::vector<int>{file->getPtuErrNum(), file->getGpsErrNum(), file->getPGErrNum()};
    };
    file->adjustErrStats(3.0); // the frames at 4 s (winds) and at 7 s lie behind
    EXPECT_THAT(counts(), ElementsAre(2, 2, 1));
    file->adjustErrStats(1.0);
    EXPECT_THAT(counts(), ElementsAre(1, 0, 0));
    file->adjustErrStats(-10.0);
    EXPECT_THAT(counts(), ElementsAre(0, 0, 0));
    file->adjustErrStats(7.0);
    EXPECT_THAT(counts(), ElementsAre(3, 4, 2));
}

TEST(OmbraFile, TheFrameKeptFromAheadOfTheLaunchIsNeverCounted) {
    Frame bad;
    bad.key = "S11";
    std::string text = version16() + launchLine(1.0);
    for (const double second : {0.0, 0.5, 1.0, 1.5}) {
        bad.second = second;
        text += frameText(bad);
    }
    const auto file = readText(text);
    EXPECT_EQ(file->dataPoints(), 3);
    EXPECT_EQ(file->getPGErrNum(), 2);
    file->adjustErrStats(-10.0);
    EXPECT_EQ(file->getPtuErrNum(), 0);
    EXPECT_EQ(file->getGpsErrNum(), 0);
    EXPECT_EQ(file->getPGErrNum(), 0);
}

TEST(OmbraFile, AShortWindsOnlyFrameIsAPtuError) {
    Frame winds{1.0, 9999, "S10", 99, 999, 180, 10, -12, 999, 99, 99999, 8, 999, 999, 0.5, 5510};
    EXPECT_EQ(readText(launchLine(0.0) + frameText(winds, false))->getPtuErrNum(), 1);
    EXPECT_EQ(readText(version16() + launchLine(0.0) + frameText(winds))->getPtuErrNum(), 0);
    winds.rh2 = 50.0;
    EXPECT_EQ(readText(version16() + launchLine(0.0) + frameText(winds))->getPtuErrNum(), 1);
}

TEST(OmbraFile, TheWindRateFollowsTheFrames) {
    const std::tuple<int, double, int> cases[] = {{5, 0.25, 2}, {6, 0.25, 4}, {6, 0.5, 2},
                                                  {6, 1.0, 1},  {6, 3.0, 0},  {6, 0.0, 2}};
    for (const auto& [frames, step, rate] : cases) {
        std::string text = version16() + launchLine(0.0);
        for (int i = 0; i < frames; ++i) {
            text += frameText({1.0 + i * step});
        }
        EXPECT_EQ(readText(text)->ombraWindRate(), rate) << frames << " " << step;
    }
}
