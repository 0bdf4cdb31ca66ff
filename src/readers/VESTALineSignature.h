#pragma once

#include "KeyedLine.h"

#include <string_view>

using VESTALineSignature = KeyedLineSignature;

enum class VestaLine {
    PrelaunchData = 0,
    AircraftData = 1,
    Launch = 2,
    SoundingData = 3,
    Project = 4,
    Comments = 5,
    OpComments = 6,
    SondeDynamicErr = 7,
    DataType = 8,
    SysOperator = 9,
    PrelaunchLoc = 10,
    PrelaunchObs = 11,
    TimeOffset = 12,
    Format = 13,
    Version = 14,
    IdType = 15,
    Other = 16,
};

/// The kind of a line of a VESTA D file, whatever its identifier says.
VestaLine vestaLineType(std::string_view line);
