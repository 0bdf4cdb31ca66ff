#pragma once

#include "ShippedConfiguration.h"

#include <array>
#include <string_view>

// What the shipped sets differ in from "sample", as data.

/// The texts of one key in the seven sets after "sample", in file order; an empty one means the text of "sample".
struct SetDifference {
    std::string_view key;
    std::array<std::string_view, kShippedSetCount - 1> texts;
};

/// Null when no set differs in the current text, or the default text, of \p key.
const SetDifference* currentDifference(std::string_view key);
const SetDifference* defaultDifference(std::string_view key);

/// How a set as a whole departs from "sample".
struct SetRule {
    /// Every default of the set is its own current text.
    bool defaultsFollowCurrent;
    /// The option DisableKermit stands twice in the set.
    bool repeatsDisableKermit;
};

SetRule setRule(std::size_t setIndex);
