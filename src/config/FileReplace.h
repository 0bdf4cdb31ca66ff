#pragma once

#include <string>
#include <string_view>

/// Gives the file at \p path the content \p text, whole or not at all: the text goes into a temporary file of the same
/// directory, which then takes the place of the old one. Links are followed, the permissions of the old file are kept.
/// False if anything fails, with the old file as it was and nothing left beside it.
bool replaceFile(const std::string& path, std::string_view text);
