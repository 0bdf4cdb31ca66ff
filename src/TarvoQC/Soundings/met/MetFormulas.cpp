#include "MetFormulas.h"

#include <cmath>

namespace {

constexpr double kPoissonExponent = 0.2857142857142857; // R/cp of dry air, 2/7
constexpr double kReferencePressure = 1000.0;           // mb
constexpr double kMixingRatioFactor = 622.0;            // g/kg, ratio of the molar masses of vapour and dry air

} // namespace

double MetFormulas::e_sw_hardy_1998(double T) const {
    return std::exp(-2836.5744 / (T * T) - 6028.076559 / T + 19.54263612 - 0.02737830188 * T + 1.6261698e-5 * T * T +
                    7.0229056e-10 * T * T * T - 1.8680009e-13 * T * T * T * T + 2.7150305 * std::log(T)) /
           100.0;
}

double MetFormulas::w_sat(double T, double p) const {
    const double e = e_sw_hardy_1998(T);
    return kMixingRatioFactor * e / (p - e);
}

double MetFormulas::theta_dry(double T, double p) const {
    return T * std::pow(kReferencePressure / p, kPoissonExponent);
}

double MetFormulas::theta_e(double T, double Td, double p) const {
    const double w = w_sat(Td, p);
    const double lclTemperature = 1.0 / (std::log(T / Td) / 800.0 + 1.0 / (Td - 56.0)) + 56.0;
    return theta_dry(T, p) * std::exp((3.376 / lclTemperature - 0.00254) * w * (1.0 + 0.00081 * w));
}

const MetFormulas& metFormulas() {
    static const MetFormulas formulas;
    return formulas;
}
