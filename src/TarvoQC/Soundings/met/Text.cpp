#include "Text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
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

/// The commonest of formats, in which all rows of products are written: a text, "%", "0", a width, "." and a digit,
/// "f", a text.
struct FixedFormat {
    std::string_view ahead;
    std::string_view behind;
    std::size_t width = 0;
    bool zeros = false;
    int decimals = -1; ///< below 0: another kind of format
};

FixedFormat readFixedFormat(std::string_view format) {
    FixedFormat read;
    const auto isDigit = [&](std::size_t at) { return at < format.size() && format[at] >= '0' && format[at] <= '9'; };
    std::size_t percent = 0;
    while (percent < format.size() && format[percent] != '%') {
        ++percent;
    }
    std::size_t at = percent + 1;
    read.zeros = isDigit(at) && format[at] == '0';
    for (; isDigit(at) && at < percent + 4; ++at) {
        read.width = read.width * 10 + static_cast<std::size_t>(format[at] - '0');
    }
    if (format.substr(at, 1) == "." && isDigit(at + 1) && format.substr(at + 2, 1) == "f") {
        read.ahead = format.substr(0, percent);
        read.behind = format.substr(at + 3);
        const bool hasPercent = std::any_of(read.behind.begin(), read.behind.end(), [](char c) { return c == '%'; });
        read.decimals = hasPercent ? -1 : format[at + 1] - '0';
    }
    return read;
}

using Digits = std::array<char, 48>;

/// The value with \p decimals in \p digits, rounded as the C library rounds it: by the exact value, a half to even.
/// Where a multiplication leaves no doubt of how it rounds that is told by an integer. An error when there is no room.
std::to_chars_result toFixed(Digits& digits, double value, int decimals) {
    constexpr std::array<double, 7> kPowers{1.0, 10.0, 100.0, 1e3, 1e4, 1e5, 1e6};
    constexpr double kGreatest = 1e9;  // the product is good to some 1e-7
    constexpr double kDoubtful = 1e-5; // of being a half
    const auto places = static_cast<std::size_t>(decimals);
    const double scaled = places < kPowers.size() ? std::abs(value) * kPowers[places] : kGreatest;
    const double whole = std::floor(scaled);
    if (!(scaled < kGreatest) || std::abs(scaled - whole - 0.5) < kDoubtful) {
        return std::to_chars(digits.begin(), digits.end(), value, std::chars_format::fixed, decimals);
    }
    auto rest = static_cast<std::uint32_t>(scaled - whole > 0.5 ? whole + 1.0 : whole);
    char* const end = digits.end();
    char* at = end;
    for (std::size_t i = 0; i < places; ++i, rest /= 10) {
        *--at = static_cast<char>('0' + rest % 10);
    }
    if (places > 0) {
        *--at = '.';
    }
    do {
        *--at = static_cast<char>('0' + rest % 10);
        rest /= 10;
    } while (rest > 0);
    if (std::signbit(value)) {
        *--at = '-';
    }
    return {std::copy(at, end, digits.begin()), std::errc()};
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
    std::string text;
    appendFormat(text, format, value);
    return text;
}

void appendFormat(std::string& text, const char* format, double value) {
    const FixedFormat fixed = readFixedFormat(format);
    Digits digits;
    std::to_chars_result end{digits.data(), std::errc::invalid_argument};
    if (fixed.decimals >= 0 && std::isfinite(value)) {
        end = toFixed(digits, value, fixed.decimals);
    }
    if (end.ec != std::errc()) {
        text += formatNumber(format, value);
        return;
    }
    const char* number = digits.data();
    const auto length = static_cast<std::size_t>(end.ptr - number);
    const std::size_t padding = std::max(fixed.width, length) - length;
    const std::size_t before = text.size();
    text.resize(before + fixed.ahead.size() + padding + length + fixed.behind.size());
    char* at = std::copy(fixed.ahead.begin(), fixed.ahead.end(), text.data() + before);
    if (fixed.zeros && *number == '-') {
        *at++ = *number++;
    }
    at = std::fill_n(at, padding, fixed.zeros ? '0' : ' ');
    at = std::copy(number, static_cast<const char*>(end.ptr), at);
    std::copy(fixed.behind.begin(), fixed.behind.end(), at);
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
