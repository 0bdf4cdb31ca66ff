#pragma once

/// Thermodynamic formulas with temperatures in kelvin and pressures in mb. None guards its domain: a pressure at or
/// below the vapour pressure, or a temperature of 0 K, lies outside of it.
class MetFormulas {
public:
    MetFormulas() = default;
    virtual ~MetFormulas() = default;

    /// Saturation vapour pressure over water, mb, at \p T (K). Hardy (1998), ITS-90 formulations for vapor pressure.
    double e_sw_hardy_1998(double T) const;

    /// Saturation mixing ratio over water, g/kg, at \p T (K) and \p p (mb), over e_sw_hardy_1998().
    double w_sat(double T, double p) const;

    /// Potential temperature of dry air, K, reference pressure 1000 mb, exponent 2/7 (Poisson's equation).
    double theta_dry(double T, double p) const;

    /// Equivalent potential temperature, K, of air at \p T with dew point \p Td (K; callers ensure Td <= T) and \p p
    /// (mb). Bolton (1980), The Computation of Equivalent Potential Temperature, equations 15 and 43,
    /// but over theta_dry(): without the moist exponent.
    double theta_e(double T, double Td, double p) const;
};

/// The one instance that the free functions share.
const MetFormulas& metFormulas();
