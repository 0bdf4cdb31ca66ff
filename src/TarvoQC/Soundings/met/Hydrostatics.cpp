#include "Hydrostatics.h"

#include "Humidity.h"

#include <cmath>

namespace {

constexpr double kThicknessConstant = 0.034164; // K/m, gravity over the gas constant of dry air, as deltaZ() takes it
constexpr double kPressureConstant = 0.03414;   // K/m, the same quantity as hydroP() takes it
constexpr double kVirtualFactor = 0.609;        // what vapour adds to the virtual temperature, by mixing ratio, kg/kg

} // namespace

double deltaZ(double p1, double p2, double t1, double t2, double rh1, double rh2) {
    const double log1 = std::log(std::abs(p1));
    const double log2 = std::log(std::abs(p2));
    const double mean = (log1 * Tv(p1, t1, rh1) + log2 * Tv(p2, t2, rh2)) / (log1 + log2);
    return -(mean / kThicknessConstant) * std::log(std::abs(p2) / p1);
}

double hydroP(double p, double t1, double t2, double rh1, double rh2, double z1, double z2) {
    if (z1 == z2) {
        return p;
    }
    const double d = (z1 - z2) * kPressureConstant;
    const double T1 = toKelvin(t1);
    const double T2 = toKelvin(t2);
    const double ratio = std::exp(d / (2.0 * T1 * T2 / (T1 + T2)));
    const double q1 = qsatw(T1, p);
    const double q2 = qsatw(T2, ratio * p);
    const double a = std::log(std::abs(p));
    const double b = std::log(std::abs(ratio * p));
    const double mean =
        ((1.0 + q2 * rh2 * 0.01 * kVirtualFactor) * T2 * b + (1.0 + q1 * rh1 * 0.01 * kVirtualFactor) * T1 * a) /
        (a + b);
    return p * std::exp(d / mean);
}
