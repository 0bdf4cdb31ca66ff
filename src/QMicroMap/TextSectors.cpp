#include "TextSectors.h"

#include <cmath>

namespace {

constexpr double kPi = 3.14159265358979323846;
constexpr double kSectorWidth = 22.5; // degrees

/// The sectors of pressure or height, temperature, dew point and time, and their vertical justification.
struct Row {
    std::array<int, 4> sectors;
    std::array<TextSectors::TEXT_JUST, 4> vertical;
};

constexpr auto kTop = TextSectors::TOP;
constexpr auto kBottom = TextSectors::BOTTOM;
constexpr Row kEastAndWest{{2, 5, 9, 14}, {kBottom, kBottom, kTop, kTop}};
constexpr Row kNorthAndSouth{{1, 6, 9, 14}, {kBottom, kBottom, kTop, kTop}};

constexpr std::array<Row, 16> kRows{{
    kEastAndWest,
    {{0, 7, 10, 13}, {kTop, kBottom, kTop, kTop}},
    {{1, 7, 9, 14}, {kTop, kBottom, kTop, kTop}},
    kNorthAndSouth,
    kNorthAndSouth,
    {{0, 6, 9, 14}, {kBottom, kTop, kTop, kTop}},
    {{0, 7, 10, 13}, {kBottom, kTop, kTop, kTop}},
    kEastAndWest,
    kEastAndWest,
    {{2, 5, 8, 15}, {kBottom, kBottom, kBottom, kTop}},
    {{1, 6, 9, 15}, {kBottom, kBottom, kBottom, kTop}},
    kNorthAndSouth,
    kNorthAndSouth,
    {{1, 6, 8, 14}, {kBottom, kBottom, kTop, kBottom}},
    {{2, 5, 8, 15}, {kBottom, kBottom, kTop, kBottom}},
    kEastAndWest,
}};

int sectorOf(double wdir) {
    const double angle = std::fmod(std::fmod(450.0 - wdir, 360.0) + 360.0, 360.0);
    return static_cast<int>(angle / kSectorWidth);
}

} // namespace

TextSectors::TextSectors(double wdir, double radius) : _windSector(sectorOf(wdir)), _fields{} {
    constexpr std::array<TEXT_TYPE, 4> kColumns{PRESHT, TDRY, DP, TIME};
    const Row& row = kRows[static_cast<std::size_t>(_windSector)];
    for (std::size_t i = 0; i < kColumns.size(); ++i) {
        _fields[kColumns[i]].sector = row.sectors[i];
        _fields[kColumns[i]].vertical = row.vertical[i];
    }
    createCoordinates(radius);
}

void TextSectors::createCoordinates(double radius) {
    for (Field& field : _fields) {
        const double angle = (field.sector + 0.5) * kSectorWidth * kPi / 180.0;
        field.x = std::cos(angle) * radius;
        field.y = -std::sin(angle) * radius;
    }
}
