#pragma once

#include <istream>
#include <string>
#include <vector>

/// All lines of \p stream, in order. A line of nothing but white space becomes an empty string; a line of more than 498
/// characters is no line of a sounding file and ends the reading, with the part of it read so far as the last line.
std::vector<std::string> readLines(std::istream& stream);

/// The lines as most formats want them: control characters and everything outside of printable ASCII are blanks, and
/// empty lines are gone.
std::vector<std::string> preprocess(std::vector<std::string> lines);
