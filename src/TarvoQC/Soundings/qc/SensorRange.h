#pragma once

/// What a sensor can report, both ends included. The limit check takes out what lies beyond, and a launch or surface
/// value beyond counts as not known.
struct SensorRange {
    double min;
    double max;

    bool holds(double value) const { return min <= value && value <= max; }
};

constexpr SensorRange kPressureRange{1.0, 1200.0}; // mb
constexpr SensorRange kTdryRange{-100.0, 50.0};    // deg C
constexpr SensorRange kRHRange{0.0, 120.0};        // %
