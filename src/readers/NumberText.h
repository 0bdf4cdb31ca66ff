#pragma once

#include <string_view>

// Numbers out of sounding files, read whatever stands there. The locale of the process plays no part.

/// The number at the start of \p text: blanks and a sign may stand ahead of it, text behind it is ignored, and a text
/// that doesn't begin with a number is 0.0. What isn't a number that the products hold ("nan", "inf", "1e999") is
/// missing, -999.0.
double numberOf(std::string_view text);

/// Whether \p text begins with a number, blanks aside, so that numberOf() isn't 0.0 for want of one.
bool beginsWithNumber(std::string_view text);

/// numberOf(), and missing, -999.0, for an empty text.
double numberOrMissing(std::string_view text);

/// numberOf() for a decimal integer; one out of range becomes the nearest integer there is.
int integerOf(std::string_view text);
