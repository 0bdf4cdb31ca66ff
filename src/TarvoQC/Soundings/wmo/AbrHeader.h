#pragma once

#include "WMOsection.h"

/// The abbreviated header line of a message.
class AbrHeader : public WMOsection {
public:
    /// A header to be filled in: the station "UZxx13" at time 0, unless the processing time is overridden.
    AbrHeader(const Levels& levels, WMOpartType part);

    /// Replaces the groups by the one of build().
    void create(const std::string& icao, const std::string& bbb, int day, int hour, int minute, double lat, double lon,
                const std::string& override);

    /// "UZ", the area of the position (degrees) and "13", or \p override in place of all that; the station, day, hour
    /// and minute, and \p bbb when there is one. The environment variable TARVO_OVERRIDE_PROCESSING_TIME (s since
    /// 1970) takes the place of the time.
    static std::string build(const std::string& icao, const std::string& bbb, int day, int hour, int minute, double lat,
                             double lon, const std::string& override);
    static std::string YYGGgg(int day, int hour, int minute);
    static std::string region(double lat, double lon);
};
