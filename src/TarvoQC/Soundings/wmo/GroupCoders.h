#pragma once

#include <string>

/// The single groups of the code forms FM 35 to 38 (WMO Manual on Codes, volume I.1). What can't be coded is slashes.
namespace WMOgroup {

/// Three digits of pressure, mb: whole millibars, or tenths from 100 mb up. 1013.2 is "013", 99.4 is "994".
std::string PPP(double p);
/// The indicator of a standard level, from its pressure, mb: 1000 is "00", 850 is "85", 70 is "70".
std::string PP(double p);
/// Three digits of the geopotential height \p z (m) of the level \p p (mb): metres below 500 mb, tens of metres from
/// there up, without the thousands or ten thousands; a height below zero counts 500 on.
std::string hhh(double z, double p);
/// Three digits of temperature, deg C, in tenths; the last one is even from zero up and odd below.
std::string TTT(double t);
/// Two digits of dew point depression, from temperature (deg C) and RH (%): tenths up to 5 degrees, from there whole
/// degrees and 50.
std::string DD(double t, double rh);
/// Wind direction (degrees) in tens of degrees, and speed (m/s) in knots. The hundreds of the speed carry 5 when the
/// direction lies nearer to the fives: directions are coded to 5 degrees.
std::string dd(double speed, double dir);
std::string fff(double speed, double dir);
/// The number of a significant level: the last digit of \p i twice.
std::string nn(int i);
/// Two digits.
std::string twoDigits(int n);

/// Quadrant of the globe (code table 3333): "1" NE, "3" SE, "5" SW, "7" NW. Degrees.
std::string quadrant(double lat, double lon);
/// Marsden square MMM and the units digits of latitude and longitude, by that quadrant. Degrees.
std::string marsden(double lat, double lon, const std::string& quadrant);

/// The area of an abbreviated header: "PA" and "PN" the Pacific, "NT" the Atlantic. Degrees.
std::string GeoRegion(double lat, double lon);
bool isTimeOfDay(int hour, int minute);
/// Hour and minute of a time of day; slashes for what is none.
std::string GGgg(int hour, int minute);
/// The group of the abbreviated header.
std::string YYGGgg(int day, int hour, int minute);

} // namespace WMOgroup
