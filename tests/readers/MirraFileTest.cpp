#include "ReadText.h"
#include "UpsondeText.h"

#include <gmock/gmock.h>

namespace {

using testing::ElementsAre;

std::vector<std::string> mirra() {
    return {"Data Type:                         MIRRA upsonde",
            "Project Name/Mission ID:           TESTEX, IOP2",
            "Launch Site Type/Site ID:          Fixed, Site A",
            "Launch Location (lon,lat,alt):     -105.2, 40.0, 0.0",
            "GMT Launch Time (y,m,d,h,m,s):     2022, 02, 03, 11:30:05",
            "Sonde Type/ID/Sensor ID/Tx Freq:   Mirra MR-2 R4520117 1680, 7",
            "Met Processor/Smoothing:           none",
            "Winds Type/Processor/Smoothing:    GPS",
            "Pre-Launch Obs Data System/time:   OBSSYS 11:29",
            "System Operator/Comments:          Doe, clear sky",
            "/",
            "/",
            " Time  Press  Temp",
            "  sec    mb     C",
            "------ ------ -----",
            " -1.0 1021.00 -31.00 72.00 350.0 3.00 0.00 -105.2 40.0 12.5 0",
            " -0.5 1021.00 -31.00 72.00 350.0 3.00 0.00 -105.2 40.0 12.5 0",
            "  0.0 1020.00 -30.50 72.25 349.0 3.06 5.10 -105.1 40.1 20.5 10",
            "  1.0 9999.00 99.00 999.00 999.00 999.00 99.00 999.0 99.0 99999.0 99"};
}

std::unique_ptr<SoundingFile> read(const std::vector<std::string>& lines) {
    return readText(joined(lines), "upsonde-1s", "/data/up.mir");
}

} // namespace

TEST(MirraFile, ReadsHeaderLaunchAndRows) {
    const auto file = read(mirra());
    ASSERT_NE(file, nullptr);
    EXPECT_TRUE(file->isValid());
    EXPECT_EQ(file->getErrorMsg(), "");
    EXPECT_EQ(file->soundingType(), SoundingType::Mirra);
    EXPECT_TRUE(file->ascending());
    EXPECT_EQ(codesOf(*file), "08|0|8|90");
    EXPECT_EQ(file->description(), "up.mir TESTEX, IOP2  ");
    EXPECT_THAT((std::vector<std::string>{file->dataType(), file->project(), file->siteId(), file->platformType(),
                                          file->sondeId(), file->sondeModel(), file->launchObsSource(),
                                          file->sysOperator(), file->comments()}),
                ElementsAre("MIRRA upsonde", "TESTEX", "Site A", "KIVU MIRRA", "R4520117", "Mirra MR-2 R4520117 ",
                            "OBSSYS", "Doe", "clear sky"));
    EXPECT_EQ(startOf(*file), "2022-02-03 11:30:05");
    EXPECT_THAT(launchOf(*file), ElementsAre(1021.0, -31.0, 72.0, 350.0, 3.0, -105.2, 40.0, 12.5, -999.0));
    EXPECT_EQ(file->dataPoints(), 2) << "a row at -0.5 s is none";
    EXPECT_THAT(file->sTime()->dataArray(), ElementsAre(0.0, 1.0));
    EXPECT_THAT(recordOf(*file, 0),
                ElementsAre(1020, -30.5, 72.25, 349, 3.06, 5.1, -105.1, 40.1, 20.5, 10, 72.25, 72.25, -999, -999));
    EXPECT_THAT(recordOf(*file, 1), ElementsAre(9999, 99, 999, 999, 999, 99, 999, 99, 99999, 99, 999, 999, -999, -999))
        << "there are no marks";
}

TEST(MirraFile, EachLineOfTheHeaderIsRequired) {
    const auto good = mirra();
    for (std::size_t line = 0; line < 15; ++line) {
        auto lines = good;
        lines[line] = line == 0 ? "Data  Type: mirra" : line == 1 ? "Data Type: Mirra" : "?";
        const bool free = line == 10 || line == 11;
        const auto file = read(lines);
        if (line == 0) {
            EXPECT_EQ(file, nullptr) << "nothing says what it is";
            continue;
        }
        EXPECT_EQ(file->isValid(), free) << line;
        EXPECT_EQ(file->getErrorMsg().find("- Header line " + std::to_string(line + 1) + " does not contain \"") == 0,
                  !free);
    }
    for (std::size_t count = 1; count < good.size(); ++count) {
        const auto file = read({good.begin(), good.begin() + static_cast<std::ptrdiff_t>(count)});
        EXPECT_EQ(file->isValid(), count > 17) << count;
        EXPECT_EQ(file->getErrorMsg(), count < 15    ? "- The file ends inside its header.\n"
                                       : count == 15 ? "- No launch observation with a pressure found in file.\n"
                                                       "- No sounding data found in file.\n"
                                       : count < 18  ? "- No sounding data found in file.\n"
                                                     : "");
    }
}

TEST(MirraFile, VariantsOfTheHeader) {
    struct {
        std::size_t line;
        const char* text;
        bool good;
    } const cases[] = {
        {15, "-1.0 -998.9 1", true},
        {15, "-1.0 -999.0 1", false},
        {15, "-1.0 -999.1 1", false},
        {15, "-1.0", false},
        {4, "GMT Launch Time (y,m,d,h,m,s): 2022, 02, 03, 11:30", false},
        {4, "GMT Launch Time (y,m,d,h,m,s): 2022, 13, 03, 11:30:00", false},
        {4, "GMT Launch Time (y,m,d,h,m,s): 2022, 02, 32, 11:30:00", false},
        {4, "GMT", false},
        {5, "Sonde", true},
        {8, "Pre-Launch", true},
    };
    for (const auto& c : cases) {
        auto lines = mirra();
        lines[c.line] = c.text;
        EXPECT_EQ(read(lines)->isValid(), c.good) << c.text;
        EXPECT_EQ(read(lines)->getErrorMsg().empty(), c.good) << c.text;
    }
    auto lines = mirra();
    lines[1] = "Project Name/Mission Version: TESTEX, 2";
    lines[5] = "Sonde Type/ID/Sensor ID/Tx Freq: MR-2 1680";
    const auto file = read(lines);
    EXPECT_EQ(file->project(), "Version: TESTEX");
    EXPECT_EQ(file->sondeId(), "");
    EXPECT_EQ(file->sondeModel(), "MR-2 ");
}

TEST(MirraFile, RowsThatArentWhole) {
    auto lines = mirra();
    lines.insert(lines.end(), {"no reception", "2.0 1000.00 -20.0", "nor here", "+3.0"});
    const auto file = read(lines);
    EXPECT_TRUE(file->isValid());
    EXPECT_EQ(file->getErrorMsg(), "- There is no time in line 20\n- Values are missing at the end of line 21\n");
    EXPECT_THAT(file->sTime()->dataArray(), ElementsAre(0.0, 1.0, 2.0, 3.0));
    EXPECT_EQ(file->sTdry()->data(2), -20.0);
    EXPECT_EQ(file->sRh0()->data(2), -999.0);
    EXPECT_EQ(file->sPres()->data(3), -999.0);
}
