#pragma once

#include "WMOsection.h"

/// The maximum wind with its shear. A maximum whose wind was withdrawn has no groups at all.
class WMOsection4 : public WMOsection {
public:
    WMOsection4(const Levels& levels, WMOpartType part);

private:
    std::vector<Level> select(LevelType type) const;
};
