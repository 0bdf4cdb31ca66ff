#include "ReadText.h"
#include "RowText.h"
#include "TextEdits.h"

#include <gmock/gmock.h>

#include <algorithm>

using testing::ElementsAre;

namespace {

using Series_ = Series* (SoundingFile::*)();

/// A store that counts what is written to it.
class ChangesRegistry : public Registry {
public:
    using Registry::set;
    void set(const std::string& /*key*/, double /*value*/) override { ++changes; }

    int changes = 0;
};

/// The values of one row with its time.
std::vector<double> rowOf(SoundingFile& file, int index) {
    std::vector<double> values;
    for (const Series_ series :
         {&SoundingFile::sTime, &SoundingFile::sPres, &SoundingFile::sTdry, &SoundingFile::sRh0, &SoundingFile::sWspd,
          &SoundingFile::sWdir, &SoundingFile::sDz, &SoundingFile::sLon, &SoundingFile::sLat, &SoundingFile::sAlt,
          &SoundingFile::sGpsalt, &SoundingFile::sSats}) {
        EXPECT_EQ((file.*series)()->time(index), file.sTime()->time(index));
        values.push_back((file.*series)()->data(index));
    }
    return values;
}

/// Header lines that have to be there by what they contain: each of \p texts lost in turn makes the file invalid, as
/// does a header that is a line short.
void needsItsHeader(const TextLines& header, const TextLines& rows, const TextLines& texts) {
    ASSERT_TRUE(readText(joined(with(header, rows)))->isValid());
    for (const std::string& text : texts) {
        const auto line = static_cast<std::size_t>(text[0] - 'a'); // a letter ahead of the text tells its line
        TextLines damaged = header;
        ASSERT_NE(damaged[line].find(text.substr(1)), std::string::npos) << text;
        std::replace(damaged[line].begin(), damaged[line].end(), text[1], '#');
        const auto file = readText(joined(with(damaged, rows)));
        EXPECT_TRUE(file == nullptr || (!file->isValid() && file->description() == "D20210801_120003.1 ")) << text;
    }
    for (std::size_t i = 0; i < header.size(); ++i) {
        TextLines shorter(header.begin(), header.begin() + static_cast<std::ptrdiff_t>(i));
        const auto ended = readText(joined(shorter));
        EXPECT_TRUE(ended == nullptr || !ended->isValid()) << i;
    }
}

} // namespace

TEST(TroveFile, TakesHeaderLaunchAndRecords) {
    const auto file = readText(troveText());
    EXPECT_TRUE(file->isValid());
    EXPECT_EQ(file->soundingType(), SoundingType::Trove);
    EXPECT_TRUE(file->ascending());
    EXPECT_EQ(file->project(), "SITE, A1 TESTEX, IOP2");
    EXPECT_EQ(file->description(), "D20210801_120003.1 TESTEX, IOP2  ");
    EXPECT_EQ(startOf(*file), "2022-02-03 11:30:07");
    EXPECT_EQ(file->platformType(), "KIVU TROVE RSS421");
    EXPECT_EQ(file->sondeId(), "R4520117");
    EXPECT_EQ(file->launchObsSource(), "Tower");
    EXPECT_EQ(file->sysOperator() + "|" + file->comments(), "Doe|clear, sky");
    EXPECT_EQ(file->getErrorMsg(), "");
    EXPECT_THAT(launchOf(*file), ElementsAre(1012.0, 28.5, 80.0, 95.0, 7.0, -105.234, 40.012, 1.5, -999.0));
    ASSERT_EQ(file->dataPoints(), 2);
    EXPECT_THAT(rowOf(*file, 0),
                ElementsAre(0.0, 1011.0, 28.4, 79.7, 7.1, 94.5, 5.0, -105.235, 40.013, 6.5, -999.0, -999.0));
    EXPECT_EQ(rowOf(*file, 1)[0], 10.0);
    EXPECT_EQ(file->numRhChan(), 1);
    EXPECT_TRUE(file->sRh1()->empty() && file->sDp()->empty() && file->sWe()->empty());
    EXPECT_EQ(codesOf(*file), "19|0|0|90");
}

