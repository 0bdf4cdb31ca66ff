#pragma once

#include "Level.h"

#include <string>
#include <vector>

// The groups of one level, and what sections ask of a list of levels.

/// TTTDD with slashes for what the level doesn't have. RH without a temperature is coded as nothing.
std::string TTTDD(const Level& level);
/// ddfff, or slashes without speed or direction.
std::string ddfff(const Level& level);

/// The pressure (mb) of the highest level with wind. False when there is none.
bool highestWindLevel(std::vector<Level> levels, double& p);

/// A copy sorted by pressure without the levels whose PPP is that of the one above them: the smaller pressure stays.
std::vector<Level> removeDupLevels(std::vector<Level> levels);
