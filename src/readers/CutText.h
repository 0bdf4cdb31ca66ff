#pragma once

#include <initializer_list>
#include <string>

/// Cuts \p text at any of \p delimiters, one token into each field for as long as there are any; a field that none is
/// left for stays as it is. Blanks around a token don't belong to it.
void takeTexts(const std::string& text, const char* delimiters, std::initializer_list<std::string*> fields);
/// The same with the integer at the start of each token, see integerOf().
void takeNumbers(const std::string& text, const char* delimiters, std::initializer_list<int*> fields);
