#pragma once

#include <vector>

/// One option of a form. What a form shows is a table of these; their widgets are named after the keys.
struct OptionField {
    enum Kind { Double, Int, Text, Pattern, Flag, Choice, Path, Font };

    const char* group; ///< title of the group that it stands in
    const char* label;
    const char* key;
    Kind kind;
    double min = 0.0; ///< of a number with limits; there are none when both are 0
    double max = 0.0;
    const char* inMessages = nullptr;   ///< what a refusal calls it; the label when null
    const char* pattern = nullptr;      ///< of a Pattern
    const char* mask = nullptr;         ///< input mask of a text
    std::vector<const char*> choices{}; ///< of a Choice: the texts of its buttons, for the values from 0 on

    bool hasLimits() const { return min != 0.0 || max != 0.0; }
};

/// The tables of the six forms.
namespace config_forms {

const std::vector<OptionField>& qualityControl();
const std::vector<OptionField>& processing();
const std::vector<OptionField>& wmo();
const std::vector<OptionField>& autoSave();
const std::vector<OptionField>& synopticMap();
const std::vector<OptionField>& visual();

} // namespace config_forms
