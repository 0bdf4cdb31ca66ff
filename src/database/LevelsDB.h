#pragma once

#include <string>

class Levels;
class SoundingDB;

/// Carries level sets into the database of soundings.
namespace LevelsDB {

/// Puts the levels that a map shows in the place of those which the sounding of \p fileName had. A sounding that isn't
/// in the database stays out of it. Throws a std::string, and leaves the old levels, when that fails.
void addLevels(const Levels* levels, SoundingDB* db, const std::string& fileName);

} // namespace LevelsDB
