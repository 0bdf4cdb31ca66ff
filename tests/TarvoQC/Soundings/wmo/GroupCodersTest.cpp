#include "GroupCoders.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <string>
#include <vector>

using namespace WMOgroup;

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

struct OneCase {
    double value;
    const char* group;
};

struct TwoCase {
    double first;
    double second;
    const char* group;
};

} // namespace

TEST(GroupCoders, Pressure) {
    const std::vector<OneCase> cases{{1013.2, "013"}, {1000.0, "000"}, {999.6, "000"},  {999.4, "999"},
                                     {850.0, "850"},  {100.4, "100"},  {100.0, "000"},  {99.96, "000"},
                                     {99.4, "994"},   {5.0, "050"},    {0.06, "001"},   {0.0, "///"},
                                     {-3.0, "///"},   {1100.0, "100"}, {1100.1, "///"}, {kNaN, "///"}};
    for (const OneCase& c : cases) {
        EXPECT_EQ(PPP(c.value), c.group) << c.value;
    }
    const std::vector<OneCase> indicators{{1000.0, "00"}, {925.0, "92"}, {850.0, "85"}, {500.0, "50"}, {100.0, "10"},
                                          {99.6, "10"},   {70.0, "70"},  {7.0, "07"},   {1.0, "01"}};
    for (const OneCase& c : indicators) {
        EXPECT_EQ(PP(c.value), c.group) << c.value;
    }
}

TEST(GroupCoders, Height) {
    const std::vector<TwoCase> cases{
        {111.2, 1000.0, "111"},  {-12.0, 1000.0, "512"}, {-0.4, 1000.0, "500"},  {-499.4, 1000.0, "999"},
        {-500.0, 1000.0, "///"}, {0.0, 1000.0, "000"},   {1234.0, 850.0, "234"}, {999.6, 925.0, "000"},
        {3171.0, 700.0, "171"},  {5574.0, 500.0, "557"}, {5576.0, 500.0, "558"}, {9996.0, 300.0, "000"},
        {16580.0, 100.0, "658"}, {31055.0, 10.0, "106"}, {kNaN, 500.0, "///"},
    };
    for (const TwoCase& c : cases) {
        EXPECT_EQ(hhh(c.first, c.second), c.group) << c.first << " at " << c.second;
    }
    EXPECT_EQ(hhh(1e300, 850.0).size(), 3u) << "a height out of this world comes to an end";
}

TEST(GroupCoders, TemperatureAndDepression) {
    const std::vector<OneCase> temperatures{{12.3, "122"},   {12.2, "122"},  {-12.3, "123"}, {-12.2, "123"},
                                            {-12.0, "121"},  {0.0, "000"},   {0.04, "000"},  {-0.04, "001"},
                                            {0.14, "000"},   {27.46, "274"}, {-60.4, "605"}, {-60.5, "605"},
                                            {-89.96, "901"}, {99.9, "998"},  {100.0, "///"}, {kNaN, "///"}};
    for (const OneCase& c : temperatures) {
        EXPECT_EQ(TTT(c.value), c.group) << c.value;
    }
    // The RH of each depression at 20 deg C from 100 * 10^(2353/T - 2353/Td), T and Td in K.
    const std::vector<OneCase> depressions{{100.0, "00"},   {73.03897, "49"}, {71.62258, "50"}, {69.77227, "56"},
                                           {49.9894, "61"}, {2.54011, "99"},  {2.36197, "99"},  {0.85979, "99"},
                                           {0.0, "99"},     {kNaN, "//"}};
    for (const OneCase& c : depressions) {
        EXPECT_EQ(DD(20.0, c.value), c.group) << c.value;
    }
}

TEST(GroupCoders, Wind) {
    struct WindCase {
        double speed; // m/s
        double dir;
        const char* group;
    };
    const std::vector<WindCase> cases{
        {10.0, 45.0, "04519"},   {10.0, 42.0, "04019"},  {10.0, 48.0, "05019"},  {0.0, 0.0, "36000"},
        {0.0, 90.0, "00000"},    {0.2, 357.0, "00000"},  {0.2, 358.0, "36000"},  {5.0, 0.0, "36010"},
        {5.0, 358.0, "36010"},   {60.0, 359.0, "00116"}, {5.0, 5.0, "00510"},    {5.0, 2.5, "36010"},
        {5.0, 7.5, "00510"},     {5.0, 7.6, "01010"},    {90.0, 180.0, "18175"}, {90.0, 185.0, "18675"},
        {51.54, 359.9, "00100"}, {51.2, 359.9, "36099"}, {900.0, 10.0, "01///"}, {300.0, 10.0, "01///"},
        {5.0, kNaN, "//010"},
    };
    for (const WindCase& c : cases) {
        EXPECT_EQ(dd(c.speed, c.dir) + fff(c.speed, c.dir), c.group) << c.speed << " m/s from " << c.dir;
    }
    EXPECT_EQ(nn(0) + nn(7) + nn(13), "007733");
}

TEST(GroupCoders, Place) {
    struct PlaceCase {
        double lat;
        double lon;
        const char* quadrant;
        const char* marsden;
    };
    // Squares from the chart of Marsden squares: 1 is 0 to 10 N, 0 to 10 W, numbers growing to the west.
    const std::vector<PlaceCase> cases{
        {5.0, -5.0, "7", "00155"},  {25.5, -80.2, "7", "08150"},  {24.6, -78.3, "7", "08048"},
        {5.0, 5.0, "1", "03655"},   {15.3, 171.2, "1", "05551"},  {-5.0, -5.0, "5", "30055"},
        {-5.0, 5.0, "3", "33555"},  {-33.9, 151.2, "3", "42831"}, {80.0, -5.0, "7", "90105"},
        {79.9, -5.0, "7", "25395"}, {85.2, 5.0, "1", "93655"},    {90.0, -180.0, "7", "91800"},
        {0.0, 0.0, "1", "03600"},   {-90.0, 179.9, "3", "60609"},
    };
    for (const PlaceCase& c : cases) {
        EXPECT_EQ(quadrant(c.lat, c.lon), c.quadrant) << c.lat << " " << c.lon;
        EXPECT_EQ(marsden(c.lat, c.lon, c.quadrant), c.marsden) << c.lat << " " << c.lon;
    }
    EXPECT_EQ(marsden(5.0, 5.0, "/"), "/////");
}

TEST(GroupCoders, AreaOfTheHeader) {
    struct Area {
        double lat;
        double lon;
        const char* area;
    };
    const std::vector<Area> cases{{25.0, -80.0, "NT"},  {25.0, 40.1, "PA"},   {25.0, 40.0, "NT"},  {0.0, 0.0, "NT"},
                                  {8.75, -70.1, "PN"},  {8.76, -70.1, "NT"},  {10.0, -83.6, "PN"}, {10.1, -83.6, "NT"},
                                  {14.0, -84.6, "PN"},  {17.5, -90.1, "PN"},  {17.6, -90.1, "NT"}, {60.0, -100.1, "PN"},
                                  {60.0, -100.0, "NT"}, {-20.0, -70.0, "NT"}, {-20.0, -75.0, "PN"}};
    for (const Area& c : cases) {
        EXPECT_EQ(GeoRegion(c.lat, c.lon), c.area) << c.lat << " " << c.lon;
    }
    EXPECT_EQ(YYGGgg(3, 4, 5), "030405");
}
