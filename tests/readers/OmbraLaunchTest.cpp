#include "OmbraText.h"
#include "ReadText.h"

#include <gmock/gmock.h>

using testing::HasSubstr;

namespace {

std::string timeComment(const std::string& value) {
    return comment("Launch Time (y,m,d,h,m,s):", value);
}

const std::string kEarlyData =
    "- This file does not include any sonde data prior to launch. This suggests the file has "
    "been manually edited and, if the time gap between launch and data is large enough, may "
    "invalidate sensor equilibration times.\n";

} // namespace

TEST(OmbraLaunch, AllFramesAheadOfTheLaunchLeaveTheLast) {
    const auto file = readText(version16() + launchLine(100.0) + frameText({}) + frameText({0.5}));
    EXPECT_TRUE(file->isValid());
    EXPECT_EQ(file->dataPoints(), 1);
    EXPECT_EQ(file->sTime()->data(0), -99.5);
}

TEST(OmbraLaunch, WarnsWhenNoFrameIsAheadOfTheLaunch) {
    for (const double first : {0.0, 1.0}) {
        const auto file = readText(version16() + launchLine(0.0) + drop(first, 9.5));
        EXPECT_TRUE(file->isValid());
        EXPECT_EQ(file->getErrorMsg(), kEarlyData);
        EXPECT_EQ(file->getSummaryInfo().back(), "This file does not include any sonde data prior to launch.");
    }
    EXPECT_EQ(readText(version16() + launchLine(0.0) + drop(-0.5, 9.5))->getErrorMsg(), "");
}

TEST(OmbraLaunch, WhereTheTimeComesFrom) {
    const std::string frames = drop(-5.0, 9.5);
    const std::string diagnosed = "2021-08-01 12:00:01";
    const std::pair<std::string, std::string> cases[] = {
        {launchLine(3.0), "2021-08-01 12:00:03"},
        {timeComment("2021-08-01, 12:00:03"), "2021-08-01 12:00:03"},
        {timeComment("2021/08/01, 12:00:02.5"), "2021-08-01 12:00:02"},
        {launchLine(3.0) + timeComment("2021-08-01, 12:00:00"), "2021-08-01 12:00:03"},
        {timeComment("2021-08-01, 12:00:00") + launchLine(3.0), "2021-08-01 12:00:03"},
        {"OMBRA-T01 LAU 204715063 000000 000000.00\n" + timeComment("2021-08-01, 12:00:03"), "2021-08-01 12:00:03"},
        {"OMBRA-T01 LAU 204715063 000000 000000.00\n", diagnosed},
        {timeComment("2021-08-01, 00:00:00"), diagnosed},
        {timeComment("0000-00-00, 12:00:00"), diagnosed},
        {timeComment("2021-08-01"), diagnosed},
        {timeComment(", "), diagnosed},
        {timeComment("2, 1"), diagnosed},
        {"", diagnosed},
    };
    for (const auto& [lines, start] : cases) {
        const auto file = readText(version16() + lines + frames);
        EXPECT_TRUE(file->isValid()) << lines;
        EXPECT_EQ(startOf(*file), start) << lines;
        EXPECT_EQ(file->getErrorMsg().find("No launch (LAU) line") != std::string::npos, start == diagnosed) << lines;
    }
}

TEST(OmbraLaunch, ALaunchTimeHasToBeOne) {
    const std::string invalid = "- Launch date or time is invalid.\n";
    const std::pair<const char*, bool> cases[] = {
        {"210801 120003.00", true},  {"211301 120003.00", false},       {"210832 120003.00", false},
        {"210801 126003.00", false}, {"210801 120060.00", false},       {"210801 ------.--", false},
        {"21-8-1 120003.00", false}, {"210801                ", false}, {"210801 000000.00", true},
    };
    for (const auto& [text, isTime] : cases) {
        const auto file = readText(version16() + "OMBRA-T01 LAU 204715063 " + text + "\n" + frameText({}));
        EXPECT_EQ(file->isValid(), isTime) << text;
        EXPECT_EQ(file->getErrorMsg().find(invalid) == std::string::npos, isTime) << text;
    }
    // what the pressure shows is a time, whatever the line says
    const auto file = readText(version16() + "OMBRA-T01 LAU 204715063 211301 120003.00\n" + drop(-5.0, 9.5));
    EXPECT_TRUE(file->isValid());
    EXPECT_THAT(file->getErrorMsg(), HasSubstr("a late launch detect signal"));
}

TEST(OmbraLaunch, WithoutFramesThereIsNoData) {
    const auto file = readText(version16() + launchLine(3.0));
    EXPECT_FALSE(file->isValid());
    EXPECT_EQ(file->getErrorMsg(), "- No sounding data found in file.\n");
    EXPECT_EQ(startOf(*file), "2021-08-01 12:00:03");
}
