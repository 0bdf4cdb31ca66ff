#include "ShippedSetTable.h"

#include <algorithm>
#include <iterator>

namespace {

constexpr std::array<ShippedSet, kShippedSetCount> kSets = {{
    {"sample", ""},
    {"editsonde", "[ editsonde ]:  Intended for operational dropsonde data (often used in modeling). The parameters "
                  "are more conservative than other dropsonde configuration options."},
    {"research-dropsonde",
     "[ research-dropsonde ]:  Produces research quality data with finer detail. The QC parameters are slightly more "
     "relaxed than for Editsonde and therefore allow more data through."},
    {"mini-dropsonde", "[ mini-dropsonde ]:  Intended for mini dropsonde processing. Identical to editsonde except for "
                       "parameters related to sonde size and mass. "},
    {"driftsonde", "[ driftsonde ]:  Intended for driftsonde processing. The system uses a miniaturized version of the "
                   "dropsonde with thin RS92 temp sensor."},
    {"upsonde-10s", "[ upsonde-10s ]:  Used for lower resolution ten-second radiosonde data."},
    {"upsonde-1s", "[ upsonde-1s ]:  Developed for high resolution one-second radiosonde data."},
    {"descending-PELO", "[ descending-PELO ]:  Used for descending radiosonde data."},
}};

// In the order of kSets.
constexpr std::array<SetRule, kShippedSetCount> kRules = {{
    {false, false},
    {false, true},
    {false, true},
    {false, true},
    {false, true},
    {true, false},
    {true, false},
    {false, true},
}};

// editsonde, research-dropsonde, mini-dropsonde, driftsonde, upsonde-10s, upsonde-1s, descending-PELO
// clang-format off
constexpr SetDifference kCurrent[] = {
    {"ReportObservedPos", {"true", "true", "true", "true", "", "true", "true"}},
    {"WindSmoothWL", {"", "", "", "", "60", "40", ""}},
    {"WindQCWL", {"", "", "", "", "", "10", ""}},
    {"WindDynCor", {"", "", "", "", "false", "false", ""}},
    {"WindDynCorWL", {"", "", "", "", "60", "60", ""}},
    {"WindBuddySlope", {"", "", "", "", "1", "5", ""}},
    {"WindQCDev", {"", "", "", "", "1", "", ""}},
    {"WindDisableQCFilter", {"true", "true", "true", "true", "", "", "true"}},
    {"WindOutlier", {"", "", "", "", "20", "10", ""}},
    {"WindDisableOutlierCheck", {"true", "true", "true", "true", "", "", "true"}},
    {"WindSats", {"", "", "", "", "5", "4", "5"}},
    {"WindVVdelta", {"", "", "", "", "100", "", ""}},
    {"PresSmoothWL", {"", "5", "5", "5", "30", "", "5"}},
    {"PresQCWL", {"", "10", "10", "10", "", "10", "10"}},
    {"PresBuddySlope", {"", "2", "2", "2", "2", "2", "2"}},
    {"PresQCDev", {"", "3", "3", "3", "3", "3", "3"}},
    {"PresOutlier", {"", "10", "10", "10", "10", "10", "10"}},
    {"PresMonoCheck", {"", "", "", "", "true", "true", ""}},
    {"TdryQCWL", {"", "10", "10", "10", "30", "10", "10"}},
    {"TdryDynCor", {"", "", "", "", "false", "false", ""}},
    {"TdryDynCorWL", {"", "", "", "", "60", "60", ""}},
    {"TdryQCDev", {"", "3", "3", "3", "3", "0.5", "3"}},
    {"TdryOutlier", {"", "10", "10", "10", "10", "10", "10"}},
    {"TdryBuddySlope", {"", "3", "3", "3", "3", "3", "3"}},
    {"TdrySmoothWL", {"", "5", "5", "5", "30", "", "5"}},
    {"RHSmoothWL", {"", "5", "5", "5", "30", "5", "5"}},
    {"RHQCWL", {"", "10", "10", "10", "30", "10", "10"}},
    {"RHBuddySlope", {"", "20", "20", "20", "20", "20", "20"}},
    {"RHQCDev", {"", "3", "3", "3", "3", "3", "3"}},
    {"ChuteArea", {"", "", "400", "400", "", "", ""}},
    {"DropSondeMass", {"", "", "158", "184", "", "", ""}},
    {"ACagency", {"", "", "", "", "AF001", "AF001", ""}},
    {"FixedSrcDir", {"C:/", "/home/ombra/", "", "", "", "", "/home/ombra/"}},
    {"QCAutoSaveDir", {"C:/", "/home/ombra/", "", "", "", "", "/home/ombra/"}},
};

// The two upsonde sets take their current texts for defaults: see kRules.
constexpr SetDifference kDefault[] = {
    {"ReportObservedPos", {"true", "true", "true", "true", "", "", "true"}},
    {"WindDisableQCFilter", {"true", "true", "true", "true", "", "", "true"}},
    {"WindDisableOutlierCheck", {"true", "true", "true", "true", "", "", "true"}},
    {"WindSats", {"", "", "", "", "", "", "4"}},
    {"ChuteArea", {"", "", "400", "400", "", "", ""}},
    {"DropSondeMass", {"", "", "158", "184", "", "", ""}},
};
// clang-format on

template <std::size_t N>
const SetDifference* find(const SetDifference (&table)[N], std::string_view key) {
    const auto* const found =
        std::find_if(std::begin(table), std::end(table), [key](const SetDifference& row) { return row.key == key; });
    return found == std::end(table) ? nullptr : found;
}

} // namespace

const std::array<ShippedSet, kShippedSetCount>& shippedSets() {
    return kSets;
}

const SetDifference* currentDifference(std::string_view key) {
    return find(kCurrent, key);
}

const SetDifference* defaultDifference(std::string_view key) {
    return find(kDefault, key);
}

SetRule setRule(std::size_t setIndex) {
    return kRules[setIndex];
}
