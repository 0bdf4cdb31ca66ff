#include "Humidity.h"

#include "MetFormulas.h"
#include "Missing.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double kKelvin = 273.15;                     // K at 0 deg C
constexpr double kVapourDeficit = 0.37806393702962093; // 1 less the ratio of the molar masses of vapour and dry air

// Vapour pressure over water, mb, as 10^(A - B/T), and B ln(10), its logarithmic slope times T squared.
constexpr double kVapourA = 9.4051;
constexpr double kVapourB = 2353.0;       // K
constexpr double kVapourSlope = 5417.98;  // K
constexpr double kDewPtTolerance = 0.005; // K
constexpr int kDewPtMaxSteps = 1000;      // a dew point takes a few dozen at most; without one the steps have no end

// Goff and Gratch (1946): the steam point, and the logarithm of the pressure there, 1013.246 mb.
constexpr double kSteamPoint = 373.16; // K
constexpr double kLogSteamPressure = 3.0057148979490314;
constexpr double kMassRatio = 0.62197; // of vapour and dry air, as qsatw() takes it; kVapourDeficit has 0.62194

double virtualTemperature(double p, double Tk, double e) {
    return Tk / (1.0 - e / (p - e) * kVapourDeficit);
}

template <typename... Columns>
bool present(int i, Columns... columns) {
    return ((columns[i] > kMissing) && ...);
}

} // namespace

double toKelvin(double t) {
    return t + kKelvin;
}

double dewPt(double t, double rh) {
    const double Tk = toKelvin(t);
    double E = std::pow(10.0, kVapourA - kVapourB / Tk);
    const double e = rh * 0.01 * E;
    double x = Tk;
    double previous = 0.0;
    for (int step = 0; step < kDewPtMaxSteps; ++step) {
        const double next = (e - E) / (E * kVapourSlope / (x * x)) + x;
        if (!std::isfinite(next)) {
            return kMissing;
        }
        E = std::pow(10.0, kVapourA - kVapourB / next);
        if (std::abs(previous - next) < kDewPtTolerance) {
            const double depression = Tk - next;
            return std::min(t, (Tk - kKelvin) - depression);
        }
        x = next;
        previous = next;
    }
    return kMissing;
}

double dewPtDepression(double t, double rh) {
    return t - dewPt(t, rh);
}

double rh(double t, double dp, double p) {
    return metFormulas().w_sat(toKelvin(dp), p) / metFormulas().w_sat(toKelvin(t), p) * 100.0;
}

std::vector<double> makeDp(int n, const double* tdry, const double* rh) {
    std::vector<double> dp(static_cast<std::size_t>(std::max(n, 0)), kMissing);
    for (int i = 0; i < n; ++i) {
        if (tdry[i] != kMissing && rh[i] != kMissing) {
            dp[static_cast<std::size_t>(i)] = dewPt(tdry[i], rh[i]);
        }
    }
    return dp;
}

double Tv(double p, double t, double rh) {
    const double Tk = toKelvin(t);
    return virtualTemperature(p, Tk, rh / 100.0 * metFormulas().e_sw_hardy_1998(Tk));
}

double qsatw(double Tk, double p) {
    const double x = kSteamPoint / Tk;
    const double logEs = kLogSteamPressure - 7.90298 * (x - 1.0) + 5.02808 * std::log10(x) -
                         1.3816e-7 * (std::pow(10.0, 11.344 * (1.0 - Tk / kSteamPoint)) - 1.0) +
                         8.1328e-3 * (std::pow(10.0, -3.49149 * (x - 1.0)) - 1.0);
    const double es = std::pow(10.0, logEs);
    return kMassRatio * es / (p - es);
}

void dpArray(const double* tdry, const double* rh, double* out, int n) {
    for (int i = 0; i < n; ++i) {
        out[i] = present(i, tdry, rh) ? dewPt(tdry[i], rh[i]) : kMissing;
    }
}

void mrArray(const double* dp, const double* pres, double* out, int n) {
    for (int i = 0; i < n; ++i) {
        out[i] = present(i, dp, pres) ? metFormulas().w_sat(toKelvin(dp[i]), pres[i]) : kMissing;
    }
}

void thetaArray(const double* tdry, const double* pres, double* out, int n) {
    for (int i = 0; i < n; ++i) {
        out[i] = present(i, tdry, pres) ? metFormulas().theta_dry(toKelvin(tdry[i]), pres[i]) : kMissing;
    }
}

void thetaEArray(const double* tdry, const double* dp, const double* pres, double* out, int n) {
    for (int i = 0; i < n; ++i) {
        out[i] =
            present(i, tdry, dp, pres) ? metFormulas().theta_e(toKelvin(tdry[i]), toKelvin(dp[i]), pres[i]) : kMissing;
    }
}

void tvArray(const double* tdry, const double* rh, const double* pres, double* out, int n) {
    for (int i = 0; i < n; ++i) {
        out[i] = present(i, tdry, rh, pres) ? Tv(pres[i], tdry[i], rh[i]) : kMissing;
    }
}

void thetaVArray(const double* vt, const double* pres, double* out, int n) {
    for (int i = 0; i < n; ++i) {
        out[i] = present(i, vt, pres) ? metFormulas().theta_dry(vt[i], pres[i]) : kMissing;
    }
}

void floatFromDouble(const double* in, float* out, int n, bool reverse) {
    for (int i = 0; i < n; ++i) {
        out[i] = static_cast<float>(in[reverse ? n - 1 - i : i]);
    }
}
