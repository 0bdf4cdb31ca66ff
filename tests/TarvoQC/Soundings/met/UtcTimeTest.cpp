#include "UtcTime.h"

#include <gtest/gtest.h>

// Seconds as `date -u -d ... +%s` gives them.
TEST(UtcTime, countsFrom1970) {
    const struct {
        int year, month, day, hour, min, sec;
        std::int64_t seconds;
        const char* text;
    } cases[] = {
        {1970, 1, 1, 0, 0, 0, 0, "1970-01-01 00:00:00"},
        {2021, 8, 1, 12, 0, 3, 1627819203, "2021-08-01 12:00:03"},
        {2000, 2, 29, 23, 59, 59, 951868799, "2000-02-29 23:59:59"},
        {2100, 3, 1, 0, 0, 0, 4107542400, "2100-03-01 00:00:00"},
        {1969, 12, 31, 23, 59, 59, -1, "1969-12-31 23:59:59"},
        {2020, 13, 1, 0, 0, 0, 1609459200, "2021-01-01 00:00:00"},
        {2021, 1, 0, 24, 0, 0, 1609459200, "2021-01-01 00:00:00"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(utcSeconds(c.year, c.month, c.day, c.hour, c.min, c.sec), c.seconds) << c.text;
        EXPECT_EQ(utcText(c.seconds, "%Y-%m-%d %H:%M:%S"), c.text);
    }
    constexpr int kLeast = -2147483647 - 1;
    EXPECT_LT(utcSeconds(kLeast, kLeast, kLeast, kLeast, kLeast, kLeast), 0) << "no field is too far out";
    EXPECT_EQ(utcText(INT64_MAX, "%Y"), "");
}
