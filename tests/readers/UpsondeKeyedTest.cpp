// The PELO and VESTA D files.

#include "ReadText.h"
#include "UpsondeText.h"

#include <gmock/gmock.h>

#include <algorithm>

namespace {

using testing::ElementsAre;

const std::string kAheadOfLaunch = "- Sounding data (S) line occurs before launch (LAU) line in file.\n";
const std::string kNoLaunch = "- No launch line (LAU) found in file.\n";
const std::string kNoData = "- No sounding data found in file.\n";
const std::string kBadLaunch = "- Launch date or time is invalid.\n";

std::vector<std::string> pelo() {
    return {upsondeComment("PELO", "Project Name/Mission ID:", "TESTEX, Site A"),
            upsondeComment("PELO", "Data Type/Data Channel:", "Upsonde/1, 1"),
            upsondeComment("PELO", "Operator Name/Comments:", "Doe, clear sky"),
            upsondeComment("PELO", "Pre-launch Obs Data System/Time:", "OBSSYS, 11:29:50"),
            upsondeComment("PELO", "Sonde ID/ID$/Type/Sensors:", "R4520117, 0, RS41-SGP, X"),
            upsondeLaunch("PELO"),
            upsondeRecord("PELO", 0, 1000.0, "A00"),
            upsondeComment("PELO", "Standard Comments:", "second comment"),
            upsondeRecord("PELO", 1, 999.0),
            upsondeRecord("PELO", 2, 998.0)};
}

std::vector<std::string> vesta() {
    return {upsondeComment("VESTA", "Project Name/Flight ID:", "TESTEX, IOP2"),
            upsondeComment("VESTA", "Operator Name/Comments:", "Doe, clear sky, cold"),
            upsondeComment("VESTA", "Sonde Dynamic Errors  (P,T,U):", "-0.25, 9.0"),
            upsondeComment("VESTA", "Data Type/Data Channel:", "Upsonde/1, 2"),
            upsondeComment("VESTA", "Pre-launch Obs Data System/Time:", "OBSSYS"),
            upsondeComment("VESTA", "Sonde ID/ID$/Built/Ver/Type:", "R4520117, 0, 2020, 1, RS92"),
            "VESTA-T01 TOF  0.75 sec ptu ahead of wind",
            upsondeLaunch("VESTA"),
            upsondeRecord("VESTA", 0, 1000.0, "A00"),
            upsondeRecord("VESTA", 1, 999.0),
            upsondeRecord("VESTA", 2, 9999.0)};
}

std::unique_ptr<SoundingFile> read(const std::vector<std::string>& lines, const std::string& name = "/data/up.dat") {
    return readText(joined(lines), "upsonde-1s", name);
}

/// \p line with word \p number replaced.
std::string withWord(const std::string& line, int number, const std::string& word) {
    std::string changed;
    std::istringstream words(line);
    std::string next;
    for (int i = 1; words >> next; ++i) {
        changed += (i == number ? word : next) + " ";
    }
    return changed;
}

} // namespace

TEST(PeloFile, ReadsHeaderLaunchAndRecords) {
    const auto file = read(pelo());
    ASSERT_NE(file, nullptr);
    EXPECT_TRUE(file->isValid());
    EXPECT_EQ(file->getErrorMsg(), "");
    EXPECT_EQ(file->soundingType(), SoundingType::Pelo);
    EXPECT_TRUE(file->ascending());
    EXPECT_EQ(file->platformType(), "KIVU PELO");
    EXPECT_EQ(codesOf(*file), "08|0|8|90");
    EXPECT_EQ(file->description(), "up.dat R4520117 TESTEX, Site A");
    EXPECT_THAT((std::vector<std::string>{file->project(), file->siteId(), file->sysOperator(), file->comments(),
                                          file->dataType(), file->launchObsSource(), file->launchObsTime(),
                                          file->sondeModel(), file->sondeId()}),
                ElementsAre("TESTEX", "Site A", "Doe", "clear sky, second comment", "Upsonde/1", "OBSSYS", "11:29:50",
                            "RS41-SGP", "R4520117"));
    EXPECT_EQ(startOf(*file), "2022-02-03 11:30:00");
    EXPECT_EQ(file->dataPoints(), 2);
    EXPECT_THAT(file->sTime()->dataArray(), ElementsAre(1.0, 2.0));
    EXPECT_EQ(file->sGpsalt()->time(1), 2.0);
    EXPECT_THAT(recordOf(*file),
                ElementsAre(999.0, -5.25, 45.5, 180.0, 10.0, 5.5, -80.5, 25.5, 10.0, 8.0, 46.0, 45.0, -999.0, 5560.25));
    EXPECT_THAT(launchOf(*file), ElementsAre(1000.0, -5.25, 45.5, 180.0, 10.0, -80.5, 25.5, 0.0, 5560.25));
    EXPECT_TRUE(read(pelo(), "/data/up.datd")->descending());
}

