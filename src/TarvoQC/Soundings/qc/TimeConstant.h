#pragma once

/// The time constant of a sensor over the flight.
class TimeConstant {
public:
    virtual ~TimeConstant() = default;
    /// The time constant, s, at \p time (s from launch). False when none can be given.
    virtual bool value(double time, double& out) const = 0;
};
