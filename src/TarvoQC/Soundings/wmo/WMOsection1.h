#pragma once

#include "SndMetaData.h"
#include "WMOsection.h"

/// Identification of a part: code form, time and place of the sounding.
class WMOsection1 : public WMOsection {
protected:
    WMOsection1(const Levels& levels, WMOpartType part);

    /// Opens the part: the code form, such as "TT", and the letters of the part, with a blank of its own.
    void addPart(const std::string& codeForm);
    /// Day and hour of the launch, to the nearest hour; \p dayOffset is 50 for winds in knots.
    std::string dateGroup(const SndMetaData& meta, int dayOffset, const std::string& last) const;
    /// What ends the date group: Id, the radiosonde of part B, or a slash.
    std::string dateSuffix(const SndMetaData& meta) const;
    /// 99LaLaLa, QcLoLoLoLo and MMMULaULo, with slashes for a position that is missing or none. Degrees.
    void addPosition(double lat, double lon);
};

/// Of TEMP, TEMP SHIP and TEMP MOBIL.
class WMOsection1temp : public WMOsection1 {
public:
    WMOsection1temp(const Levels& levels, WMOpartType part, TempMsgType message, const SndMetaData& meta);
};

/// Of TEMP DROP. Without a launch position it takes that at the top of the sounding.
class WMOsection1tempdrop : public WMOsection1 {
public:
    WMOsection1tempdrop(const Levels& levels, WMOpartType part, const SndMetaData& meta);
};
