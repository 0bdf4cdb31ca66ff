#pragma once

#include "SndMetaData.h"
#include "WMOsection.h"

/// 31313: the sounding system and the time of launch.
class WMOsection7 : public WMOsection {
public:
    WMOsection7(const Levels& levels, WMOpartType part, const SndMetaData& meta);
};
