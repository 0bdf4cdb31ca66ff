#pragma once

#include "Series.h"

/// Corrects a wind component for the inertia of the falling sonde, which takes on the wind with a delay of its fall
/// rate over gravity.
class DynWindAdjustment {
public:
    virtual ~DynWindAdjustment() = default;

    /// Corrects \p component (m/s) by the acceleration on the smooth curve of \p wavelength (s) and the fall rates \p
    /// dz (m/s). Over the last 4 s the wavelength goes down to 4 s. Launch and surface observations stay, as do values
    /// without a fall rate within 60 s. False, and nothing changed, for fewer than 3 values or a curve that can't be
    /// fitted.
    bool adjust(const Series* dz, Series* component, double wavelength) const;
};
