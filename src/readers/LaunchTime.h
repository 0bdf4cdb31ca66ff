#pragma once

#include "Series.h"

#include <optional>
#include <string>
#include <vector>

// When a dropsonde left its aircraft. Times are seconds since 1970.

/// The launch as the pressure shows it: inside the aircraft the sonde reports cabin pressure, at launch the reading
/// falls by more than 50 mb to the ambient pressure and then grows. \p pressure holds all frames ascending, -999.0
/// where one is missing. None when no such fall shows, or fewer than 10 frames have a pressure.
std::optional<double> findPresLaunchTime(const Series& pressure);

enum class LaunchTimeSource { LaunchLine = 2, PressureWithoutLine = 3, PressureAgainstLine = 4 };

/// The launch time in force, and what the user is told about it.
struct LaunchTimeDecision {
    std::optional<double> time; ///< none: the sounding can't be processed
    LaunchTimeSource source = LaunchTimeSource::LaunchLine;
    std::string errorText;
    std::vector<std::string> summary;
};

/// Weighs the time \p told by the file against the one \p diagnosed from the pressure: when they are more than 3 s
/// apart the diagnosis stands.
LaunchTimeDecision decideLaunchTime(std::optional<double> told, std::optional<double> diagnosed);
