#include "AmbientPoint.h"

#include "DropsondeFallRate.h"
#include "OmbraRHTimeConstant.h"

#include <cmath>

namespace {

constexpr double kDefaultTimeConstants = 5.5; // of RH, without a pressure to tell the time constant by
constexpr double kDefaultPressure = 250.0;    // mb, what an unknown ambient pressure counts as elsewhere

// The RH sensor of the RS41 goes by fits over the ambient temperature t (deg C), whose source isn't known: its time
// constant is kRS41Time - kRS41TimeSlope t, and what is left of the temperature difference when it has settled, in K,
// exp(kRS41Settled + kRS41SettledSlope t).
constexpr double kRS41Time = 25.385;          // s
constexpr double kRS41TimeSlope = 0.1416;     // s/K
constexpr double kRS41Settled = 3.057;        // logarithm of K
constexpr double kRS41SettledSlope = 0.00684; // 1/K
constexpr double kRS41AboveCabin = 4.5;       // K, added to the temperature of the cabin

// Saturation vapour pressure over water goes as exp(kMagnusFactor t / (t + kMagnusOffset)), t in deg C. Bolton (1980),
// The Computation of Equivalent Potential Temperature, equation 10.
constexpr double kMagnusFactor = 17.67;
constexpr double kMagnusOffset = 243.5; // K

constexpr double kLeastRH = 1.0; // %, what less than that counts as

} // namespace

double AmbientPoint::numTimeConstants(double difference, double accuracy) {
    if (difference == 0.0) {
        return 0.0;
    }
    const double ratio = std::log(std::abs(accuracy) / std::abs(difference));
    return ratio > 0.0 ? 0.0 : -ratio;
}

AmbientPoint::Equilibration AmbientPoint::temperature(const Series* tdrySeries, const Series* presSeries,
                                                      double pressure, double tdry, double cabinTemp, double accuracy,
                                                      double mass, double chuteArea, double dragCoef) const {
    if (tdrySeries->empty() || presSeries->empty() || cabinTemp == tdry) {
        return {};
    }
    const double fall = DropsondeFallRate::value(pressure, tdry, chuteArea, dragCoef, mass);
    const double n = numTimeConstants(cabinTemp - tdry, accuracy);
    const double time = _sensor.value(pressure, tdry, fall) * n;
    return std::isfinite(time) ? Equilibration{time, n} : Equilibration{}; // air that no sensor can meet
}

AmbientPoint::Equilibration AmbientPoint::RH(const Series* rhSeries, const Series* presSeries, double rh, double tdry,
                                             double cabinTemp, double accuracy) const {
    if (rhSeries->empty()) {
        return {};
    }
    if (_sensor.getSensorType() == SensorType::RS41) {
        const double n =
            -std::log(std::exp(kRS41SettledSlope * tdry + kRS41Settled) / (cabinTemp + kRS41AboveCabin - tdry));
        const double time = (kRS41Time - kRS41TimeSlope * tdry) * n;
        return std::isfinite(time) ? Equilibration{time, n} : Equilibration{}; // outside is warmer than the cabin
    }
    const double first = rhSeries->time(0);
    if (accuracy <= 0.0 || tdry == cabinTemp) {
        return {first, 0.0};
    }
    const OmbraRHTimeConstant sensor(presSeries);
    double timeConstant = 0.0;
    if (!sensor.value(first, timeConstant) &&
        (presSeries->empty() || !sensor.value(presSeries->time(0), timeConstant))) {
        return {first + kDefaultTimeConstants * OmbraRHTimeConstant::atPressure(kDefaultPressure),
                kDefaultTimeConstants};
    }
    // The RH that a sensor of the cabin's temperature is off, to the first order in the difference.
    const double d = kMagnusFactor * std::abs(tdry - cabinTemp) * (rh >= kLeastRH ? rh : kLeastRH);
    const double ratio = std::log(accuracy / (d * kMagnusOffset / ((tdry + kMagnusOffset) * (tdry + kMagnusOffset))));
    const double n = ratio <= 0.0 ? -ratio : 0.0;
    return {timeConstant * n, n};
}