TEST(TroveFile, NeedsItsHeader) {
    needsItsHeader(troveHeader(), {kTroveLaunch, "0.0 1011.0"},
                   {"aData Type", "bProject", "cSite", "dLocation", "eTime", "fSonde", "mTime", "nsec", "o-----"});
    EXPECT_FALSE(readText(replaced(troveText(), "11:30:07", "11:30"))->isValid());
}

// The limits: at them a value stands, above it is missing; -999.0 and what isn't there are missing too.
TEST(TroveFile, ValuesAboveTheLimitsAreMissing) {
    const auto file = readText(
        joined(with(troveHeader(), {kTroveLaunch, "-0.1 1 1 1 1 1 1 1 1 1 1 1 1 1 1", // ahead of the launch
                                    "0 9998.0 998.0 0 998.0 0 0 998.0 998.0 98.0 998.0 998.0 0 0 99998.9",
                                    "1 9998.1 998.1 0 998.1 0 0 998.1 998.1 98.1 998.1 998.1 0 0 99999.0",
                                    "2 -999.0 -999.0 0 x 0 0 nan 3.5m/s -99.0 -180 -90 0 0 100000.0 1 2 3 4 5 6 7 8",
                                    "3 1000", "   ", "99999.0 1000 1 1 1 1 1 1 1 1 1 1 1 1 1"})));
    const double m = -999.0;
    ASSERT_EQ(file->dataPoints(), 4);
    EXPECT_THAT(rowOf(*file, 0), ElementsAre(0, 9998, 998, 998, 998, 998, 98, 998, 998, 99998.9, m, m));
    EXPECT_THAT(rowOf(*file, 1), ElementsAre(1, m, m, m, m, m, m, m, m, m, m, m));
    EXPECT_THAT(rowOf(*file, 2), ElementsAre(2, m, m, 0, m, 3.5, -99, -180, -90, 100000.0, m, m));
    EXPECT_THAT(rowOf(*file, 3), ElementsAre(3, 1000, m, m, m, m, m, m, m, m, m, m));
}

TEST(TroveFile, HasToGiveALaunchPressure) {
    const auto withLaunch = [](const std::string& row) {
        return readText(joined(with(troveHeader(), {row, "0 1000", "1 999"})));
    };
    for (const char* row : {"-1 -999.0 20", "-1 -1000 20", "-1", "-1 nan"}) {
        EXPECT_FALSE(withLaunch(row)->isValid()) << row;
    }
    EXPECT_TRUE(withLaunch("-1 -998.9 20")->isValid());
    EXPECT_EQ(withLaunch("-1 9998.5 998.5")->launchPres(), 9998.5); // not held to the limits
    // The marks of the product, for a launch that nobody observed.
    const auto unknown =
        withLaunch("-1.0 9999.0 999.0 999.0 999.0 999.0 999.0 999.0 999.0 99.0 999.0 999.0 9 9 99999.0");
    EXPECT_TRUE(unknown->isValid());
    EXPECT_THAT(launchOf(*unknown), testing::Each(-999.0));
    EXPECT_FALSE(readText(joined(with(troveHeader(), {kTroveLaunch})))->isValid());
    EXPECT_FALSE(readText(joined(with(troveHeader(), {kTroveLaunch, "-0.5 1000"})))->isValid());
}

