#include "SyntheticStations.h"

#include "SndMetaData.h"
#include "SoundingDB.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string>

namespace {

constexpr double kDegrees = 57.29577951308232; // to the radian
constexpr double kEyeLat = 25.0;
constexpr double kEyeLon = -87.0;
constexpr double kCoreRadius = 1.2; // degrees, of the strongest wind
constexpr double kStrongest = 46.0; // m/s
constexpr double kInflow = 20.0;    // degrees, of the wind across the isobars
constexpr double kEast = -70.0;     // of the net, degrees
constexpr double kWest = -100.0;
constexpr double kSouth = 16.0;
constexpr double kNorth = 36.0;

struct LevelRow {
    double pressure;   // mb; 0 is the surface
    double height;     // m, far from the cyclone
    double tdry;       // deg C
    double depression; // deg C
    double wind;       // part of that at the surface
};

constexpr std::array<LevelRow, 6> kLevels{{{0.0, 0.0, 28.0, 4.0, 0.8},
                                           {925.0, 780.0, 22.5, 3.0, 1.1},
                                           {850.0, 1520.0, 18.0, 4.0, 1.1},
                                           {700.0, 3150.0, 9.0, 7.0, 0.95},
                                           {500.0, 5860.0, -6.0, 9.0, 0.7},
                                           {300.0, 9680.0, -31.0, 12.0, 0.3}}};

/// Rankine's vortex: as a solid body within the core, and falling off outside of it.
double windAt(double radius) {
    return kStrongest * (radius < kCoreRadius ? radius / kCoreRadius : std::pow(kCoreRadius / radius, 0.6));
}

void enterLevels(SoundingDB& db, int id, double lat, double lon) {
    const double east = (lon - kEyeLon) * std::cos(lat / kDegrees);
    const double north = lat - kEyeLat;
    const double radius = std::hypot(east, north);
    // Round the centre counter-clockwise, and inward: where the wind comes from.
    const double wdir = std::fmod(std::atan2(east, north) * kDegrees + 90.0 - kInflow + 360.0, 360.0);
    const double depth = std::exp(-radius / 3.0); // of the low, and of its warm core
    for (const LevelRow& level : kLevels) {
        const bool surface = level.pressure == 0.0;
        if (surface) {
            db.addLevelData(SoundingDB::PRES, 1013.0 - 55.0 * depth);
        } else {
            db.addLevelData(SoundingDB::PRES, level.pressure);
            db.addLevelData(SoundingDB::ALT, level.height - 480.0 * depth * (level.pressure / 1000.0));
        }
        const double tdry = level.tdry + (surface ? -2.0 : 6.0) * depth - 0.35 * std::max(north, 0.0);
        db.addLevelData(SoundingDB::TDRY, tdry);
        db.addLevelData(SoundingDB::DP, tdry - level.depression * (1.0 - 0.7 * depth));
        db.addLevelData(SoundingDB::WSPD, windAt(radius) * level.wind);
        db.addLevelData(SoundingDB::WDIR, wdir);
        db.addLevel(id, surface ? 1013.0 : level.pressure, surface ? LevelType::SurfaceThermo : LevelType::Standard);
    }
}

} // namespace

void SyntheticStations::enter(SoundingDB& db, int rows, int columns) {
    SQLiteDB::Transaction whole(db);
    for (int row = 0; row < rows; ++row) {
        for (int column = 0; column < columns; ++column) {
            SndMetaData data;
            data.year = 2021;
            data.month = 8;
            data.day = 29;
            data.hour = 12;
            data.min = (7 * row + 3 * column) % 60;
            data.platformType = "Synthetic";
            data.platformId = "S" + std::to_string(row * columns + column);
            data.project = "Synthetic";
            data.flight = "1";
            data.comments = "No sonde flew here";
            // Odd rows stand between the others; a little off the lines, as stations are.
            const double part = columns == 1 ? 0.0 : (column + 0.5 * (row % 2)) / columns;
            const double lat = kSouth + (kNorth - kSouth) * (rows == 1 ? 0.5 : static_cast<double>(row) / (rows - 1)) +
                               0.3 * std::sin(5.0 * column);
            const double lon = kWest + (kEast - kWest) * part + 0.3 * std::cos(3.0 * row);
            data.launchLat.set(lat);
            data.launchLon.set(lon);
            const std::string name = "/synthetic/S" + std::to_string(row * columns + column) + ".csv";
            enterLevels(db, db.addSounding(name, data, "CSV"), lat, lon);
        }
    }
    whole.commit();
}
