#include "ParameterTable.h"

#include "ParameterRows.h"

#include <algorithm>
#include <map>

namespace {

using parameter_rows::Rows;

struct GroupEntry {
    ParameterGroup group;
    std::string_view title;
    Rows (*rows)();
};

constexpr GroupEntry kGroups[] = {
    {ParameterGroup::Winds, "QC algorithms: winds", parameter_rows::winds},
    {ParameterGroup::Thermodynamics, "QC algorithms: pressure, temperature, RH and GPS",
     parameter_rows::thermodynamics},
    {ParameterGroup::Processing, "Processing", parameter_rows::processing},
    {ParameterGroup::Metadata, "Sonde metadata", parameter_rows::metadata},
    {ParameterGroup::Levels, "Levels generation", parameter_rows::levels},
    {ParameterGroup::WmoGeneration, "WMO message generation", parameter_rows::wmoGeneration},
    {ParameterGroup::WmoSending, "WMO message sending", parameter_rows::wmoSending},
    {ParameterGroup::UserSetup, "User setup", parameter_rows::userSetup},
    {ParameterGroup::Visual, "Visual", parameter_rows::visual},
    {ParameterGroup::Autosave, "Autosave", parameter_rows::autosave},
    {ParameterGroup::Batch, "Batch tool", parameter_rows::batch},
    {ParameterGroup::PerSounding, "One sounding", parameter_rows::perSounding},
};

std::vector<Parameter> joinGroups() {
    std::vector<Parameter> table;
    for (const GroupEntry& entry : kGroups) {
        const Rows rows = entry.rows();
        for (std::size_t i = 0; i < rows.count; ++i) {
            table.push_back(rows.first[i]);
            table.back().group = entry.group;
        }
    }
    return table;
}

std::map<std::string_view, const Parameter*> indexTable() {
    std::map<std::string_view, const Parameter*> index;
    for (const Parameter& parameter : parameterTable()) {
        index[parameter.key] = &parameter;
    }
    return index;
}

} // namespace

const std::vector<Parameter>& parameterTable() {
    static const std::vector<Parameter> table = joinGroups();
    return table;
}

const Parameter* findParameter(std::string_view key) {
    static const std::map<std::string_view, const Parameter*> index = indexTable();
    const auto found = index.find(key);
    return found == index.end() ? nullptr : found->second;
}

std::string_view groupTitle(ParameterGroup group) {
    const auto* entry = std::find_if(std::begin(kGroups), std::end(kGroups),
                                     [group](const GroupEntry& candidate) { return candidate.group == group; });
    return entry == std::end(kGroups) ? std::string_view() : entry->title;
}
