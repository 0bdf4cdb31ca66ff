#include "Wind.h"

#include "Angles.h"

#include <cmath>

void SpeedDir(double u, double v, double& spd, double& dir) {
    spd = std::sqrt(u * u + v * v);
    if (u == 0.0 && v == 0.0) {
        dir = 0.0;
        return;
    }
    dir = 450.0 - std::atan2(-v, -u) * 180.0 / kShortPi;
    if (dir < 0.0) {
        dir += 360.0;
    }
    if (dir >= 360.0) {
        dir -= 360.0;
    }
}

void UandV(double spd, double dir, double& u, double& v) {
    const double angle = (450.0 - dir) * kShortPi / 180.0;
    u = -std::cos(angle) * spd;
    v = -std::sin(angle) * spd;
}
