#include "SkewTMetFormulas.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>

namespace skewt {

namespace {

constexpr double kFreezing = 273.15;            // K
constexpr double kMixingRatioFactor = 622.0;    // g/kg, ratio of the molar masses of vapour and dry air
constexpr double kReferencePressure = 1000.0;   // mb
constexpr double kPoissonExponent = 0.28537338; // R/cp of dry air, as the polynomials have it

constexpr int kMostSteps = 5000; // of a search; in air of this earth some hundred at most

/// The range of one polynomial of theta / T in 1000/p, whose centre is the pressure 1000/centre.
struct ThetaRange {
    double above; // mb
    double centre;
    std::array<double, 7> coefficients;
};
constexpr std::array<ThetaRange, 3> kThetaRanges{{
    {500.0,
     1.4285714285714286,
     {1.10714599, 0.22116497, -0.05531763, 0.02213146, -0.01051376, 0.00546766, -0.00300743}},
    {250.0, 2.857142857142857, {1.34930719, 0.13476972, -0.01685425, 0.00337152, -0.00080084, 0.00020824, -5.727e-05}},
    {125.0, 5.714285714285714, {1.64443524, 0.08212365, -0.00513518, 0.00051362, -6.1e-05, 7.93e-06, -1.09e-06}},
}};

/// theta / T at \p p.
double thetaFactor(double p) {
    const double b = kReferencePressure / p;
    for (const ThetaRange& range : kThetaRanges) {
        if (p > range.above) {
            const double d = b - range.centre;
            double sum = 0.0;
            for (auto c = range.coefficients.rbegin(); c != range.coefficients.rend(); ++c) {
                sum = sum * d + *c;
            }
            return sum;
        }
    }
    return std::pow(b, kPoissonExponent);
}

/// Integral of the Clausius-Clapeyron equation with a latent heat that is linear in temperature.
double e_sw_formula(double T) {
    return std::pow(kFreezing / T, 5.0065) * 6.1078 * std::exp((1.0 - kFreezing / T) * 24.84573);
}

constexpr double kTableBegin = 210.0; // K
constexpr double kTableEnd = 310.0;
constexpr double kTableStep = 0.5;
constexpr std::size_t kTableSize = 201;

std::array<double, kTableSize> makeVapourPressures() {
    constexpr double kDecimals = 1e5;
    std::array<double, kTableSize> table{};
    for (std::size_t i = 0; i < table.size(); ++i) {
        table[i] = std::round(kDecimals * e_sw_formula(kTableBegin + kTableStep * static_cast<double>(i))) / kDecimals;
    }
    return table;
}

} // namespace

double SkewTMetFormulas::e_sw_hardy_1998(double T) const {
    return std::exp(-2836.5744 / (T * T) - 6028.076559 / T + 19.54263612 - 0.02737830188 * T + 1.6261698e-5 * T * T +
                    7.0229056e-10 * T * T * T - 1.8680009e-13 * T * T * T * T + 2.7150305 * std::log(T)) /
           100.0;
}

double SkewTMetFormulas::e_sw_herzegh_1988(double T) const {
    if (!(T >= kTableBegin && T <= kTableEnd)) {
        return e_sw_formula(T);
    }
    static const std::array<double, kTableSize> table = makeVapourPressures();
    const double place = (T - kTableBegin) / kTableStep;
    const std::size_t i = std::min(static_cast<std::size_t>(place), table.size() - 2);
    return table[i] + (place - static_cast<double>(i)) * (table[i + 1] - table[i]);
}

double SkewTMetFormulas::w_sat(double T, double p) const {
    const double e = e_sw_hardy_1998(T);
    return kMixingRatioFactor * e / (p - e);
}

double SkewTMetFormulas::t_mr(double p, double w) const {
    const double e = p * w / (w + kMixingRatioFactor);
    const double x = std::log(6.1078 / e) * 10.013 + 393.5950469929;
    return 1367.525475 / (std::sqrt(x) - 14.832730000000002);
}

double SkewTMetFormulas::theta_dry(double T, double p) const {
    return T * thetaFactor(p);
}

double SkewTMetFormulas::theta_e(double T, double Td, double p) const {
    const double w = w_sat(Td, p);
    const double tl = Td > T ? 0.0 : lcl_temp(T, Td);
    return theta_dry(T, p) * std::exp((3.376 / tl - 0.00254) * w * (1.0 + 0.00081 * w));
}

double SkewTMetFormulas::t_sat(double thetaE, double p) const {
    constexpr double kFirstStep = 60.0; // K
    constexpr double kTolerance = 0.01; // K of thetaE
    double T = kFreezing;
    double step = kFirstStep;
    for (int i = 0; i < kMostSteps; ++i) {
        const double miss = thetaE - theta_e(T, T, p);
        if (!(std::abs(miss) > kTolerance)) {
            break;
        }
        step /= 2.0;
        if (T + step == T) { // what lies beyond the steps made so far is reached by a second round
            step = kFirstStep;
        }
        T += miss > 0.0 ? step : -step;
    }
    return T;
}

double SkewTMetFormulas::lcl_temp(double T, double Td) const {
    return 1.0 / (std::log(T / Td) / 800.0 + 1.0 / (Td - 56.0)) + 56.0;
}

double SkewTMetFormulas::lcl_pres(double T, double Td, double p) const {
    constexpr double kTolerance = 0.01; // K
    const double theta = theta_dry(T, p);
    const double tl = lcl_temp(T, Td);
    double miss = tl - T;
    for (int i = 0; i < kMostSteps && std::abs(miss) > kTolerance; ++i) {
        p *= std::pow(2.0, 0.02 * miss);
        miss = tl - theta_to_t(theta, p);
    }
    return p;
}

double SkewTMetFormulas::t_wet(double T, double Td, double p) const {
    return t_sat(theta_e(T, Td, p), p);
}

double SkewTMetFormulas::dewpoint(double e) const {
    constexpr double kTolerance = 1e-4; // K
    constexpr double kSpan = 0.01;      // K, of the slope of ln e
    double T = kFreezing;
    for (double move = 1.0; std::abs(move) > kTolerance; T += move) {
        const double here = std::log(e_from_dp(T));
        const double slope = (std::log(e_from_dp(T + kSpan)) - here) / kSpan;
        move = (std::log(e) - here) / slope;
    }
    return T;
}

double SkewTMetFormulas::e_from_dp(double Td) const {
    return e_sw_hardy_1998(Td);
}

double SkewTMetFormulas::t_v(double T, double Td, double p) const {
    const double w = w_sat(Td, p) / 1000.0; // kg/kg
    return T * (1.0 + w * 1000.0 / kMixingRatioFactor) / (1.0 + w);
}

double SkewTMetFormulas::theta_to_t(double theta, double p) const {
    return theta / thetaFactor(p);
}

double SkewTMetFormulas::ten_to_the(double x) {
    return std::pow(10.0, x);
}

} // namespace skewt
