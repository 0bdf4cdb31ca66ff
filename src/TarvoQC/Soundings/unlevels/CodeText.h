#pragma once

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string_view>

// Pieces of a code group. A position beyond its end is no fault: there is nothing there.

inline bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

inline bool isLetter(char c) {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

inline bool isAllDigits(std::string_view text) {
    return !text.empty() && std::all_of(text.begin(), text.end(), isDigit);
}

inline bool beginsWith(std::string_view text, std::string_view start) {
    return text.substr(0, start.size()) == start;
}

/// \p length characters of \p group from \p at on, fewer where it ends before.
inline std::string_view piece(std::string_view group, std::size_t at, std::size_t length = std::string_view::npos) {
    return at >= group.size() ? std::string_view() : group.substr(at, length);
}

/// The number that \p text is from end to end; none for anything but one to nine digits.
inline std::optional<int> numberIn(std::string_view text) {
    constexpr std::size_t kMostDigits = 9; // any number of them is an int
    if (!isAllDigits(text) || text.size() > kMostDigits) {
        return std::nullopt;
    }
    int number = 0;
    for (const char c : text) {
        number = 10 * number + (c - '0');
    }
    return number;
}

/// The same for the digits at a fixed place of \p group: all \p length characters must be there and be digits.
inline std::optional<int> numberAt(std::string_view group, std::size_t at, std::size_t length) {
    const std::string_view digits = piece(group, at, length);
    return digits.size() == length ? numberIn(digits) : std::nullopt;
}

/// The same for a number that may have a sign.
inline std::optional<int> signedNumberIn(std::string_view text) {
    const bool negative = beginsWith(text, "-");
    const auto number = numberIn(negative || beginsWith(text, "+") ? text.substr(1) : text);
    return number && negative ? -*number : number;
}
