#pragma once

#include <string>
#include <string_view>
#include <vector>

// Small text helpers. A blank is the space character only: tabs and line ends are text.

/// A copy of \p s without its leading blanks.
std::string trimLeft(const std::string& s);
/// A copy of \p s without its trailing blanks.
std::string trimRight(const std::string& s);
/// A copy of \p s without its leading and trailing blanks.
std::string trimBoth(const std::string& s);

/// trimLeft(), then the first word is dropped: the result begins with the blank that followed it, or is empty when no
/// blank followed.
std::string trimLeftWord(const std::string& s);

/// Lower-cases \p s in place, byte by byte; bytes above 127 stay.
void lowerize(std::string& s);

/// The text of one number through the printf-style \p format, which must hold exactly one conversion for its type. The
/// decimal point is a point, whatever the locale.
std::string stringFormat(const char* format, double value);
std::string stringFormat(const char* format, int value);
/// Appends stringFormat() to \p text.
void appendFormat(std::string& text, const char* format, double value);

/// The tokens of \p s between any of the characters in \p delimiters, each through trimBoth(). Empty tokens are kept
/// ("a,,b" is "a", "", "b"), but a delimiter at the very end adds none ("a," is "a"), and an empty \p s has none.
std::vector<std::string> tokenize(const std::string& s, const std::string& delimiters);

/// Whether \p s holds \p part.
bool contains(std::string_view s, std::string_view part);