TEST(VestaFile, ReadsHeaderLaunchAndRecords) {
    const auto file = read(vesta());
    ASSERT_NE(file, nullptr);
    EXPECT_TRUE(file->isValid());
    EXPECT_EQ(file->getErrorMsg(), "");
    EXPECT_EQ(file->soundingType(), SoundingType::Ombra);
    EXPECT_TRUE(file->ascending());
    EXPECT_EQ(file->platformType(), "KIVU VESTA");
    EXPECT_EQ(file->description(), "up.dat R4520117 TESTEX, IOP2");
    EXPECT_THAT((std::vector<std::string>{file->project(), file->siteId(), file->flight(), file->sysOperator(),
                                          file->comments(), file->dataType(), file->launchObsSource(),
                                          file->launchObsTime(), file->sondeModel()}),
                ElementsAre("TESTEX", "IOP2", "IOP2", "Doe", "clear sky, cold", "Upsonde/1, 2", "OBSSYS", "", "RS92"));
    EXPECT_EQ(file->ptuWindTimeDiff(), 0.75);
    EXPECT_THAT(recordOf(*file), ElementsAre(testing::DoubleNear(999.15, 1e-9), -5.25, 45.5, 180.0, 10.0, 5.5, -80.5,
                                             25.5, 10.0, 8.0, 46.0, 45.0, -999.0, -999.0));
    EXPECT_EQ(file->sPres()->data(1), -999.0) << "a missing pressure isn't corrected";
    EXPECT_THAT(launchOf(*file), ElementsAre(1000.0, -5.25, 45.5, 180.0, 10.0, -80.5, 25.5, 0.0, -999.0));
}

TEST(VestaFile, OtherLinesOfTheHeader) {
    auto lines = vesta();
    lines[1] = upsondeComment("VESTA", "Operator Name:", "Roe");
    lines[2] = upsondeComment("VESTA", "Operator Comments:", "rain, wind");
    const auto file = read(lines);
    EXPECT_EQ(file->sysOperator(), "Roe");
    EXPECT_EQ(file->comments(), "rain, wind");
    EXPECT_DOUBLE_EQ(file->sPres()->data(0), 999.4) << "without a line that says more";
    for (const char* label : {"Pre-launch Obs (lon,lat,alt):", "Launch Obs (lon,lat,alt):"}) {
        lines[9] = upsondeComment("VESTA", label, "12.5 deg, 99.0 deg, 300.5 m");
        const auto told = read(lines);
        EXPECT_EQ(told->launchLon(), 12.5);
        EXPECT_EQ(told->launchLat(), -999.0);
        EXPECT_EQ(told->launchAlt(), 300.5);
    }
}

// Equality with the mark is what counts, and 99 m/s is no mark of a vertical speed.
TEST(UpsondeKeyed, MarksOfMissingValues) {
    const double marks[] = {9999, 99, 999, 999, 999, 999, 999, 99, 99999, 99, 999, 999};
    for (int column = 0; column < 12; ++column) {
        for (const double off : {-0.5, 0.0, 0.5}) {
            auto lines = pelo();
            const double value = marks[column] + off;
            lines[8] = withWord(lines[8], 6 + column, std::to_string(value));
            EXPECT_EQ(recordOf(*read(lines))[static_cast<std::size_t>(column)], off == 0.0 ? -999.0 : value) << column;
        }
    }
    auto lines = pelo();
    lines[8] = withWord(withWord(lines[8], 11, "99.0"), 20, "99999.00");
    const auto file = read(lines);
    EXPECT_EQ(file->sDz()->data(0), 99.0);
    EXPECT_EQ(file->sGpsalt()->data(0), -999.0);
}

TEST(UpsondeKeyed, DataAheadOfTheLaunchAreToldOnce) {
    auto lines = pelo();
    std::rotate(lines.begin() + 5, lines.begin() + 8, lines.end()); // both records ahead of the launch line
    const auto pelo = read(lines);
    EXPECT_TRUE(pelo->isValid());
    EXPECT_EQ(pelo->getErrorMsg(), kAheadOfLaunch);
    EXPECT_THAT(pelo->sTime()->dataArray(), ElementsAre(1.0, 2.0));

    auto vestaLines = vesta();
    std::swap(vestaLines[7], vestaLines[10]);
    const auto vesta = read(vestaLines);
    EXPECT_FALSE(vesta->isValid());
    EXPECT_EQ(vesta->getErrorMsg(), kAheadOfLaunch);
    EXPECT_EQ(vesta->dataPoints(), 2);
}

