#include "AmbientPoint.h"

#include "DropsondeFallRate.h"
#include "OmbraRHTimeConstant.h"

#include <cmath>

namespace {

constexpr double kDefaultTimeConstants = 5.5; // of RH, without a pressure to tell the time constant by
constexpr double kDefaultPressure = 250.0;    // mb, what an unknown ambient pressure counts as elsewhere

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
    if (_sensor.getSensorType() == SensorType::RS41) {
        const double n = -std::log(std::exp(0.00684 * tdry + 3.057) / (cabinTemp + 4.5 - tdry));
        const double time = (25.385 - 0.1416 * tdry) * n;
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
    const double factor = rh >= 1.0 ? rh : 1.0;
    const double d = 17.67 * std::abs(tdry - cabinTemp) * factor;
    const double ratio = std::log(accuracy / (d * 243.5 / ((tdry + 243.5) * (tdry + 243.5))));
    const double n = ratio <= 0.0 ? -ratio : 0.0;
    return {timeConstant * n, n};
}
