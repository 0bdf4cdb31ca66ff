#include "TextSectors.h"

#include <gtest/gtest.h>

#include <array>

namespace {

/// Sectors and vertical justifications of pressure or height, temperature, dew point and time, by the staff's sector.
struct Row {
    std::array<int, 4> sectors;
    std::array<int, 4> vertical;
};

constexpr std::array<Row, 16> kTable{{
    {{2, 5, 9, 14}, {3, 3, 2, 2}},
    {{0, 7, 10, 13}, {2, 3, 2, 2}},
    {{1, 7, 9, 14}, {2, 3, 2, 2}},
    {{1, 6, 9, 14}, {3, 3, 2, 2}},
    {{1, 6, 9, 14}, {3, 3, 2, 2}},
    {{0, 6, 9, 14}, {3, 2, 2, 2}},
    {{0, 7, 10, 13}, {3, 2, 2, 2}},
    {{2, 5, 9, 14}, {3, 3, 2, 2}},
    {{2, 5, 9, 14}, {3, 3, 2, 2}},
    {{2, 5, 8, 15}, {3, 3, 3, 2}},
    {{1, 6, 9, 15}, {3, 3, 3, 2}},
    {{1, 6, 9, 14}, {3, 3, 2, 2}},
    {{1, 6, 9, 14}, {3, 3, 2, 2}},
    {{1, 6, 8, 14}, {3, 3, 2, 3}},
    {{2, 5, 8, 15}, {3, 3, 2, 3}},
    {{2, 5, 9, 14}, {3, 3, 2, 2}},
}};

constexpr std::array<TextSectors::TEXT_TYPE, 4> kColumns{TextSectors::PRESHT, TextSectors::TDRY, TextSectors::DP,
                                                         TextSectors::TIME};

} // namespace

TEST(TextSectors, EverySectorOfTheStaff) {
    for (int k = 0; k < 16; ++k) {
        const double middle = 450.0 - (k + 0.5) * 22.5; // the direction whose staff is in the middle of the sector
        for (const double wdir : {middle, middle - 360.0, middle + 11.2, middle - 11.2}) {
            const TextSectors sectors(wdir, 11.0);
            ASSERT_EQ(sectors.windSector(), k) << wdir;
            for (std::size_t i = 0; i < kColumns.size(); ++i) {
                EXPECT_EQ(sectors.sector(kColumns[i]), kTable[static_cast<std::size_t>(k)].sectors[i]) << k;
                EXPECT_EQ(sectors.vertical(kColumns[i]), kTable[static_cast<std::size_t>(k)].vertical[i]) << k;
            }
        }
    }
    EXPECT_EQ(TextSectors(0.0, 11.0).windSector(), 4) << "from the north";
    EXPECT_EQ(TextSectors(90.0, 11.0).windSector(), 0) << "from the east";
    EXPECT_EQ(TextSectors(360.0, 11.0).windSector(), 4);
}

TEST(TextSectors, AnchorsStandOnTheCircle) {
    const TextSectors north(0.0, 11.0);
    // Sector 1: 33.75 degrees from the east; sector 6: 146.25; sector 9: 213.75; sector 14: 326.25. By hand.
    const double expected[][2] = {{9.1462, -6.1113}, {-9.1462, -6.1113}, {-9.1462, 6.1113}, {9.1462, 6.1113}};
    for (std::size_t i = 0; i < kColumns.size(); ++i) {
        const bool left = expected[i][0] < 0.0;
        EXPECT_NEAR(north.x(kColumns[i]), expected[i][0], 1e-3) << i;
        EXPECT_NEAR(north.y(kColumns[i]), expected[i][1], 1e-3) << i;
        EXPECT_EQ(north.horizontal(kColumns[i]), left ? TextSectors::RIGHT : TextSectors::LEFT) << i;
    }
}
