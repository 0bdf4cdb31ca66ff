#include "ReadText.h"
#include "Text.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <tuple>

namespace {

std::string nameOfReader(const std::string& text) {
    const auto file = readText(text);
    if (!file) {
        return "none";
    }
    if (file->platformType() == "KIVU VESTA") {
        return "Vesta"; // of the type of Ombra
    }
    const std::string name = SoundingTypeName(file->soundingType());
    return name == "Unknown" ? "Csv" : name;
}

} // namespace

// A wind group of a message wins over everything; a format whose files nobody reads yet hides the later ones.
TEST(SoundingFileFactory, TellsTheFormatFromTheFirstTwoLines) {
    const std::pair<const char*, const char*> cases[] = {
        {"FileFormat,CSV", "Csv"},
        {"FileFormat,CSV\nYear,2021\nmetadata", "Csv"},
        {"fileFORMAT,csv\nOMBRA-T01", "Csv"},
        {"Project\nFileFormat, CSV", "Csv"},
        {"File\nFormat,CSV", "none"},
        {"FileFormat\nCSV", "Csv"},
        {"FileFormat,CSV\nComments,ttaa", "Wmo"},
        {"FileFormat,CSV\nYear,2021\nTTAA", "Csv"},
        {"UZNT13 KNHC 251930\nXXAA  75198 99254", "Wmo"},
        {"xxOMBRA-T01 COM", "Ombra"},
        {"acs-t01", "Ombra"},
        {"data TYPE/direction:\nZor", "Zor"},
        {"Data Type: TROVE", "Trove"},
        {"Data Type/Direction: zor trove", "Zor"},
        {"Data Type: x\nProject ID: y", "Trove"},
        {"Data Type: x\nProject ID: metadata", "Mw41"},
        {"Data Type: MIRRA\nProject ID: y\n3\n4\n5\n6\n/\n", "Trove"},
        {"Data Type: MIRRA\r\nProject ID: y\r\n3\r\n4\r\n5\r\n6\r\n/\r\n", "Trove"},
        {"Data Type: MIRRA\nProject ID: y\n3\n4\n5\n6\nMet\n", "Mirra"},
        {"Data Type/Direction: Vesta/Ascending\nFile Format/Version: ZOR Sounding Format/1.1", "Zor"},
        {"Data Type: x\nDropWindSonde Project ID:", "Frd"},
        {"===\nDROPWINDSONDE", "Frd"},
        {"FLEDT\tMetadata", "Mw41"},
        {"OMBRA-D01\nACS-D01", "none"},
        {"Data Type: MIRRA OMBRA-T01", "Mirra"},
        {"x\nvesta PELO-T01", "Vesta"},
        {"pelo-t dropwindsonde", "Pelo"},
        {"PELO-D01", "none"},
        {"VESTA-T01 ombra-t", "Ombra"},
        {"\n\nFileFormat,CSV", "none"},
        {"\nFileFormat,CSV", "Csv"},
        {"whatever", "none"},
        {"", "none"},
        {"\n", "none"},
    };
    for (const auto& [text, reader] : cases) {
        EXPECT_EQ(nameOfReader(text), reader) << text;
    }
    Registry registry;
    ConfigSet config(&registry);
    EXPECT_EQ(SoundingFileFactory::newSoundingFile(config, "x", nullptr), nullptr);
}

TEST(SoundingFileFactory, TellsWhichLineEndedTheReading) {
    const std::string head = "FileFormat,CSV\nYear,2021\nMonth,08\nDay,1\nHour,12\nMinute,00\nSecond,03\n"
                             "Fields,Time,Pressure\n\nData,0.5,1000\n";
    const std::string longest = "Comments," + std::string(489, 'x'); // 498 characters
    for (const std::string behind : {"", "\nData,1.0,999\n"}) {
        EXPECT_EQ(readText(head + longest + behind)->getErrorMsg(), "");
        const auto file = readText(head + longest + "x" + behind);
        EXPECT_TRUE(file->isValid());
        EXPECT_EQ(file->dataPoints(), 1);
        EXPECT_EQ(file->getErrorMsg(), "- Line 11 is longer than 498 characters; the rest of the file was not read.\n");
    }
    EXPECT_EQ(readText(std::string(600, 'x')), nullptr);
}

TEST(SoundingFileFactory, TellsWhatTheAnalysisMakesOfTheTimes) {
    const std::string notice = "- The times of the records go backward. The records are put in order of time.\n";
    const std::pair<const char*, std::string> cases[] = {
        {"-1 -0.5 0 1", ""},
        {"0 1 0.5 2", notice},
        {"1 0", notice},
        {"-5 0 1", ""},
        {"-6 -1.1 0 1", "- 2 records from more than 1 s ahead of the launch are left out.\n"},
        {"1 0 -6 -7", "- 2 records from more than 1 s ahead of the launch are left out.\n" + notice},
    };
    for (const auto& [times, told] : cases) {
        std::string text = "FileFormat,CSV\nYear,2021\nMonth,08\nDay,1\nHour,12\nMinute,00\nSecond,03\nFields,Time\n";
        for (const std::string& time : tokenize(times, " ")) {
            text += "Data," + time + "\n";
        }
        EXPECT_EQ(readText(text)->getErrorMsg(), told) << times;
    }
}

