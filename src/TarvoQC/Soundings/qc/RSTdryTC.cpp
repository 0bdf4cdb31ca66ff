#include "RSTdryTC.h"

#include "Humidity.h"

#include <cmath>

namespace {

struct SensorConstants {
    double diameter;
    double heat;
    double exchange;
};

constexpr SensorConstants kThinWire{0.00013, 8.5532e-8, 6.3e-7}; // RS90 and RS92
constexpr SensorConstants kBead{0.00215, 2.6e-6, 1.4e-5};
constexpr double kRS41Factor = 0.25;   // of the bead's time constant
constexpr double kGasConstant = 287.0; // J/(kg K), dry air

} // namespace

double RSTdryTC::value(double pressure, double tdry, double fallRate) const {
    const SensorConstants& c = _type == SensorType::RS90 ? kThinWire : kBead;
    const double Tk = toKelvin(tdry);
    const double k = std::pow(Tk, 1.5);
    const double a = std::pow(10.0, 12.0 / Tk);
    const double density = pressure * 100.0 / (kGasConstant * Tk);
    const double viscosity = k * 1.458e-6 / (110.4 + Tk);
    const double flow = std::pow(c.diameter * density * std::abs(fallRate) / viscosity, 0.6);
    const double conductivity = k * 6.325e-7 / (a * 245.4 + Tk);
    const double timeConstant = c.heat / (conductivity * (flow * 0.37) / c.diameter * c.exchange);
    return _type == SensorType::RS41 ? timeConstant * kRS41Factor : timeConstant;
}
