#include "MessageText.h"

#include <gtest/gtest.h>

TEST(UnLevelsIdentification, Headers) {
    const std::string part = "TTBB 51128 72469 00013 12250";
    const std::pair<const char*, const char*> cases[] = {
        {"", ""},
        {"UZNT13 KNHC 251930", "UZNT13 KNHC 251930"},
        {"UZNT13 KNHC 251930 COR 03", "UZNT13 KNHC 251930 COR 03"},
        {"UZNT13 KNHC 251930 CCA", "UZNT13 KNHC 251930 CCA"},
        {"UZNT13 KNHC 251930 COR", "UZNT13 KNHC 251930 COR"},
        {"COR", " COR"},
        {"COR 03 RRC", " COR 03 RRC"},
        {"UZNT13 251930", "UZNT13 251930"},
        {"MY OWN WORDS KNHC 251930", "MY OWN WORDS KNHC 251930"},
    };
    for (const auto& [header, expected] : cases) {
        const UnLevels read(header + std::string(" ") + part);
        EXPECT_EQ(read.abrHeader(), expected) << header;
        EXPECT_EQ(read.bsn(), "72469") << header;
    }
    // Without a time it is no header, and too long a text is none either.
    EXPECT_NE(errorOf("MY OWN WORDS " + part), "read");
    EXPECT_NE(errorOf("A B C D E F 251930 " + part), "read");
}

TEST(UnLevelsIdentification, CallSigns) {
    const std::pair<const char*, const char*> cases[] = {
        {"UUBB", ""}, {"UUBB RON BROWN", "RON BROWN"}, {"UUBB 99XY", "99XY"}};
    for (const auto& [text, callSign] : cases) {
        const UnLevels read(std::string(text) + " 51128 99254 70804 08145 00013 12250");
        EXPECT_EQ(read.callSign(), callSign);
        EXPECT_EQ(read.dayOfMonth(), 1) << text;
        EXPECT_EQ(read.wmoType(), "TEMP SHIP");
    }
}

TEST(UnLevelsIdentification, PositionsAndElevations) {
    struct Case {
        const char* groups;
        double lat, lon, elevation;
    };
    const Case cases[] = {
        {"99254 10804 08145 01231", 25.4, 80.4, 123},      {"99254 30804 08145 01234", -25.4, 80.4, 123},
        {"99254 51804 08145 10005", -25.4, -180.4, 304.8}, {"99254 70804 08145 -0121", 25.4, -80.4, -12},
        {"99/// ///// ///// ////4", -999, -999, -999},     {"99254 /0804 08145 01X31", 25.4, 80.4, -999},
        {"992X4 70804 ///// 0123", -999, -80.4, 123},
    };
    for (const auto& c : cases) {
        const UnLevels read("IIBB ABCD 51128 " + std::string(c.groups) + " 00013 12250");
        EXPECT_NEAR(read.latitude(), c.lat, 1e-9) << c.groups;
        EXPECT_NEAR(read.longitude(), c.lon, 1e-9) << c.groups;
        EXPECT_NEAR(read.elevation(), c.elevation, 1e-9) << c.groups;
        EXPECT_EQ(read.wmoType(), "TEMP MOBIL");
        EXPECT_EQ(column(read, UnLevels::SIGNIFICANT, UnLevels::PRES), std::vector<double>{1013}) << c.groups;
    }
}

