#include "UtcTime.h"

#include <array>
#include <ctime>

namespace {

constexpr std::int64_t kSecondsPerDay = 86400;

std::int64_t floorDiv(std::int64_t a, std::int64_t b) {
    return a / b - (a % b < 0 ? 1 : 0);
}

/// Days from 1970-01-01 to the first of a month of the Gregorian calendar; years are counted from March, so that the
/// leap day is the last of its year.
std::int64_t daysToMonth(std::int64_t year, std::int64_t month) {
    const std::int64_t monthFromMarch = (month + 9) % 12;
    const std::int64_t yearFromMarch = month < 3 ? year - 1 : year;
    const std::int64_t leapDays =
        floorDiv(yearFromMarch, 4) - floorDiv(yearFromMarch, 100) + floorDiv(yearFromMarch, 400);
    constexpr std::int64_t kDaysTo1970 = 719468; // from March of the year 0
    return yearFromMarch * 365 + leapDays + (153 * monthFromMarch + 2) / 5 - kDaysTo1970;
}

} // namespace

std::int64_t utcSeconds(int year, int month, int day, int hour, int min, int sec) {
    const std::int64_t months = std::int64_t{month} - 1;
    const std::int64_t fullYear = year + floorDiv(months, 12);
    const std::int64_t days = daysToMonth(fullYear, months - 12 * floorDiv(months, 12) + 1) + day - 1;
    return days * kSecondsPerDay + std::int64_t{hour} * 3600 + std::int64_t{min} * 60 + sec;
}

std::string utcText(std::int64_t seconds, const char* format) {
    const std::time_t time = seconds;
    std::tm fields{};
    if (gmtime_r(&time, &fields) == nullptr) {
        return {};
    }
    std::array<char, 128> text{};
    return std::string(text.data(), std::strftime(text.data(), text.size(), format, &fields));
}
