#pragma once

#include <string_view>

// A line is consumed through a view of it: nothing of the line is copied or moved.

/// Takes the first word off \p line, with the blanks ahead of it and the one behind it. Blank means the space only; an
/// exhausted line gives empty words.
inline std::string_view nextWord(std::string_view& line) {
    std::size_t start = 0;
    while (start < line.size() && line[start] == ' ') {
        ++start;
    }
    std::size_t end = start;
    while (end < line.size() && line[end] != ' ') {
        ++end;
    }
    const std::string_view word = line.substr(start, end - start);
    line.remove_prefix(end < line.size() ? end + 1 : end);
    return word;
}

inline void skipWords(std::string_view& line, int count) {
    for (int i = 0; i < count; ++i) {
        nextWord(line);
    }
}

/// \p text without white space at its ends.
inline std::string_view trimmed(std::string_view text) {
    constexpr std::string_view kWhiteSpace = " \t\n\v\f\r";
    const auto first = text.find_first_not_of(kWhiteSpace);
    return first == std::string_view::npos ? std::string_view()
                                           : text.substr(first, text.find_last_not_of(kWhiteSpace) + 1 - first);
}
