#include "WrittenTime.h"

#include "NumberText.h"
#include "UtcTime.h"

#include <algorithm>
#include <cstdio>
#include <ctime>

namespace {

constexpr std::string_view kDigits = "0123456789";
constexpr std::string_view kDigitsAndPoint = "0123456789.";
constexpr std::size_t kWrittenLength = 6;       // of YYMMDD and of HHMMSS
constexpr int kFirstYearOf1900s = 90;           // two-digit years below it are 20xx
constexpr double kFirstSecond = -62135596800.0; // 0001-01-01 00:00:00
constexpr double kLastSecond = 253402300799.0;  // 9999-12-31 23:59:59

/// The two digits at \p at, as far as they are there.
int twoDigits(std::string_view text, std::size_t at) {
    int number = 0;
    for (std::size_t i = at; i < std::min(at + 2, text.size()) && text[i] >= '0' && text[i] <= '9'; ++i) {
        number = 10 * number + (text[i] - '0');
    }
    return number;
}

bool madeOf(std::string_view text, std::string_view characters) {
    return text.size() >= kWrittenLength && text.find_first_not_of(characters) == std::string_view::npos;
}

} // namespace

WrittenTime WrittenTime::of(std::string_view date, std::string_view time) {
    WrittenTime written;
    const int year = twoDigits(date, 0);
    written.year = year + (year < kFirstYearOf1900s ? 2000 : 1900);
    written.month = twoDigits(date, 2);
    written.day = twoDigits(date, 4);
    written.hour = twoDigits(time, 0);
    written.min = twoDigits(time, 2);
    written.sec = twoDigits(time, 4);
    written.fraction = time.size() > kWrittenLength ? numberOf(time.substr(kWrittenLength)) : 0.0;
    return written;
}

WrittenTime WrittenTime::of(double seconds) {
    const auto whole = static_cast<std::time_t>(std::clamp(seconds, kFirstSecond, kLastSecond));
    std::tm calendar{};
    gmtime_r(&whole, &calendar);
    WrittenTime written;
    written.year = calendar.tm_year + 1900;
    written.month = calendar.tm_mon + 1;
    written.day = calendar.tm_mday;
    written.hour = calendar.tm_hour;
    written.min = calendar.tm_min;
    written.sec = calendar.tm_sec;
    return written;
}

double WrittenTime::seconds() const {
    return static_cast<double>(utcSeconds(year, month, day, hour, min, sec)) + fraction;
}

std::string WrittenTime::text() const {
    char buffer[80];
    std::snprintf(buffer, sizeof buffer, "%04d-%02d-%02d %02d:%02d:%02d", year, month, day, hour, min, sec);
    return buffer;
}

bool isDateText(std::string_view date) {
    return madeOf(date, kDigits);
}

bool isTimeText(std::string_view time) {
    return madeOf(time, kDigitsAndPoint);
}

double timeTag(std::string_view date, std::string_view time) {
    return WrittenTime::of(date, time).seconds();
}
