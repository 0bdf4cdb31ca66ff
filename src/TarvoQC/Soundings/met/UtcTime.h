#pragma once

#include <cstdint>
#include <string>

/// Seconds since 1970 of a UTC date and time (\p month 1 to 12), whatever time zone the process runs in. Fields beyond
/// their range carry over as in the calendar. A year that no sounding can have (outside 0 to 9999) gives -1.
std::int64_t utcTime(int year, int month, int day, int hour, int min, int sec);

/// The UTC time \p seconds since 1970 through the strftime \p format; an empty text for a time beyond the calendar.
std::string utcText(std::int64_t seconds, const char* format);
