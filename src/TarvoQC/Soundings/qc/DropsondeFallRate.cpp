#include "DropsondeFallRate.h"

#include "Humidity.h"

#include <cmath>

namespace {

constexpr double kGravity = 9.8;       // m/s2, as the fall speed has always been computed
constexpr double kGasConstant = 287.0; // J/(kg K), dry air

} // namespace

double DropsondeFallRate::value(double pressure, double tdry, double chuteArea, double dragCoef, double mass) {
    const double density = pressure * 100.0 / (toKelvin(tdry) * kGasConstant);
    return std::sqrt(2.0 * (mass / 1000.0) * kGravity / (density * dragCoef * (chuteArea / 10000.0)));
}
