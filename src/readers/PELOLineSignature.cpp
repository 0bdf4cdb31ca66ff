#include "PELOLineSignature.h"

#include <array>

namespace {

constexpr KeyedLineLayout kLayout{36, 5, 9, 8};

constexpr std::array<KeyedLineRule<PeloLine>, 12> kRules{{
    {PeloLine::PrelaunchData, {'D', 'P', ""}},
    {PeloLine::AircraftData, {'D', 'A', ""}},
    {PeloLine::Launch, {'T', 'L', ""}},
    {PeloLine::SoundingData, {'D', 'S', ""}},
    {PeloLine::Project, {'T', 'C', " COM Project Name/Mission I"}},
    {PeloLine::NameComments, {'T', 'C', " COM Operator Name/Comments"}},
    {PeloLine::DataType, {'T', 'C', " COM Data Type/Data Channel"}},
    {PeloLine::PrelaunchObs, {'T', 'C', " COM Pre-launch Obs Data Sy"}},
    {PeloLine::Format, {'T', 'F', ""}},
    {PeloLine::Version, {'T', 'V', ""}},
    {PeloLine::IdType, {'T', 'C', " COM Sonde ID/ID$/Type/Sens"}},
    {PeloLine::StdComments, {'T', 'C', " COM Standard Comments:    "}},
}};

} // namespace

PeloLine peloLineType(std::string_view line) {
    return keyedLineType(line, kLayout, kRules, PeloLine::Other);
}
