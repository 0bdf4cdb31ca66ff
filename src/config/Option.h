#pragma once

#include <string>

/// One option of a configuration set, as its store holds it: texts, whatever the type.
struct Option {
    /// The type attribute of the file.
    enum OPTION_TYPE { NUMERIC = 0, BOOL = 1, STRING = 2 };

    Option() = default;
    explicit Option(std::string optionName) : name(std::move(optionName)) {}

    OPTION_TYPE type = NUMERIC;
    std::string setName;
    std::string name;
    std::string currentText;
    std::string defaultText;
    bool immediate = false;

    bool operator<(const Option& other) const { return name < other.name; }
};
