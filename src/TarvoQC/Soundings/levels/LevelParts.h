#pragma once

#include "Level.h"
#include "Levels.h"

// What the files of the level set share with one another, and with nobody else.

constexpr double kLevelGap = 60.0;         ///< s, across which a level may interpolate
constexpr double kUnknownFallRate = -12.0; ///< m/s, of a dropsonde where none can be read

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
