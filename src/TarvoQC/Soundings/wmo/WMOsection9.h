#pragma once

#include "WMOsection.h"

/// 51515: altitudes extrapolated to mandatory surfaces, an extrapolated surface pressure, and doubtful heights. Empty
/// without any.
class WMOsection9 : public WMOsection {
public:
    WMOsection9(const Levels& levels, WMOpartType part);

    /// Says that the heights of the surfaces from \p p1 to \p p2 (mb) are doubtful, in place of an earlier word on it.
    void addDoubtfulHts(double p1, double p2);
    /// Takes that back.
    void removeDoubtfulHts();
};
