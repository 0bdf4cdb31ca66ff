#include "NumberText.h"

#include "Missing.h"

#include <charconv>
#include <cstdlib>
#include <limits>
#include <string>

#include <locale.h>

namespace {

double knownOrMissing(double number) {
    return isKnown(number) ? number : kMissing;
}

/// The road for every text that isn't a plain number from end to end.
double looseNumber(std::string_view text) {
    static const locale_t plain = newlocale(LC_ALL_MASK, "C", nullptr);
    return knownOrMissing(strtod_l(std::string(text).c_str(), nullptr, plain));
}

} // namespace

double numberOf(std::string_view text) {
    double number = 0.0;
    const char* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, number);
    return error == std::errc() && stop == end ? knownOrMissing(number) : looseNumber(text);
}

bool beginsWithNumber(std::string_view text) {
    const auto first = text.find_first_not_of(" +-.");
    return first != std::string_view::npos && text[first] >= '0' && text[first] <= '9';
}

double numberOrMissing(std::string_view text) {
    return text.empty() ? kMissing : numberOf(text);
}

int integerOf(std::string_view text) {
    constexpr long kLeast = std::numeric_limits<int>::min();
    constexpr long kGreatest = std::numeric_limits<int>::max();
    const long number = std::strtol(std::string(text).c_str(), nullptr, 10);
    return static_cast<int>(number < kLeast ? kLeast : number > kGreatest ? kGreatest : number);
}
