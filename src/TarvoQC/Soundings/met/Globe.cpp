#include "Globe.h"

#include "Angles.h"

#include <cmath>

bool isOnGlobe(double lat, double lon) {
    return std::abs(lat) <= 90.0 && std::abs(lon) <= 180.0;
}

double kmperdeglat(double lat) {
    const double x = kShortPi * 2.0 * lat / 360.0;
    return 111.13209 - 0.56605 * std::cos(2.0 * x) + 0.00012 * std::cos(4.0 * x) - 2e-6 * std::cos(6.0 * x);
}

double kmperdeglon(double lat) {
    const double x = kShortPi * 2.0 * lat / 360.0;
    return 111.41513 * std::cos(x) - 0.09455 * std::cos(3.0 * x) + 0.00012 * std::cos(5.0 * x);
}