TEST(UpsondeKeyed, WithoutALaunchLine) {
    auto lines = pelo();
    lines.erase(lines.begin() + 5, lines.begin() + 7); // nor a launch observation
    const auto pelo = read(lines);
    EXPECT_FALSE(pelo->isValid());
    EXPECT_EQ(pelo->getErrorMsg(), kAheadOfLaunch + kNoLaunch);
    EXPECT_EQ(pelo->sondeId(), "R4520117");
    EXPECT_EQ(pelo->launchPres(), 999.0);
    EXPECT_EQ(pelo->sec(), 1);
    EXPECT_THAT(pelo->sTime()->dataArray(), ElementsAre(0.0, 1.0));

    auto vestaLines = vesta();
    vestaLines.erase(vestaLines.begin() + 7);
    const auto vesta = read(vestaLines);
    EXPECT_FALSE(vesta->isValid());
    EXPECT_EQ(vesta->getErrorMsg(), kAheadOfLaunch + kNoLaunch);
    EXPECT_EQ(vesta->sondeId(), "");
}

TEST(UpsondeKeyed, LaunchDates) {
    struct {
        const char* date;
        const char* time;
        bool good;
        int year;
        int sec;
    } const cases[] = {
        {"220203", "113000.0", true, 2022, 0},  {"891231", "595959.9", true, 2089, 59},
        {"900101", "000000.0", true, 1990, 0},  {"220203", "113060.0", false, 2022, 60},
        {"220203", "116000.0", false, 2022, 0}, {"220203", "600000.0", false, 2022, 0},
        {"220232", "113000.0", false, 2022, 0}, {"221303", "113000.0", false, 2022, 0},
        {"000000", "000000.0", false, 2000, 0}, {"22020x", "113000.0", false, 2022, 0},
        {"220203", "later", false, 2022, 0},
    };
    for (const auto& c : cases) {
        auto lines = pelo();
        lines[5] = "PELO-T01 LAU  R4520117 " + std::string(c.date) + " " + c.time + "  ";
        const auto file = read(lines);
        EXPECT_EQ(file->isValid(), c.good) << c.date << " " << c.time;
        // The records are of 2022.
        const char* const told =
            c.year > 2022 ? "- 2 records from more than 1 s ahead of the launch are left out.\n" : "";
        EXPECT_EQ(file->getErrorMsg(), c.good ? told : kBadLaunch) << c.date << " " << c.time;
        EXPECT_EQ(file->year(), c.year);
        EXPECT_EQ(file->sec(), c.sec);
    }
}

// Tenths of a second count, hundredths don't.
TEST(UpsondeKeyed, RecordsThatArentWhole) {
    auto lines = pelo();
    lines[8] = withWord(lines[8], 5, "113001.29");
    lines.push_back(withWord(lines[9], 5, "1130xx"));
    lines.push_back(withWord(lines[9], 4, "today"));
    lines.push_back(lines[9].substr(0, 46));
    lines.push_back(lines[9].substr(0, 35)); // too short to be a record
    const auto file = read(lines);
    EXPECT_TRUE(file->isValid());
    EXPECT_EQ(file->getErrorMsg(),
              "- Error in the date or time value in line 11\n- Values are missing at the end of line 13\n");
    EXPECT_EQ(file->dataPoints(), 3);
    EXPECT_NEAR(file->sTime()->data(0), 1.2, 1e-6);
    EXPECT_EQ(file->sPres()->data(2), 998.0);
    EXPECT_EQ(file->sTdry()->data(2), -999.0);
    EXPECT_EQ(file->sGpsalt()->data(2), -999.0);
}

TEST(UpsondeKeyed, AFileMayEndAfterAnyLine) {
    for (const auto& [lines, launch] : {std::pair(pelo(), 5U), std::pair(vesta(), 7U)}) {
        const std::size_t firstRecord = lines.size() - 2;
        for (std::size_t count = 1; count < lines.size(); ++count) {
            const auto file = read({lines.begin(), lines.begin() + static_cast<std::ptrdiff_t>(count)});
            ASSERT_NE(file, nullptr);
            EXPECT_EQ(file->isValid(), count > firstRecord) << count;
            EXPECT_EQ(file->getErrorMsg(), (count > launch ? "" : kNoLaunch) + (count > firstRecord ? "" : kNoData));
        }
    }
}