TEST(TroveFile, ReadsTheProduct) {
    TextLines header = troveHeader();
    header[0] = "Data Type:                         Drops";
    for (const auto& [line, sonde] :
         {std::pair{"Sonde Id:     204715063", "204715063"}, {"Sonde Id:     ", ""}, {"Sonde Id:     204 B", "B"}}) {
        header[5] = line;
        header[8] = "/";
        const auto file = readText(joined(with(header, {"1.0 1002", "0.5 1001", "0.0 1000", kTroveLaunch})));
        ASSERT_TRUE(file && file->isValid());
        EXPECT_EQ(file->sondeId(), sonde);
        EXPECT_EQ(file->launchObsSource(), "unknown");
        EXPECT_TRUE(file->descending());
        EXPECT_EQ(file->launchPres(), 1012.0);
        EXPECT_THAT(file->sTime()->dataArray(), ElementsAre(0.0, 0.5, 1.0));
        EXPECT_THAT(file->sPres()->dataArray(), ElementsAre(1000, 1001, 1002));
    }
    header[1] = "Campaign:      TESTEX"; // not even by its second line
    EXPECT_EQ(readText(joined(with(header, {"1.0 1002"}))), nullptr);
}

// One bad time, or a row torn in the middle of its time, turns no file round; a launch row may stand ahead of a
// descent.
TEST(TroveFile, TurnsRoundWhatRunsBackward) {
    struct Case {
        TextLines rows;
        bool ascending;
        std::vector<double> times;
    };
    const Case cases[] = {
        {{"5 900", "0 1000", "1 1001", "2 1002"}, true, {0, 1, 2}},
        {{"-1 900", "5 1000", "6 1001", "7 1002", "1"}, true, {1, 5, 6, 7}},
        {{"-1 900", "2 1002", "1 1001", "0 1000"}, false, {0, 1, 2}},
        {{"0 1000", "-1 900"}, false, {0}},
        {{"-1 900", "0 1000"}, true, {0}},
        {{"-1 900", "0 1000", "0 1001"}, true, {0, 0}},
    };
    for (const Case& c : cases) {
        const auto file = readText(joined(with(troveHeader(), c.rows)));
        EXPECT_EQ(file->ascending(), c.ascending) << c.rows[0];
        EXPECT_EQ(file->sTime()->dataArray(), c.times) << c.rows[0];
        EXPECT_EQ(file->launchPres(), 900.0) << c.rows[0];
    }
}

TEST(ZORFile, TakesHeaderLaunchAndRecords) {
    const auto file = readText(zorText());
    EXPECT_TRUE(file->isValid());
    EXPECT_EQ(file->soundingType(), SoundingType::Zor);
    EXPECT_TRUE(file->descending());
    EXPECT_EQ(file->dataType(), "Channel 1");
    EXPECT_EQ(file->project() + "|" + file->flight(), "TESTEX|RF07");
    EXPECT_EQ(file->platformType() + "|" + file->platformId(), "AC1|N00XX");
    EXPECT_EQ(file->description(), "D20210801_120003.1 TESTEX, RF07/AC1, N00XX ");
    EXPECT_EQ(file->siteId(), "Site A");
    EXPECT_EQ(startOf(*file), "2021-08-01 12:00:03");
    EXPECT_EQ(file->sondeId() + "|" + file->sondeModel() + "|" + file->thermoSensor(), "204715063|RSS421|RSS421");
    EXPECT_EQ(file->launchObsSource() + "|" + file->launchObsTime(), "OBSSYS|11:59:58");
    EXPECT_EQ(file->sysOperator() + "|" + file->comments(), "Doe|clear / sky");
    EXPECT_THAT(launchOf(*file), ElementsAre(450.0, -4.98, 94.45, 138.07, 45.85, -80.4321, 25.1234, 6330.49, 6330.79));
    ASSERT_EQ(file->dataPoints(), 2);
    EXPECT_THAT(rowOf(*file, 0), ElementsAre(0.0, 449.99, 17.06, 34.47, 45.8, 138.0, -13.9, -80.4322, 25.1235, 6329.49,
                                             6329.79, -999.0));
}

