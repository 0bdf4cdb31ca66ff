#pragma once

namespace skewt {

/// The thermodynamics of the diagram. Temperatures in K, pressures in mb, mixing ratios in g/kg, unless told otherwise.
/// None guards its domain: a pressure at or below the vapour pressure lies outside of it. But all come to an end.
class SkewTMetFormulas {
public:
    /// Saturation vapour pressure over water, mb. Hardy (1998), ITS-90 formulations for vapor pressure.
    double e_sw_hardy_1998(double T) const;

    /// Saturation vapour pressure over water, mb: a table from 210 to 310 K in half kelvins, read linearly, and beyond
    /// it the formula that the table is made of, L(T) linear in T. Accurate to five decimals at the nodes.
    double e_sw_herzegh_1988(double T) const;

    /// Saturation mixing ratio over water.
    double w_sat(double T, double p) const;

    /// The temperature at which air at \p p is saturated with \p w: the inverse of a formula for the vapour pressure.
    double t_mr(double p, double w) const;

    /// Potential temperature: T (1000/p)^0.28537338 by polynomials in 1000/p above 125 mb.
    double theta_dry(double T, double p) const;

    /// Equivalent potential temperature of air with dew point \p Td. Bolton (1980), The Computation of Equivalent
    /// Potential Temperature, equations 15 and 43, over theta_dry().
    double theta_e(double T, double Td, double p) const;

    /// The temperature at which saturated air at \p p has the equivalent potential temperature \p thetaE, to 0.01 K of
    /// the latter. Bisection.
    double t_sat(double thetaE, double p) const;

    /// Temperature of the lifting condensation level. Bolton (1980), equation 15.
    double lcl_temp(double T, double Td) const;
    /// Pressure of the lifting condensation level of air at \p p: where the dry adiabat has come to lcl_temp(), to
    /// 0.01 K.
    double lcl_pres(double T, double Td, double p) const;
    /// Pseudo-adiabatic wet bulb temperature: t_sat() of theta_e().
    double t_wet(double T, double Td, double p) const;
    /// Dew point of air at vapour pressure \p e (mb), the inverse of e_from_dp(): Newton iteration to 0.0001 K.
    double dewpoint(double e) const;
    /// Vapour pressure, mb, of air with dew point \p Td.
    double e_from_dp(double Td) const;
    /// Virtual temperature of air with dew point \p Td.
    double t_v(double T, double Td, double p) const;
    /// The temperature at \p p of air with potential temperature \p theta, the inverse of theta_dry().
    double theta_to_t(double theta, double p) const;

    static double square(double x) { return x * x; }
    static double ten_to_the(double x);
};

} // namespace skewt
