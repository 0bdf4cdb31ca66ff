#pragma once

#include <cstdint>
#include <string>

/// Seconds since 1970 of a UTC date and time, whatever the time zone of the process. Any integers will do: a month 13
/// is the January after, a day 0 the day before the first.
std::int64_t utcSeconds(int year, int month, int day, int hour, int min, int sec);

/// The UTC time \p seconds since 1970 through the strftime \p format; an empty text for a time beyond the calendar.
std::string utcText(std::int64_t seconds, const char* format);
