#include "ReadText.h"

#include "UnLevels.h"

#include <fstream>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

TEST(WMOFile, HoldsLevelsAndNoSamples) {
    const auto file = readText("UZNT13 KNHC 251930\r\nXXAA  7519/ 99254 70804 08145 99012 27632 12525 88999 77999\r\n"
                               "31313 09608 81945\r\n=");
    ASSERT_NE(file, nullptr);
    EXPECT_TRUE(file->isValid());
    EXPECT_EQ(file->getErrorMsg(), "");
    EXPECT_EQ(file->soundingType(), SoundingType::Wmo);
    EXPECT_EQ(file->dataType(), "WMO TEMP DROP");
    EXPECT_TRUE(file->descending());
    EXPECT_DOUBLE_EQ(file->launchLat(), 25.4);
    EXPECT_DOUBLE_EQ(file->launchLon(), -80.4);
    EXPECT_EQ(codesOf(*file), "08|0|8|90");
    EXPECT_EQ(startOf(*file), "1970-01-25 19:45:00");
    EXPECT_TRUE(file->sPres()->empty());
    EXPECT_EQ(file->dataPoints(), 0);
    ASSERT_NE(file->unLevels(), nullptr);
    EXPECT_EQ(file->unLevels()->allLevels().size(), 1U);
}

// The date group has the nearest hour and its day, the time group the minute of the launch.
TEST(WMOFile, ALateLaunchIsOfTheDayBefore) {
    struct Case {
        const char* date;
        const char* time;
        int day;
    };
    const Case cases[] = {{"6300/", "82345", 12}, {"6300/", "82330", 12}, {"6300/", "82329", 13},
                          {"6300/", "80015", 13}, {"6323/", "82345", 13}, {"5100/", "82345", 1}};
    for (const Case& test : cases) {
        const auto file = readText(std::string("TTAA ") + test.date +
                                   " 72469 99013 12250 27035 88999 77999 31313 00000 " + test.time);
        ASSERT_TRUE(file->isValid()) << file->getErrorMsg();
        EXPECT_EQ(file->day(), test.day) << test.date << ' ' << test.time;
    }
}

// The first doesn't tell its launch time and has the hour of its date group, nor a position.
TEST(WMOFile, SaysThatASecondSoundingIsNotRead) {
    const auto file = readText("TTBB 51128 72469 00013 12250=\nTTBB 52128 72469 00009 15130=\n");
    EXPECT_TRUE(file->isValid());
    EXPECT_EQ(file->getErrorMsg(), "- Another sounding begins with the second TTBB of this file. It and what follows "
                                   "were not read.\n");
    EXPECT_EQ(file->unLevels()->allLevels().size(), 1U);
    EXPECT_EQ(startOf(*file), "1970-01-01 12:00:00");
    EXPECT_EQ(file->launchLat(), -999.0);
}

TEST(WMOFile, SaysWhyItIsNoMessage) {
    const auto file = readText("ttaa 51128");
    EXPECT_FALSE(file->isValid());
    EXPECT_EQ(file->getErrorMsg(),
              "Message type identifier (TT, UU, XX or II) was not found. Error detected at ttaa 51128 ...");
    EXPECT_EQ(file->unLevels(), nullptr);
}

namespace {

/// The values of a level as the truth of an example has them: null where the message has none.
nlohmann::json valuesOf(const UnLevels::Level& level) {
    nlohmann::json values = nlohmann::json::array();
    for (const auto field :
         {UnLevels::PRES, UnLevels::HEIGHT, UnLevels::TDRY, UnLevels::DP, UnLevels::WDIR, UnLevels::WSPD}) {
        values.push_back(level.has(field) ? nlohmann::json(level.value(field)) : nlohmann::json());
    }
    return values;
}

} // namespace

class MessageExample : public testing::TestWithParam<const char*> {};

TEST_P(MessageExample, GivesTheLevelsThatItWasCodedFrom) {
    const std::string examples = TARVO_SOURCE_DIR "/examples/";
    const auto truth = nlohmann::json::parse(std::ifstream(examples + "truth/" + GetParam() + ".json"));
    std::ifstream stream(examples + "data/" + truth["file"].get<std::string>());
    const auto file = readText(std::string(std::istreambuf_iterator<char>(stream), {}));
    ASSERT_NE(file, nullptr);
    ASSERT_TRUE(file->isValid()) << file->getErrorMsg();
    EXPECT_EQ(file->ascending(), truth["direction"] == "up");
    ASSERT_NE(file->unLevels(), nullptr);

    for (const auto type :
         {UnLevels::SURFACE, UnLevels::MANDATORY, UnLevels::SIGNIFICANT, UnLevels::TROPOPAUSE, UnLevels::MAXWIND}) {
        const auto found = file->unLevels()->levels({type});
        std::size_t at = 0;
        for (const nlohmann::json& coded : truth["coded"]) {
            if (coded[0] != UnLevels::Level(type).name()) {
                continue;
            }
            ASSERT_LT(at, found.size()) << coded;
            const nlohmann::json values = valuesOf(found[at++]);
            for (std::size_t column = 0; column < values.size(); ++column) {
                ASSERT_EQ(values[column].is_null(), coded[column + 1].is_null()) << coded << " but " << values;
                if (!values[column].is_null()) {
                    EXPECT_NEAR(values[column].get<double>(), coded[column + 1].get<double>(), 1e-3) << coded;
                }
            }
        }
        EXPECT_EQ(at, found.size()) << "levels of type " << type;
    }
    const bool drop = truth["direction"] == "down";
    const auto releases = file->unLevels()->levels({UnLevels::RELEASEPOINT});
    ASSERT_EQ(releases.size(), drop ? 1U : 0U);
    if (drop) {
        EXPECT_NEAR(releases[0].value(UnLevels::LAT), truth["launch_values"]["latitude"].get<double>(), 0.00501);
        EXPECT_NEAR(file->launchLon(), truth["launch_values"]["longitude"].get<double>(), 0.0501);
    }
}

INSTANTIATE_TEST_SUITE_P(Examples, MessageExample,
                         testing::Values("temp_20220708", "tempdrop_20210805", "tempdrop_damaged_20230213"));
