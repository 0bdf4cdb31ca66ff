#pragma once

/// From m/s to knots, in levels and messages. The exact factor is 1.9438; the XY graph takes 1.944, and a message is
/// read back with 0.5144 m/s to the knot, as products and pictures have always had them.
constexpr double kKnotsPerMetrePerSecond = 1.94;

// Wind in its two forms. The angles of a direction count from north through east, and tell where the wind comes from.
// All of these take pi as 3.14159, so that a wind from due north may come out as 359.99992 and not 0.

/// Speed (m/s) and direction (degrees, 0 <= dir < 360) of the wind whose eastward and northward components are \p u and
/// \p v (m/s). A wind of exactly zero has the direction 0.
void SpeedDir(double u, double v, double& spd, double& dir);

/// Eastward and northward components (m/s) of a wind of \p spd (m/s) from \p dir (degrees).
void UandV(double spd, double dir, double& u, double& v);
