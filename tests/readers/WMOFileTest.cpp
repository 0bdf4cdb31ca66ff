#include "ReadText.h"

#include "UnLevels.h"

#include <gtest/gtest.h>

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
    EXPECT_EQ(file->WMOtrackingType() + file->WMOradCorrection() + file->WMOequipType() + file->WMOsondeType(),
              "080890");
    EXPECT_EQ(file->year(), 1970);
    EXPECT_EQ(file->month(), 1);
    EXPECT_EQ(file->day(), 25);
    EXPECT_EQ(file->hour(), 19);
    EXPECT_EQ(file->min(), 45);
    EXPECT_EQ(file->sec(), 0);
    EXPECT_TRUE(file->sPres()->empty());
    EXPECT_EQ(file->dataPoints(), 0);
    ASSERT_NE(file->unLevels(), nullptr);
    EXPECT_EQ(file->unLevels()->allLevels().size(), 1U);
}

// A message that doesn't tell the launch time has the hour of its date group, one without a position has none.
TEST(WMOFile, MakesDoWithTheHour) {
    const auto file = readText("TTBB 51128 72469 00013 12250");
    EXPECT_TRUE(file->isValid());
    EXPECT_TRUE(file->ascending());
    EXPECT_EQ(file->hour(), 12);
    EXPECT_EQ(file->min(), 0);
    EXPECT_EQ(file->launchLat(), -999.0);
    EXPECT_EQ(file->launchLon(), -999.0);
}

TEST(WMOFile, SaysWhyItIsNoMessage) {
    const auto file = readText("ttaa 51128");
    EXPECT_FALSE(file->isValid());
    EXPECT_EQ(file->getErrorMsg(),
              "Message type identifier (TT, UU, XX or II) was not found. Error detected at ttaa 51128 ...");
    EXPECT_EQ(file->unLevels(), nullptr);
}