TEST(SoundingFile, DescribesItselfByTheFileName) {
    const std::string text = "FileFormat,CSV\nSoundingDescription,\"Rain\"";
    const std::pair<const char*, const char*> cases[] = {
        {"/a/b/c.csv", "c.csv Rain"},    {"c.csv", "c.csv Rain"}, {"C:\\a/b\\c.csv", "c.csv Rain"},
        {"/a\\b/c.csv", "b/c.csv Rain"}, {"/a/", " Rain"},        {"", " Rain"},
    };
    for (const auto& [name, description] : cases) {
        EXPECT_EQ(readText(text, "", name)->description(), description);
    }
}

TEST(SoundingFile, TheTimeOfTheLaunchObservationIsOnTheDayOfTheLaunch) {
    const std::pair<const char*, std::int64_t> cases[] = {
        {"12:00:03", 1627819203},
        {"12:00:03:50", 1627819203},
        {" 12 : 00 : 03 ", 1627819203},
        {"12:00", -999},
        {"unknown", -999},
        {"1:2:3:4:5", -999},
        {"0:0:99999999999", -999},
        {"24:00:00", -999},
        {"23:60:00", -999},
        {"23:00:60", -999},
        {"-1:00:00", -999},
        {"2021-08-01T12:00:03", 1627819203},
        {"01/08/2021 12:00:03", 1627819203},
        {"20210801:12:00:03", -999},
    };
    for (const auto& [text, seconds] : cases) {
        const auto file = readText("FileFormat,CSV\nYear,2021\nMonth,8\nDay,1\nLaunchObsTime," + std::string(text));
        EXPECT_EQ(file->unixLaunchObsTime(), seconds) << text;
        EXPECT_EQ(file->unixLaunchObsTime(), seconds) << text << ", asked again";
    }
}

TEST(SoundingFile, TheLaunchObservationIsWithinHalfADayOfTheLaunch) {
    constexpr std::int64_t kMidnight = 1627776000; // 2021-08-01 00:00:00
    const std::tuple<const char*, const char*, std::int64_t> cases[] = {
        {"0,0,3", "23:59:50", kMidnight - 10},       {"0,0,3", "12:00:03", kMidnight + 43203},
        {"0,0,3", "12:00:04", kMidnight - 43196},    {"23,59,50", "00:00:03", kMidnight + 86403},
        {"23,59,50", "11:59:50", kMidnight + 43190}, {"23,59,50", "11:59:49", kMidnight + 129589},
        {"12,0,0", "00:00:00", kMidnight},
    };
    for (const auto& [launch, observation, seconds] : cases) {
        const std::vector<std::string> clock = tokenize(launch, ",");
        const auto file = readText("FileFormat,CSV\nYear,2021\nMonth,8\nDay,1\nHour," + clock[0] + "\nMinute," +
                                   clock[1] + "\nSecond," + clock[2] + "\nLaunchObsTime," + observation);
        EXPECT_EQ(file->unixLaunchObsTime(), seconds) << launch << " " << observation;
    }
}

// What the maker of the examples knows of each file.
TEST(SoundingFileFactory, ReadsTheExamplesAsTheirTruthTells) {
    const std::filesystem::path examples = TARVO_SOURCE_DIR "/examples";
    int read = 0;
    for (const auto& entry : std::filesystem::directory_iterator(examples / "truth")) {
        const auto truth = nlohmann::json::parse(std::ifstream(entry.path()));
        const auto& facts = truth["reader"];
        SCOPED_TRACE(truth["file"]);
        std::ifstream stream(examples / "data" / truth["file"].get<std::string>());
        const auto file = readText({std::istreambuf_iterator<char>(stream), {}});
        ASSERT_NE(file, nullptr);
        EXPECT_TRUE(file->isValid()) << file->getErrorMsg();
        EXPECT_EQ(file->descending(), truth["direction"] == "down");
        EXPECT_EQ(static_cast<int>(file->soundingType()), facts["sounding_type"]);
        EXPECT_EQ(file->dataPoints(), facts["records"]);
        const std::string start =
            facts["launch_date"].get<std::string>() + " " + facts["launch_time"].get<std::string>();
        EXPECT_EQ(startOf(*file), start.substr(0, 19));
        EXPECT_EQ(file->getErrorMsg().empty(), facts["warning"].is_null()) << file->getErrorMsg();
        const std::vector<double> launch = launchOf(*file);
        const char* const names[] = {"pressure",  "temperature", "rh",       "direction",   "speed",
                                     "longitude", "latitude",    "altitude", "gps_altitude"};
        for (std::size_t i = 0; i < launch.size(); ++i) {
            if (launch[i] != -999.0) { // FRD has whole degrees and metres
                EXPECT_NEAR(launch[i], truth["launch_values"][names[i]], i == 3 || i >= 7 ? 0.501 : 0.051) << names[i];
            }
        }
        if (facts.contains("wind_rate")) { // a D file
            EXPECT_EQ(file->getPtuErrNum(), facts["ptu_crc_errors"]);
            EXPECT_EQ(file->getGpsErrNum(), facts["gps_crc_errors"]);
            EXPECT_EQ(file->getPGErrNum(), facts["both_crc_errors"]);
            EXPECT_EQ(file->ombraWindRate(), facts["wind_rate"]);
            EXPECT_EQ(file->needsTDDryBiasCorr(), facts["needs_dry_bias_correction"]);
            EXPECT_EQ(file->rhHeatingOn(), facts["rh_heating_on"]);
        }
        EXPECT_EQ(file->numRhChan(), facts.value("rh_channels", file->numRhChan()));
        ++read;
    }
    EXPECT_GE(read, 26);
}
