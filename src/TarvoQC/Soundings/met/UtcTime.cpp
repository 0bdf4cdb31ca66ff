#include "UtcTime.h"

#include <array>
#include <ctime>

std::int64_t utcTime(int year, int month, int day, int hour, int min, int sec) {
    if (year < 0 || year > 9999) {
        return -1;
    }
    std::tm fields{};
    fields.tm_year = year - 1900;
    fields.tm_mon = month - 1;
    fields.tm_mday = day;
    fields.tm_hour = hour;
    fields.tm_min = min;
    fields.tm_sec = sec;
    return timegm(&fields);
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
