#pragma once

#include "SensorType.h"

/// The time constant of a temperature sensor as a cylinder in the air stream.
class RSTdryTC {
public:
    using T_SENSOR_TYPE = SensorType;

    explicit RSTdryTC(T_SENSOR_TYPE type) : _type(type) {}
    virtual ~RSTdryTC() = default;

    T_SENSOR_TYPE getSensorType() const { return _type; }
    /// Time constant, s, at \p pressure (mb), \p tdry (deg C) and a ventilation of \p fallRate (m/s, its sign doesn't
    /// matter).
    double value(double pressure, double tdry, double fallRate) const;

private:
    T_SENSOR_TYPE _type;
};
