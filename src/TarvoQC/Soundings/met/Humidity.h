#pragma once

#include <vector>

// Humidity and virtual temperature. Temperatures in deg C unless the name says kelvin (Tk), pressure in mb, RH in
// percent, mixing ratio in g/kg.

/// \p t (deg C) in kelvin.
double toKelvin(double t);

/// Dew point, deg C, of air at \p t (deg C) and \p rh (%), never above \p t: Newton iteration on the vapour pressure
/// over water 10^(9.4051 - 2353/T), to 0.005 K. Air without a dew point (RH of 0 or less, a value that isn't a finite
/// number) gives the missing value -999.0.
double dewPt(double t, double rh);

/// Dew point depression, deg C: \p t less its dewPt().
double dewPtDepression(double t, double rh);

/// RH, %, of air at \p t with dew point \p dp (deg C) and pressure \p p (mb): the ratio of the mixing ratios.
double rh(double t, double dp, double p);

/// The dew points of \p n pairs of temperature (deg C) and RH (%); -999.0 in either gives -999.0.
std::vector<double> makeDp(int n, const double* tdry, const double* rh);

/// Virtual temperature, K, of air at \p p (mb, above the vapour pressure), \p t (deg C) and \p rh (%), over the
/// saturation vapour pressure of Hardy (1998). As it has always been computed here, with e / (p - e) where the
/// definition has e / p.
double Tv(double p, double t, double rh);

/// Saturation mixing ratio over water, kg/kg, at \p Tk (K) and \p p (mb, above the vapour pressure). Goff and Gratch
/// (1946).
double qsatw(double Tk, double p);

// Whole columns of \p n values. An output element is -999.0 unless every input at its index is above -999.0.

/// Dew point, deg C, from temperature (deg C) and RH (%).
void dpArray(const double* tdry, const double* rh, double* out, int n);
/// Mixing ratio, g/kg, from dew point (deg C) and pressure (mb).
void mrArray(const double* dp, const double* pres, double* out, int n);
/// Potential temperature, K, from temperature (deg C) and pressure (mb).
void thetaArray(const double* tdry, const double* pres, double* out, int n);
/// Equivalent potential temperature, K, from temperature, dew point (deg C) and pressure (mb).
void thetaEArray(const double* tdry, const double* dp, const double* pres, double* out, int n);
/// Virtual temperature, K, from temperature (deg C), RH (%) and pressure (mb).
void tvArray(const double* tdry, const double* rh, const double* pres, double* out, int n);
/// Virtual potential temperature, K, from virtual temperature (K) and pressure (mb).
void thetaVArray(const double* vt, const double* pres, double* out, int n);

/// Copies \p n values narrowing each to single precision, last first when \p reverse.
void floatFromDouble(const double* in, float* out, int n, bool reverse);
