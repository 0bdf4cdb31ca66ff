#include "OMBRALineSignature.h"

#include <array>

namespace {

constexpr KeyedLineLayout kOmbraLayout{29, 6, 10, 9};
constexpr KeyedLineLayout kAcsLayout{29, 4, 8, 7};
constexpr std::size_t kFlagsBehindKey = 1; // "S10": the flags follow the key letter
constexpr std::size_t kFlagCount = 2;

/// Long enough to tell one comment from the other, and one more than the operator's name has.
constexpr std::size_t kLongestSignatureText = 21;

constexpr std::array<KeyedLineRule<OmbraLine>, 24> kRules{{
    {OmbraLine::SoundingData, {'D', 'S', ""}},
    {OmbraLine::PrelaunchData, {'D', 'P', ""}},
    {OmbraLine::AircraftData, {'D', 'A', ""}},
    {OmbraLine::Launch, {'T', 'L', ""}},
    {OmbraLine::TimeOffset, {'T', 'T', ""}},
    {OmbraLine::Format, {'T', 'F', ""}},
    {OmbraLine::Version, {'T', 'V', ""}},
    {OmbraLine::FormatText, {'T', 'C', " COM FORMAT VERSION N"}},
    {OmbraLine::Project, {'T', 'C', " COM Project Name/Fli"}},
    {OmbraLine::Project, {'T', 'C', " COM Project Name/Mis"}},
    {OmbraLine::Aircraft, {'T', 'C', " COM Aircraft Type/ID"}},
    {OmbraLine::Comments, {'T', 'C', " COM Operator Comment"}},
    {OmbraLine::SondeDynamicErr, {'T', 'C', " COM Sonde Dynamic Er"}},
    {OmbraLine::DataType, {'T', 'C', " COM Data Type/Data C"}},
    {OmbraLine::SysOperator, {'T', 'C', " COM Operator Name: "}},
    {OmbraLine::PrelaunchObs, {'T', 'C', " COM Pre-launch Obs D"}},
    {OmbraLine::StdComments, {'T', 'C', " COM Standard Comment"}},
    {OmbraLine::NameComments, {'T', 'C', " COM Operator Name/Co"}},
    {OmbraLine::IdType, {'T', 'C', " COM Sonde Type/ID/Ve"}},
    {OmbraLine::IdBuilt, {'T', 'C', " COM Sonde ID/ID$/Bui"}},
    {OmbraLine::IdRevision, {'T', 'C', " COM Sonde ID/Type/Re"}},
    {OmbraLine::Sensor, {'T', 'C', " COM Sonde Freq/Batt/"}},
    {OmbraLine::TimeOffsetText, {'T', 'C', " COM Met/Wind Offset "}},
    {OmbraLine::LaunchTime, {'T', 'C', " COM Launch Time (y,m"}},
}};

constexpr bool textsFit() {
    for (const auto& rule : kRules) {
        if (rule.signature.text.size() > kLongestSignatureText) {
            return false;
        }
    }
    return true;
}
static_assert(textsFit());

const KeyedLineLayout& layoutOf(std::string_view line) {
    return line.substr(0, 3) == "ACS" ? kAcsLayout : kOmbraLayout;
}

} // namespace

OmbraLine ombraLineType(std::string_view line) {
    return keyedLineType(line, layoutOf(line), kRules, OmbraLine::Unrecognised);
}

std::string_view ombraCrcFlags(std::string_view line) {
    const std::size_t position = layoutOf(line).second + kFlagsBehindKey;
    if (position + kFlagCount > line.size()) {
        return {};
    }
    const std::string_view flags = line.substr(position, kFlagCount);
    return flags.find(' ') == std::string_view::npos ? flags : std::string_view();
}
