#pragma once

#include <string>

// The texts of options: trimming, and numbers that don't depend on the locale of the process.

/// Line feeds and carriage returns become blanks, then both ends are trimmed.
std::string deWhite(std::string text);

/// The number at the start of \p text as strtod reads it in the C locale; 0.0 when there is none.
double optionNumber(const std::string& text);

/// "%.6f" of \p value in the C locale.
std::string optionText(double value);