TEST(ZORFile, NeedsItsHeader) {
    needsItsHeader(zorHeader(), {kZorLaunch, "0.00 12 0 3.00 449.99"},
                   {"aData Type", "bFile Format", "bZOR Sounding Format", "cProject", "dLaunch", "eLaunch",
                    "fUTC Launch", "gSonde Id", "hReference", "iOperator", "lTime", "msec", "n-------"});
}

TEST(ZORFile, HeaderPartsMayBeLeftOut) {
    std::string text = replaced(zorText(), "TESTEX, RF07/AC1, N00XX", "TESTEX");
    text = replaced(replaced(text, "/RSS421", "/S1"), "OBSSYS/11:59:58", "");
    const auto file = readText(replaced(replaced(text, "Descending", "Ascending"), "Doe/clear / sky", "Doe"));
    EXPECT_TRUE(file->ascending());
    EXPECT_EQ(file->project() + "|" + file->flight() + "|" + file->platformType(), "TESTEX||");
    EXPECT_EQ(file->sondeModel() + "|" + file->thermoSensor(), "S1|");
    EXPECT_EQ(file->launchObsSource() + "|" + file->launchObsTime(), "unknown|unknown");
    EXPECT_EQ(file->sysOperator() + "|" + file->comments(), "Doe|");
}

TEST(ZORFile, ValuesAboveTheLimitsAreMissing) {
    const auto file = readText(joined(with(
        zorHeader(), {"-1 12 0 2 -999.0", "-0.01 12 0 2.99 500", // a launch without a pressure, and one ahead of it
                      "0 0 0 0 9998 998 0 998 0 0 998 998 98 99999 998 998 99999",
                      "1 0 0 0 9998.1 998.1 0 998.1 0 0 998.1 998.1 98.1 9 998.1 998.1 9", "2 0 0"})));
    const double m = -999.0;
    EXPECT_TRUE(file->isValid());
    EXPECT_EQ(file->launchPres(), m);
    ASSERT_EQ(file->dataPoints(), 3);
    EXPECT_THAT(rowOf(*file, 0), ElementsAre(0, 9998, 998, 998, 998, 998, 98, 998, 998, 99999, 99999, m));
    EXPECT_THAT(rowOf(*file, 1), ElementsAre(1, m, m, m, m, m, m, m, m, 9, 9, m));
    EXPECT_THAT(rowOf(*file, 2), ElementsAre(2, m, m, m, m, m, m, m, m, m, m, m));
}

TEST(FRDFile, TakesHeaderAndRecords) {
    const auto file = readText(frdText());
    EXPECT_TRUE(file->isValid());
    EXPECT_EQ(file->soundingType(), SoundingType::Frd);
    EXPECT_TRUE(file->descending());
    EXPECT_EQ(file->dataType(), "NOAA FRD");
    EXPECT_EQ(file->sondeId(), "204715063 B");
    EXPECT_EQ(file->platformType() + "|" + file->platformId(), "AC1|N00XX");
    EXPECT_EQ(file->description(), "D20210801_120003.1 AC1, N00XX ");
    EXPECT_EQ(startOf(*file), "2089-12-31 23:59:59");
    EXPECT_EQ(readText(replaced(frdText(), "Date: 891231", "Date: 900101"))->year(), 1990);
    EXPECT_EQ(readText(replaced(frdText(), "400.3  3.92", "9999.0 3.92"))->sPres()->data(1), 9999.0) << "no limits";
    EXPECT_EQ(file->comments(), "clear sky; no wind");
    EXPECT_THAT(launchOf(*file), ElementsAre(400.0, -10.8, 92.9, 141.0, 39.9, -61.2, -17.9, -999.0, 7248.0));
    ASSERT_EQ(file->dataPoints(), 2);
    EXPECT_THAT(rowOf(*file, 0),
                ElementsAre(-0.5, 400.0, 15.84, 34.6, 39.9, 140.0, -0.3, -61.201, -17.901, 7248.0, -999.0, 7.0));
}

