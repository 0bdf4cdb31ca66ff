#pragma once

#include "KeyedLine.h"

#include <string_view>

using OMBRALineSignature = KeyedLineSignature;

enum class OmbraLine {
    PrelaunchData = 0,
    AircraftData = 1,
    Launch = 2,
    SoundingData = 3,
    Project = 4,
    Aircraft = 6,
    Comments = 7,
    SondeDynamicErr = 8,
    DataType = 9,
    SysOperator = 10,
    PrelaunchObs = 11,
    TimeOffset = 12,
    TimeOffsetText = 13,
    Format = 14,
    FormatText = 15,
    Version = 16,
    StdComments = 17,
    NameComments = 18,
    IdType = 19,
    IdBuilt = 20,
    IdRevision = 21,
    Sensor = 22,
    LaunchTime = 23,
    Unrecognised = 24,
};

/// The kind of a line of an Ombra D file. Lines of older files begin with "ACS", two characters less than "OMBRA".
OmbraLine ombraLineType(std::string_view line);

/// The CRC flags of a recognised data line: two characters, PTU and GPS, "1" for a failed check; empty when the line
/// doesn't carry both.
std::string_view ombraCrcFlags(std::string_view line);
