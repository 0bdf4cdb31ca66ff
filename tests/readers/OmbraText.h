#pragma once

#include <cstdio>
#include <string>

/// One frame of a D file. The defaults are a frame of a sonde on its way; a time is seconds after 12:00:00 on the day.
struct Frame {
    double second = 0.0;
    double pres = 500.0;
    const char* key = "S00";
    double tdry = -5.0;
    double rh = 50.0;
    double wdir = 180.0;
    double wspd = 10.0;
    double dz = -12.0;
    double lon = -80.5;
    double lat = 25.5;
    double alt = 5500.0;
    double sats = 8.0;
    double rh1 = 50.0;
    double rh2 = 50.0;
    double we = 0.5;
    double gpsAlt = 5510.0;
    const char* date = "210801";
};

inline std::string clockText(double second) {
    const int whole = static_cast<int>(second + 43200.0);
    char text[32];
    std::snprintf(text, sizeof text, "%02d%02d%05.2f", whole / 3600, whole / 60 % 60,
                  second + 43200.0 - whole / 60 * 60);
    return text;
}

inline std::string frameText(const Frame& f, bool longFrame = true) {
    char text[300];
    int length = std::snprintf(text, sizeof text,
                               "OMBRA-D01 %s 204715063 %s %s %7.2f %6.2f %6.2f %6.2f %6.2f %6.2f %11.6f %10.6f %8.2f "
                               "%2.0f %6.2f %6.2f",
                               f.key, f.date, clockText(f.second).c_str(), f.pres, f.tdry, f.rh, f.wdir, f.wspd, f.dz,
                               f.lon, f.lat, f.alt, f.sats, f.rh1, f.rh2);
    std::string line(text, static_cast<std::size_t>(length));
    if (longFrame) {
        length = std::snprintf(text, sizeof text, " 999 %5.2f %8.2f", f.we, f.gpsAlt);
        line.append(text, static_cast<std::size_t>(length));
    }
    return line + "\n";
}

/// A comment line: its label and its value.
inline std::string comment(const std::string& label, const std::string& value) {
    std::string line = "OMBRA-T01 COM " + label;
    line.resize(line.size() < 53 ? 53 : line.size() + 1, ' ');
    return line + value + "\n";
}

inline std::string launchLine(double second, const char* sonde = "204715063") {
    return std::string("OMBRA-T01 LAU ") + sonde + " 210801 " + clockText(second) + "\n";
}

inline std::string version16() {
    return "OMBRA-T01 COM FORMAT VERSION NUMBER: 1.6     \n";
}

/// Frames 0.5 s apart: in the cabin at 770 mb up to the fall, falling to 400 mb from 0 s on and growing by 0.5 mb a
/// frame.
inline std::string drop(double from, double to, double fall = 0.0) {
    std::string text;
    for (double second = from; second <= to; second += 0.5) {
        Frame frame;
        frame.second = second;
        frame.key = second < fall ? "P00" : "S00";
        frame.pres = second < fall ? 770.0 : 400.0 + (second - fall);
        text += frameText(frame);
    }
    return text;
}

inline std::string shortDrop() {
    return version16() + launchLine(0.0) + drop(-5.0, 10.0);
}
