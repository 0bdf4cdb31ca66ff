#pragma once

#include "Option.h"

#include <string_view>
#include <vector>

/// What a parameter holds. A number and a flag are numeric items (a flag is 0 or 1), a text is a text item.
enum class ParameterKind { Number, Flag, Text };

/// How a parameter comes into a TarvoConfigSet.
enum class ParameterScope {
    Stored,   ///< registered at construction and bound to the store
    InMemory, ///< registered at construction, never stored
    Batch,    ///< not registered: an option of the file that only the batch tool reads
    OnDemand  ///< a value of one sounding, added while it is in force and never stored; its presence switches it on
};

enum class ParameterGroup {
    Winds,
    Thermodynamics,
    Processing,
    Metadata,
    Levels,
    WmoGeneration,
    WmoSending,
    UserSetup,
    Visual,
    Autosave,
    Batch,
    PerSounding
};

/// One key of the configuration with all that is fixed about it.
struct Parameter {
    std::string_view key;
    ParameterKind kind = ParameterKind::Number;
    /// The type attribute of the option in the shipped file. It need not agree with the kind: OptIcao is a text whose
    /// option is numeric.
    Option::OPTION_TYPE fileType = Option::NUMERIC;
    ParameterScope scope = ParameterScope::Stored;
    /// The built-in value, used when the store lacks the option: a number (also of a flag) or a text.
    double builtInNumber = 0.0;
    std::string_view builtInText;
    /// The texts of the set "sample", in short form ("10" for "10.000000"). Of no use unless isShipped().
    std::string_view shippedCurrent;
    std::string_view shippedDefault;
    /// Saved as soon as it changes (the attribute of the file decides in the end).
    bool immediate = false;
    /// Listed by the products that document the configuration.
    bool outputAttribute = false;
    /// For people; units where there are any.
    std::string_view meaning;
    ParameterGroup group = ParameterGroup::Winds;

    constexpr bool isNumeric() const { return kind != ParameterKind::Text; }
    constexpr bool isRegistered() const { return scope == ParameterScope::Stored || scope == ParameterScope::InMemory; }
    constexpr bool isBound() const { return scope == ParameterScope::Stored; }
    /// Whether the shipped configuration has an option of this key.
    constexpr bool isShipped() const { return group != ParameterGroup::PerSounding; }

    /// This row with a default in "sample" other than the current value there.
    constexpr Parameter withShippedDefault(std::string_view text) const {
        Parameter changed = *this;
        changed.shippedDefault = text;
        return changed;
    }
};

/// Every key of the system, group by group in the order of the shipped file.
const std::vector<Parameter>& parameterTable();

/// The row of \p key, which matches exactly, case included; null for a key that isn't one.
const Parameter* findParameter(std::string_view key);

/// A heading for people.
std::string_view groupTitle(ParameterGroup group);
