#pragma once

#include <optional>
#include <vector>

/// A standard level as a message tells it: mb, deg C, geopotential m; -999.0 for what it doesn't tell.
struct StandardLevel {
    double pres;
    double tdry;
    double dp;
    double height;
};

/// A message gives three digits of a height, and the rest comes from a table that serves usual air: in the eye of a
/// deep hurricane, or in polar air, it is a thousand metres off. So the heights are followed from a level where the
/// table can't be wrong, up and down by the hydrostatic equation. A height that doesn't fit gives way to another with
/// the same digits that does; where none does, or the chain of temperatures is broken, the table holds.
///
/// \p levels in order of falling pressure, each above 0 mb. \p surface, where there is one whose height is known,
/// serves when no such level is among them.
void settleHeights(std::vector<StandardLevel>& levels, const std::optional<StandardLevel>& surface = std::nullopt);
