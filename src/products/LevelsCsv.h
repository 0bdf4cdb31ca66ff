#pragma once

#include <ostream>
#include <vector>

class Levels;

/// Writes the level set as comma separated text: a "Fields" line, a "Units" line and a "Data" line for each level, in
/// the order of the set. The altitude has no decimal, the other values have one; what a level doesn't have is an empty
/// cell. What was withdrawn from coding is listed like the rest.
void saveLevelsCsv(const Levels& levels, std::ostream& stream);
/// The same in another order: \p order holds indices of the set.
void saveLevelsCsv(const Levels& levels, const std::vector<int>& order, std::ostream& stream);