TEST(FRDFile, NeedsItsHeader) {
    needsItsHeader(frdHeader(), {"0001 0.0 400"},
                   {"bDROPWINDSONDE", "dAircraft", "dDate:", "lCOMMENT", "pLat", "qLon", "rSID", "uIX"});
}

// "-999.0" without a hemisphere shifts what stands behind it; a sonde's name may be absent or fill its field.
TEST(FRDFile, ReadsWhatTheProductLeavesOut) {
    std::string text = replaced(frdText(), " 17.90 S ", "-999.0  ");
    text = replaced(replaced(text, " 61.20 W ", "-999.0  "), "204715063                RH", "RH");
    const auto file = readText(replaced(text, "AC1, N00XX", ""));
    EXPECT_THAT(launchOf(*file), ElementsAre(400.0, -10.8, 92.9, 141.0, 39.9, -999.0, -999.0, -999.0, 7248.0));
    EXPECT_EQ(file->platformType() + file->platformId(), "");
    EXPECT_EQ(readText(replaced(frdText(), "204715063                RH", "2047150630123456789012345RH"))->launchRH(),
              92.9);
    EXPECT_EQ(readText(replaced(frdText(), "204715063                RH", "204715063                HU"))->launchRH(),
              92.9);
    EXPECT_EQ(readText(replaced(frdText(), " 17.90 S ", " 17.90 N "))->launchLat(), 17.9);
    EXPECT_EQ(readText(replaced(frdText(), " 17.90 S ", "-999.0 S "))->launchLat(), -999.0);
}

// Nor is the header of another file that was joined to this one.
TEST(RowFiles, ALineOfTextIsNoRecord) {
    for (const std::string& text : {troveText(), zorText(), frdText()}) {
        const auto plain = readText(text);
        const auto file = readText(text + "\nend of data\n" + text.substr(0, text.find('\n')) + "\n");
        EXPECT_TRUE(file->isValid());
        EXPECT_EQ(file->sTime()->dataArray(), plain->sTime()->dataArray());
        std::istringstream lines(text);
        int behind = 1;
        for (std::string line; std::getline(lines, line);) {
            behind += line.empty() ? 0 : 1;
        }
        EXPECT_EQ(file->getErrorMsg(),
                  plain->getErrorMsg() + "- There is no time in line " + std::to_string(behind) + "\n");
    }
}

TEST(PassThrough, IsForcedOnceForTheGivenSetOnly) {
    const std::pair<std::string, std::string> formats[] = {
        {zorText(), "KIVU ZOR files have already had QC applied and should not be reprocessed. Setting QC mode to pass "
                    "through.\n"},
        {frdText(), "NOAA FRD files have already had QC applied and should not be reprocessed. Setting QC mode to pass "
                    "through.\n"},
        {mw41Text(), "- Vaisala MW41 files have already been QC checked and should not be reprocessed. Setting QC mode "
                     "to pass through.\n"},
        {troveText(), ""},
    };
    for (const auto& [text, notice] : formats) {
        for (const double mode : {0.0, 1.0, 2.0, 3.0}) {
            ChangesRegistry registry;
            ConfigSet config(&registry);
            ConfigSet other(&registry);
            config.add("DoQC", mode, true, false, true);
            other.add("DoQC", mode, true, false, true);
            for (const std::string& expected : {mode == 2.0 ? "" : notice, notice.empty() ? notice : std::string()}) {
                std::istringstream stream(text);
                EXPECT_EQ(SoundingFileFactory::newSoundingFile(config, "x", &stream)->getErrorMsg(), expected);
            }
            double now = -1.0;
            config.value("DoQC", now);
            EXPECT_EQ(now, notice.empty() ? mode : 2.0);
            other.value("DoQC", now);
            EXPECT_EQ(now, mode);
            EXPECT_FALSE(config.changed()) << "there is nothing that the user could be asked to save";
            EXPECT_EQ(registry.changes, 0);
        }
    }
}
