#pragma once

#include <cstddef>
#include <istream>
#include <string>
#include <vector>

constexpr std::size_t kLongestLine = 498; ///< characters of a line of a sounding file

/// All lines of \p stream, in order. A line of nothing but white space becomes an empty string; a line that is too long
/// is no line of a sounding file and ends the reading, with the part of it read so far as the last line.
std::vector<std::string> readLines(std::istream& stream);
/// Whether a line that was too long ended the reading of \p stream.
bool endedByLongLine(const std::istream& stream);

/// The lines as most formats want them: control characters and everything outside of printable ASCII are blanks, and
/// empty lines are gone.
std::vector<std::string> preprocess(std::vector<std::string> lines);
