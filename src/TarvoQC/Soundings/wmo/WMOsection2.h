#pragma once

#include "WMOsection.h"

/// The surface (part A) and the standard levels. Tagged ones keep their places with slashes.
class WMOsection2 : public WMOsection {
public:
    WMOsection2(const Levels& levels, WMOpartType part);

private:
    void addSurface();
    void addStandardLevels();
};
