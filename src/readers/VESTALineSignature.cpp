#include "VESTALineSignature.h"

#include <array>

namespace {

constexpr KeyedLineLayout kLayout{36, 6, 10, 9};

constexpr std::array<KeyedLineRule<VestaLine>, 17> kRules{{
    {VestaLine::PrelaunchData, {'D', 'P', ""}},
    {VestaLine::AircraftData, {'D', 'A', ""}},
    {VestaLine::Launch, {'T', 'L', ""}},
    {VestaLine::SoundingData, {'D', 'S', ""}},
    {VestaLine::Project, {'T', 'C', " COM Project Name/Flight ID"}},
    {VestaLine::Comments, {'T', 'C', " COM Operator Comments:    "}},
    {VestaLine::OpComments, {'T', 'C', " COM Operator Name/Comments"}},
    {VestaLine::SondeDynamicErr, {'T', 'C', " COM Sonde Dynamic Errors  "}},
    {VestaLine::DataType, {'T', 'C', " COM Data Type/Data Channel"}},
    {VestaLine::SysOperator, {'T', 'C', " COM Operator Name:        "}},
    {VestaLine::PrelaunchLoc, {'T', 'C', " COM Pre-launch Obs (lon,la"}},
    {VestaLine::PrelaunchLoc, {'T', 'C', " COM Launch Obs (lon,lat,al"}},
    {VestaLine::PrelaunchObs, {'T', 'C', " COM Pre-launch Obs Data Sy"}},
    {VestaLine::Format, {'T', 'F', ""}},
    {VestaLine::Version, {'T', 'V', ""}},
    {VestaLine::TimeOffset, {'T', 'T', ""}},
    {VestaLine::IdType, {'T', 'C', " COM Sonde ID/ID$/Built/Ver"}},
}};

} // namespace

VestaLine vestaLineType(std::string_view line) {
    return keyedLineType(line, kLayout, kRules, VestaLine::Other);
}
