#pragma once

#include "KeyedLine.h"

#include <string_view>

using PELOLineSignature = KeyedLineSignature;

enum class PeloLine {
    PrelaunchData = 0,
    AircraftData = 1,
    Launch = 2,
    SoundingData = 3,
    Project = 4,
    NameComments = 5,
    DataType = 6,
    PrelaunchObs = 7,
    Format = 8,
    Version = 9,
    IdType = 10,
    StdComments = 11,
    Other = 12,
};

/// The kind of a line of a PELO D file, whatever its identifier says.
PeloLine peloLineType(std::string_view line);
