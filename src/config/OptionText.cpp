#include "OptionText.h"

#include "Text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <clocale>
#include <cstdlib>
#include <locale.h>

std::string deWhite(std::string text) {
    std::replace(text.begin(), text.end(), '\n', ' ');
    std::replace(text.begin(), text.end(), '\r', ' ');
    return trimBoth(text);
}

double optionNumber(const std::string& text) {
    // A desktop sets the locale of its user, where the decimal point may be a comma; the file doesn't change with it.
    static const locale_t cLocale = newlocale(LC_ALL_MASK, "C", nullptr);
    return strtod_l(text.c_str(), nullptr, cLocale);
}

std::string optionText(double value) {
    std::array<char, 400> digits{}; // the largest double has 309 digits before the point
    const auto written =
        std::to_chars(digits.data(), digits.data() + digits.size(), value, std::chars_format::fixed, 6);
    return std::string(digits.data(), written.ptr);
}
