#pragma once

#include "WMOsection.h"

/// The tropopauses, lowest first.
class WMOsection3 : public WMOsection {
public:
    WMOsection3(const Levels& levels, WMOpartType part);
};
