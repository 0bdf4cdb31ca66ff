#pragma once

#include "RSTdryTC.h"
#include "Series.h"

/// When the sensors of a dropsonde have settled from the air of the cabin to the air outside.
class AmbientPoint {
public:
    /// The time from launch, s, and how many time constants that is.
    struct Equilibration {
        double time = 0.0;
        double timeConstants = 0.0;
    };

    explicit AmbientPoint(RSTdryTC::T_SENSOR_TYPE type) : _sensor(type) {}
    virtual ~AmbientPoint() = default;

    /// How many time constants it takes until \p difference has gone down to \p accuracy; 0 when it is there already.
    static double numTimeConstants(double difference, double accuracy);

    /// For temperature to within \p accuracy (deg C), from the ambient \p pressure (mb) and \p tdry (deg C) and the
    /// \p cabinTemp (deg C), for a sonde of \p mass (g) under a parachute of \p chuteArea (cm2) and \p dragCoef.
    /// Nothing for an empty series, or when the time wouldn't be finite.
    Equilibration temperature(const Series* tdrySeries, const Series* presSeries, double pressure, double tdry,
                              double cabinTemp, double accuracy, double mass, double chuteArea, double dragCoef) const;
    /// For RH to within \p accuracy (%), from the ambient \p rh (%) and \p tdry (deg C) and the \p cabinTemp (deg C).
    /// Nothing for an empty \p rhSeries.
    Equilibration RH(const Series* rhSeries, const Series* presSeries, double rh, double tdry, double cabinTemp,
                     double accuracy) const;

private:
    RSTdryTC _sensor;
};
