#pragma once

#include "Level.h"
#include "Levels.h"

#include <array>

// What the files of the level set share with one another, and with nobody else.

constexpr double kLevelGap = 60.0;         ///< s, across which a level may interpolate
constexpr double kUnknownFallRate = -12.0; ///< m/s, of a dropsonde where none can be read

/// The mandatory surfaces, mb.
constexpr std::array<double, 21> kStandardPressures{1000.0, 925.0, 850.0, 700.0, 500.0, 400.0, 300.0,
                                                    250.0,  200.0, 150.0, 100.0, 70.0,  50.0,  30.0,
                                                    20.0,   10.0,  7.0,   5.0,   3.0,   2.0,   1.0};

/// A sample of a series with the pressure (mb) that was read at its time (s).
struct Levels::Point {
    double time = 0.0;
    double pres = 0.0;
    double value = 0.0;
};

Level levelAt(LevelType type, double time);
Level levelAt(LevelType type, double time, double pressure);
/// Components (m/s), speed and direction.
void setWind(Level& level, double u, double v);
