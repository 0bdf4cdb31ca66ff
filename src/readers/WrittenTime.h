#pragma once

#include <string>
#include <string_view>

// Dates and times in UTC, whatever the time zone of the process.

/// A point in time in calendar form; also what a keyed line writes as YYMMDD and HHMMSS.ff.
struct WrittenTime {
    int year = 0;
    int month = 0;
    int day = 0;
    int hour = 0;
    int min = 0;
    int sec = 0;
    double fraction = 0.0; ///< what is written behind the whole seconds

    /// Reads \p date and \p time by position; digits that aren't there count as 0. Years below 90 are 20xx.
    static WrittenTime of(std::string_view date, std::string_view time);
    /// The date and time of \p seconds since 1970, cut to whole seconds and to the years 1 to 9999.
    static WrittenTime of(double seconds);

    /// Seconds since 1970.
    double seconds() const;
    /// Seconds, minutes and hours are 59 at most, the day 31 and the month 12. An hour beyond the day counts on into
    /// the next.
    bool inRange() const { return sec <= 59 && min <= 59 && hour <= 59 && day <= 31 && month <= 12; }
    /// "2021-08-01 12:00:03"
    std::string text() const;
};

/// Whether \p date is made of digits, and enough of them for YYMMDD.
bool isDateText(std::string_view date);
/// Whether \p time is made of digits and points, and long enough for HHMMSS.
bool isTimeText(std::string_view time);
/// Seconds since 1970 of a date and time as written in a keyed line.
double timeTag(std::string_view date, std::string_view time);
