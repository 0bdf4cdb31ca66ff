#pragma once

#include "SensorType.h"

/// The time constant of a temperature sensor in the air stream: its heat capacity over the heat that its surface
/// exchanges with the air, for each degree.
class RSTdryTC {
public:
    using T_SENSOR_TYPE = SensorType;

    explicit RSTdryTC(T_SENSOR_TYPE type) : _type(type) {}
    virtual ~RSTdryTC() = default;

    T_SENSOR_TYPE getSensorType() const { return _type; }
    /// Time constant, s, at \p pressure (mb, above 0), \p tdry (deg C, above absolute zero) and a ventilation of
    /// \p fallRate (m/s, its sign doesn't matter); infinite without a ventilation.
    double value(double pressure, double tdry, double fallRate) const;

private:
    T_SENSOR_TYPE _type;
};
