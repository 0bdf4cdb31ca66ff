#pragma once

#include <string>
#include <string_view>

// Between the UTF-8 texts of the program and the UTF-16 texts of the XML library. The locale of the process plays no
// part.

/// \p utf8 as the XML library wants it. What no XML document can hold is not let through, so that a document written
/// from it can be read again: control characters other than tab, line feed and carriage return are dropped, bytes that
/// aren't UTF-8 become U+FFFD.
std::u16string toXmlText(std::string_view utf8);

/// The UTF-8 form of a null-terminated \p text; empty for null.
std::string fromXmlText(const char16_t* text);
