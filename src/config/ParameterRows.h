#pragma once

#include "ParameterTable.h"

#include <cstddef>

// How the rows of the parameter table are written, for the files that hold them. Nobody else includes this.

namespace parameter_rows {

constexpr unsigned kPlain = 0;
constexpr unsigned kImmediate = 1;
constexpr unsigned kOutput = 2;

struct Rows {
    const Parameter* first;
    std::size_t count;
};

template <std::size_t N>
constexpr Rows rowsOf(const Parameter (&rows)[N]) {
    return {rows, N};
}

constexpr Parameter row(std::string_view key, ParameterKind kind, Option::OPTION_TYPE fileType, ParameterScope scope,
                        unsigned flags, std::string_view meaning) {
    Parameter made;
    made.key = key;
    made.kind = kind;
    made.fileType = fileType;
    made.scope = scope;
    made.immediate = (flags & kImmediate) != 0;
    made.outputAttribute = (flags & kOutput) != 0;
    made.meaning = meaning;
    return made;
}

constexpr Parameter shippedAs(Parameter made, std::string_view text) {
    made.shippedCurrent = text;
    made.shippedDefault = text;
    return made;
}

constexpr Parameter number(std::string_view key, std::string_view shipped, double builtIn, unsigned flags,
                           std::string_view meaning) {
    Parameter made = row(key, ParameterKind::Number, Option::NUMERIC, ParameterScope::Stored, flags, meaning);
    made.builtInNumber = builtIn;
    return shippedAs(made, shipped);
}

constexpr Parameter flag(std::string_view key, std::string_view shipped, bool builtIn, unsigned flags,
                         std::string_view meaning) {
    Parameter made = row(key, ParameterKind::Flag, Option::BOOL, ParameterScope::Stored, flags, meaning);
    made.builtInNumber = builtIn ? 1.0 : 0.0;
    return shippedAs(made, shipped);
}

constexpr Parameter text(std::string_view key, std::string_view shipped, std::string_view builtIn, unsigned flags,
                         std::string_view meaning) {
    Parameter made = row(key, ParameterKind::Text, Option::STRING, ParameterScope::Stored, flags, meaning);
    made.builtInText = builtIn;
    return shippedAs(made, shipped);
}

/// A text whose option the file calls numeric.
constexpr Parameter numericText(std::string_view key, std::string_view shipped, std::string_view builtIn,
                                unsigned flags, std::string_view meaning) {
    Parameter made = text(key, shipped, builtIn, flags, meaning);
    made.fileType = Option::NUMERIC;
    return made;
}

constexpr Parameter batchFlag(std::string_view key, std::string_view meaning) {
    return shippedAs(row(key, ParameterKind::Flag, Option::BOOL, ParameterScope::Batch, kImmediate, meaning), "false");
}

constexpr Parameter batchText(std::string_view key, std::string_view shipped, std::string_view meaning) {
    return shippedAs(row(key, ParameterKind::Text, Option::STRING, ParameterScope::Batch, kImmediate, meaning),
                     shipped);
}

constexpr Parameter soundingNumber(std::string_view key, double builtIn, std::string_view meaning) {
    return number(key, {}, builtIn, kOutput, meaning);
}

constexpr Parameter soundingFlag(std::string_view key, bool builtIn, std::string_view meaning) {
    return flag(key, {}, builtIn, kOutput, meaning);
}

constexpr Parameter observationNumber(std::string_view key, double builtIn, std::string_view meaning) {
    Parameter made = soundingNumber(key, builtIn, meaning);
    made.scope = ParameterScope::InMemory;
    return made;
}

constexpr Parameter onDemand(std::string_view key, std::string_view meaning) {
    return row(key, ParameterKind::Number, Option::NUMERIC, ParameterScope::OnDemand, kOutput, meaning);
}

Rows winds();
Rows thermodynamics();
Rows processing();
Rows metadata();
Rows levels();
Rows wmoGeneration();
Rows wmoSending();
Rows userSetup();
Rows visual();
Rows autosave();
Rows batch();
Rows perSounding();

} // namespace parameter_rows
