#pragma once

/// Whether there is such a place: degrees within +-90 and +-180. Not for a missing value, nor for one that isn't a
/// number.
bool isOnGlobe(double lat, double lon);

/// Length of one degree of latitude, km, at latitude \p lat (degrees).
/// Series of the Clarke 1866 ellipsoid: Bowditch, American Practical Navigator, table of the length of a degree. The
/// term in cos(4 lat) is a tenth of the published one, as in earlier products; that costs 1.1 m a degree at most.
double kmperdeglat(double lat);

/// Length of one degree of longitude, km, at latitude \p lat (degrees). Same source.
double kmperdeglon(double lat);
