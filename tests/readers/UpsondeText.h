#pragma once

#include "JoinedLines.h"

#include <cstdio>
#include <string>
#include <vector>

// Lines of the keyed files of upsondes, as their systems lay them out. A time is seconds after 11:30:00 on 2022-02-03.

inline std::string upsondeClock(int second) {
    char text[32];
    std::snprintf(text, sizeof text, "%02d%02d%02d.00", 11 + (1800 + second) / 3600, (1800 + second) / 60 % 60,
                  second % 60);
    return text;
}

inline std::string upsondeComment(const std::string& system, const std::string& label, const std::string& value) {
    std::string line = system + "-T01 COM " + label;
    line.resize(system.size() + 48, ' ');
    return line + value;
}

inline std::string upsondeLaunch(const std::string& system) {
    return system + "-T01 LAU  R4520117 220203 " + upsondeClock(0);
}

/// A record; its key may make it the launch observation. The altitude is ten times the pressure short of 10000 m.
inline std::string upsondeRecord(const std::string& system, int second, double pressure, const char* key = "S00") {
    char text[200];
    std::snprintf(
        text, sizeof text,
        "%s-D01 %s  R4520117 220203 %s %7.2f  -5.25  45.50 180.00  10.00   5.50   -80.500000  25.500000 %8.2f "
        " 8  46.00  45.00",
        system.c_str(), key, upsondeClock(second).c_str(), pressure, 10000.0 - 10.0 * pressure);
    std::string line = text;
    // Words of 11 characters for longitudes are right-aligned by one blank less.
    line.erase(line.find("   -80"), 1);
    if (system == "PELO") {
        line += " 999 999  5560.25";
    }
    return line;
}
