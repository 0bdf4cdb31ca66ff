#pragma once

#include "Missing.h"

/// One value of the launch observation, with its override state.
class LaunchParameter {
public:
    virtual ~LaunchParameter() = default;

    double value() const { return _value; }

    /// Takes the value from the file.
    void set(double v);
    /// With \p v missing (no override) the value of the file is back in force and \p ignore decides whether it is
    /// ignored. Any other \p v is an override: it is in force, and never ignored.
    void adjust(double v, bool ignore);
    /// Whether there is a value; one that is ignored counts only with \p includeIgnored.
    bool avail(bool includeIgnored) const;

private:
    double _value = kMissing;
    double _original = kMissing;
    bool _available = false;
    bool _ignored = false;
};
