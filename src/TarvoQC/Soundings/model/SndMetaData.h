#pragma once

#include "LaunchParameter.h"

#include <cstdint>
#include <string>

/// What a sounding is, apart from its series: the launch observation, date, sonde, platform and people. Units as in the
/// series: mb, deg C, %, m/s, degrees, m.
struct SndMetaData {
    virtual ~SndMetaData() = default;

    LaunchParameter launchPres;
    LaunchParameter launchTdry;
    LaunchParameter launchRH;
    LaunchParameter launchWspd;
    LaunchParameter launchWdir;
    LaunchParameter launchAlt;
    LaunchParameter launchGpsAlt;
    LaunchParameter launchLat;
    LaunchParameter launchLon;
    std::string callSign = "//// ";
    int sec = 0;
    int min = 0;
    int hour = 0;
    int day = 0;
    int month = 0; ///< 1 to 12
    int year = 0;  ///< four digits
    std::string WMOequipType = "/";
    std::string WMOsondeType = "//";
    std::string WMOtrackingType = "//";
    std::string WMOradCorrection = "0";
    bool ascending = true;
    std::int64_t launchTime = 0; ///< s since 1970, UTC
    std::string agency;
    std::string platformType;
    std::string platformId;
    std::string sondeId;
    std::string sondeModel;
    std::string comments;
    std::string project;
    std::string flight;
    std::string siteId;
    std::string sysOperator;
    std::string dataType;
    std::string BSN = "99999";    ///< block and station number
    double ptuWindTimeDiff = 0.0; ///< s
    std::string launchObsSource;
    std::string launchObsTime;
    std::int64_t unixLaunchObsTime = 0; ///< s since 1970, UTC
};