// A station without a number leaves its group out; one with a number that looks like a level has it read.
TEST(UnLevelsIdentification, StationNumbers) {
    const std::string a = "99013 12250 27035 88999 77999 31313 00000 81200= ";
    const std::string b = "00013 00250 11900 101// 21212 00013 27035= ";
    const std::string c = "70844 719// 88999 77999= ";
    const std::string d = "11885 737//= ";
    const std::pair<std::string, const char*> cases[] = {
        {"TTAA 5112/ 99123 " + a, "99123"},
        {"TTAA 5112/ " + a + "TTBB 51128 " + b + "TTCC 5112/ " + c + "TTDD 5112/ " + d, ""},
        {"TTBB 51128 " + b + "TTCC 5112/ " + c + "TTDD 5112/ " + d, ""},
        {"TTCC 5112/ 70026 " + c + "TTBB 51128 70026 " + b, "70026"},
        {"TTBB 51128 21212 " + b, "21212"},
        {"TTBB 51128 31313 00000 81200", ""},
    };
    for (const auto& [text, bsn] : cases) {
        ASSERT_EQ(errorOf(text), "read") << text;
        const UnLevels read(text);
        EXPECT_EQ(read.bsn(), bsn) << text;
        const bool hasB = text.find("TTBB") != std::string::npos && text.find("00013") != std::string::npos;
        const bool hasD = text.find("TTDD") != std::string::npos;
        EXPECT_EQ(read.levels({UnLevels::SIGNIFICANT}).size(), (hasB ? 3U : 0U) + (hasD ? 1U : 0U)) << text;
    }
}

// Each part once is one sounding, whichever parts there are and in whatever order.
TEST(UnLevelsIdentification, ASecondSoundingIsLeftUnread) {
    const std::string a = "TTAA 5112/ 72469 99013 12250 27035 88999 77999 31313 00000 81200=\n";
    const std::string b = "TTBB 51128 72469 00013 12250= ";
    const std::string otherA = "TTAA 5212/ 02963 99000 15130 36020 88999 77999 31313 00000 81130= ";
    const std::string otherB = "TTBB 52128 02963 00000 15130 11700 31130= ";
    struct Case {
        std::string text;
        const char* unread;
        std::vector<double> surface, significant;
    };
    const Case cases[] = {
        {b + a, "", {1013}, {1013}},
        {a + b + otherA + otherB, "TTAA", {1013}, {1013}},
        {a + "NNNN\nUSUS01 KWBC 021130\n" + otherA + otherB, "TTAA", {1013}, {}},
        {a + b + b, "TTBB", {1013}, {1013}},
    };
    for (const Case& test : cases) {
        const UnLevels read(test.text);
        EXPECT_EQ(read.unreadPart(), test.unread) << test.text;
        EXPECT_EQ(read.bsn(), "72469") << test.text;
        EXPECT_EQ(read.dayOfMonth(), 1) << test.text;
        EXPECT_EQ(column(read, UnLevels::SURFACE, UnLevels::PRES), test.surface) << test.text;
        EXPECT_EQ(column(read, UnLevels::SIGNIFICANT, UnLevels::PRES), test.significant) << test.text;
    }
}

TEST(UnLevelsIdentification, PartsOfOneSoundingAgree) {
    const std::string ship = "UUBB ABCD 51128 99254 70804 08145 00013 12250 ";
    const std::pair<std::string, const char*> cases[] = {
        {"TTBB 51128 72469 00013 12250 TTDD 5112/ 02963 11885 737//", "02963 11885 737// ..."},
        {ship + "UUDD EFGH 5112/ 99254 70804 08145 11885 737//", "EFGH 5112/ 99254 70804 08145 11885 ..."},
        {ship + "UUDD ABCD 5112/ 99274 70804 08145 11885 737//", "70804 08145 11885 737// ..."},
        {ship + "UUDD ABCD 5112/ 99254 10804 08145 11885 737//", "10804 08145 11885 737// ..."},
    };
    for (const auto& [text, where] : cases) {
        EXPECT_EQ(errorOf(text), std::string("Two different soundings have been found in this message. Error detected "
                                             "at ") +
                                     where);
    }
    // What a part doesn't tell is no other sounding, and a ship goes on.
    for (const char* rest :
         {"UUDD 5112/ 99/// ///// ///// 11885 737//", "UUDD ABCD 5112/ 99254 7//// 08145 11885 737//",
          "UUDD ABCD 5112/ 99258 70799 08145 11885 737//"}) {
        const UnLevels read(ship + rest);
        EXPECT_EQ(read.callSign(), "ABCD");
        EXPECT_DOUBLE_EQ(read.latitude(), 25.4);
        EXPECT_DOUBLE_EQ(read.longitude(), -80.4);
        EXPECT_EQ(read.levels({UnLevels::SIGNIFICANT}).size(), 2U);
    }
}
