#pragma once

#include <string>

namespace skewt {

/// \p text as character data of an XML document in UTF-8: markup is escaped, what isn't UTF-8 becomes U+FFFD, what XML
/// doesn't allow a blank.
std::string svgEscaped(const std::string& text);

/// Appends \p value with two decimals, whatever the locale.
void appendNumber(std::string& out, double value);

} // namespace skewt
