#include "Text.h"

#include <algorithm>
#include <array>
#include <cstdio>

namespace {

template <typename Number>
std::string formatNumber(const char* format, Number value) {
    std::array<char, 64> buffer; // enough for nearly every number
    const int length = std::snprintf(buffer.data(), buffer.size(), format, value);
    if (length < static_cast<int>(buffer.size())) {
        return {buffer.data(), static_cast<std::size_t>(std::max(length, 0))};
    }
    std::string text(static_cast<std::size_t>(length) + 1, '\0');
    std::snprintf(text.data(), text.size(), format, value);
    text.pop_back();
    return text;
}

} // namespace

std::string trimLeft(const std::string& s) {
    const auto first = s.find_first_not_of(' ');
    return first == std::string::npos ? std::string() : s.substr(first);
}

std::string trimRight(const std::string& s) {
    return s.substr(0, s.find_last_not_of(' ') + 1);
}

std::string trimBoth(const std::string& s) {
    return trimRight(trimLeft(s));
}

std::string trimLeftWord(const std::string& s) {
    const std::string words = trimLeft(s);
    const auto blank = words.find(' ');
    return blank == std::string::npos ? std::string() : words.substr(blank);
}

void lowerize(std::string& s) {
    for (char& c : s) {
        if (c >= 'A' && c <= 'Z') {
            c = static_cast<char>(c - 'A' + 'a');
        }
    }
}

std::string stringFormat(const char* format, double value) {
    return formatNumber(format, value);
}

std::string stringFormat(const char* format, int value) {
    return formatNumber(format, value);
}

std::vector<std::string> tokenize(const std::string& s, const std::string& delimiters) {
    std::vector<std::string> tokens;
    std::size_t start = 0;
    for (auto cut = s.find_first_of(delimiters); cut != std::string::npos; cut = s.find_first_of(delimiters, start)) {
        tokens.push_back(trimBoth(s.substr(start, cut - start)));
        start = cut + 1;
    }
    if (start < s.size()) {
        tokens.push_back(trimBoth(s.substr(start)));
    }
    return tokens;
}

bool contains(std::string_view s, std::string_view part) {
    return s.find(part) != std::string_view::npos;
}
