#include "RSTdryTC.h"

#include "Humidity.h"

#include <cmath>

namespace {

struct SensorConstants {
    double diameter;     ///< m
    double heatCapacity; ///< kcal/K
    double surface;      ///< m2
};

constexpr SensorConstants kThinWire{0.00013, 8.5532e-8, 6.3e-7}; // RS90 and RS92
constexpr SensorConstants kBead{0.00215, 2.6e-6, 1.4e-5};
constexpr double kRS41Factor = 0.25;   // of the bead's time constant
constexpr double kGasConstant = 287.0; // J/(kg K), dry air

// Viscosity of air, kg/(m s), as kViscosity T^1.5 / (T + kSutherland): Sutherland (1893) with the constants of the U.S.
// Standard Atmosphere (1976).
constexpr double kViscosity = 1.458e-6; // kg/(m s K^0.5)
constexpr double kSutherland = 110.4;   // K

// Conductivity of air, kcal/(m s K), in the form of the same standard, kConductivity T^1.5 / (T + 245.4 * 10^(-12/T)),
// but with the other sign of the exponent, as the time constants have always been computed.
constexpr double kConductivity = 6.325e-7;     // kcal/(m s K^1.5); the 2.64638e-3 W of the standard
constexpr double kConductivityT = 245.4;       // K
constexpr double kConductivityExponent = 12.0; // K

// Nusselt number of a sphere in a gas, 0.37 times the power 0.6 of the Reynolds number: McAdams (1954), Heat
// Transmission.
constexpr double kNusselt = 0.37;
constexpr double kReynoldsPower = 0.6;

} // namespace

double RSTdryTC::value(double pressure, double tdry, double fallRate) const {
    const SensorConstants& c = _type == SensorType::RS90 ? kThinWire : kBead;
    const double Tk = toKelvin(tdry);
    const double k = std::pow(Tk, 1.5);
    const double a = std::pow(10.0, kConductivityExponent / Tk);
    const double density = pressure * 100.0 / (kGasConstant * Tk);
    const double viscosity = k * kViscosity / (kSutherland + Tk);
    const double flow = std::pow(c.diameter * density * std::abs(fallRate) / viscosity, kReynoldsPower);
    const double conductivity = k * kConductivity / (a * kConductivityT + Tk);
    const double timeConstant = c.heatCapacity / (conductivity * (flow * kNusselt) / c.diameter * c.surface);
    return _type == SensorType::RS41 ? timeConstant * kRS41Factor : timeConstant;
}
