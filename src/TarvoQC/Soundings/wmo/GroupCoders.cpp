#include "GroupCoders.h"

#include "Humidity.h"
#include "Text.h"
#include "Wind.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace {

constexpr double kTopOfTenths = 100.0; ///< mb, up to which pressures are coded in tenths
constexpr double kLargestPPP = 1100.0;
constexpr double kTopOfMetres = 500.0;  ///< mb, above which heights are coded in metres
constexpr double kUncodedSpeed = 900.0; ///< m/s
constexpr int kLargestKnots = 499;      ///< what three digits hold beside the 500 of the direction
constexpr int kWholeDepression = 50;    ///< added to a depression in whole degrees

std::string threeDigits(double n) {
    return stringFormat("%03d", static_cast<int>(n));
}

/// Speed in whole knots; negative when it can't be coded.
int knots(double speed) {
    if (!(speed < kUncodedSpeed)) {
        return -1;
    }
    const double k = std::round(speed * kKnotsPerMetrePerSecond);
    return k >= 0.0 && k <= kLargestKnots ? static_cast<int>(k) : -1;
}

int tens(double degrees) {
    return static_cast<int>(std::abs(degrees)) / 10 + 1;
}

int unitsDigit(double degrees) {
    return static_cast<int>(std::round(std::abs(degrees) * 10.0) / 10.0) % 10;
}

} // namespace

std::string WMOgroup::PPP(double p) {
    const double x = p <= kTopOfTenths ? p * 10.0 : p;
    if (!(x > 0.0 && x <= kLargestPPP)) {
        return "///";
    }
    const double n = std::round(x);
    return threeDigits(n > 999.0 ? n - 1000.0 : n);
}

std::string WMOgroup::PP(double p) {
    const double whole = std::round(p);
    const int n = static_cast<int>(whole >= 100.0 ? whole / 10.0 : whole);
    return n > 99 ? "00" : twoDigits(n);
}

std::string WMOgroup::hhh(double z, double p) {
    if (!std::isfinite(z) || z <= -500.0) {
        return "///";
    }
    double x = 500.0 - z;
    if (z >= 0.0) {
        x = std::fmod(p > kTopOfMetres ? z : z / 10.0, 1000.0);
    }
    x = std::round(x);
    return threeDigits(x >= 1000.0 ? x - 1000.0 : x);
}

std::string WMOgroup::TTT(double t) {
    const double tenths = std::abs(std::round(t * 10.0));
    if (!(tenths < 1000.0)) {
        return "///";
    }
    const int n = static_cast<int>(tenths);
    const int sign = t < 0.0 ? 1 : 0;
    return stringFormat("%03d", n / 2 * 2 + sign);
}

std::string WMOgroup::DD(double t, double rh) {
    const double depression = dewPtDepression(t, rh); // beyond all measure in air without a dew point: 99
    if (!std::isfinite(t) || !std::isfinite(rh) || depression < 0.0) {
        return "//";
    }
    if (depression <= 5.0) {
        return twoDigits(static_cast<int>(std::round(depression * 10.0)));
    }
    const double whole = std::round(depression);
    if (whole < 6.0) {
        return "50";
    }
    return whole > 49.0 ? "99" : twoDigits(static_cast<int>(whole) + kWholeDepression);
}

std::string WMOgroup::fff(double speed, double dir) {
    const int k = knots(speed);
    if (k < 0) {
        return "///";
    }
    const double rest = std::fmod(dir, 10.0);
    return threeDigits(k != 0 && rest > 2.5 && rest <= 7.5 ? k + 500 : k);
}

std::string WMOgroup::dd(double speed, double dir) {
    if (!std::isfinite(dir)) {
        return "//";
    }
    int n = static_cast<int>(dir / 10.0) + (std::fmod(dir, 10.0) > 7.5 ? 1 : 0);
    if (n >= 36) {
        n -= 36;
    }
    const std::string coded = fff(speed, dir);
    if (n == 0 && coded[0] == '0') {
        return "36";
    }
    return coded == "000" ? "00" : twoDigits(n);
}

std::string WMOgroup::nn(int i) {
    return std::string(2, static_cast<char>('0' + i % 10));
}

std::string WMOgroup::twoDigits(int n) {
    return stringFormat("%02d", n);
}

std::string WMOgroup::quadrant(double lat, double lon) {
    if (lat >= 0.0) {
        return lon >= 0.0 ? "1" : "7";
    }
    return lon >= 0.0 ? "3" : "5";
}

std::string WMOgroup::marsden(double lat, double lon, const std::string& quadrant) {
    const int a = std::min(tens(lat), 9);
    const int o = std::min(tens(lon), 18);
    const bool polar = lat >= 80.0;
    int square = 0;
    if (quadrant == "7") {
        square = polar ? o + 900 : o + (a - 1) * 36;
    } else if (quadrant == "1") {
        square = polar ? 937 - o : a * 36 - (o - 1);
    } else if (quadrant == "5") {
        square = o + (a - 1) * 36 + 299;
    } else if (quadrant == "3") {
        square = a * 36 + 299 - (o - 1);
    } else {
        return "/////";
    }
    return threeDigits(square) + std::to_string(unitsDigit(lat)) + std::to_string(unitsDigit(lon));
}

std::string WMOgroup::GeoRegion(double lat, double lon) {
    if (lon > 40.0) {
        return "PA";
    }
    // The western shore of the Americas: what lies at or south of the latitude and west of the longitude is the
    // Pacific.
    struct Corner {
        double lat;
        double lon;
    };
    constexpr std::array<Corner, 5> kPacific{
        {{8.75, -70.0}, {10.0, -83.5}, {14.0, -84.5}, {17.5, -90.0}, {90.0, -100.0}}};
    const bool isPacific = std::any_of(kPacific.begin(), kPacific.end(),
                                       [&](const Corner& corner) { return lat <= corner.lat && lon < corner.lon; });
    return isPacific ? "PN" : "NT";
}

bool WMOgroup::isTimeOfDay(int hour, int minute) {
    return hour >= 0 && hour <= 23 && minute >= 0 && minute <= 59;
}

std::string WMOgroup::GGgg(int hour, int minute) {
    return isTimeOfDay(hour, minute) ? twoDigits(hour) + twoDigits(minute) : "////";
}

std::string WMOgroup::YYGGgg(int day, int hour, int minute) {
    return twoDigits(day) + twoDigits(hour) + twoDigits(minute);
}
