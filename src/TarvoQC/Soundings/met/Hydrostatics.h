#pragma once

// The hydrostatic equation between two levels of moist air, integrated to the hypsometric equation with one mean
// virtual temperature. Pressures in mb and above the vapour pressure, temperatures in deg C, RH in percent, heights in
// m.

/// Thickness, m, from level 1 to level 2, positive when \p p2 is below \p p1. The mean virtual temperature of the layer
/// is weighted with the logarithms of the two pressures.
double deltaZ(double p1, double p2, double t1, double t2, double rh1, double rh2);

/// Pressure, mb, at height \p z2, given the pressure \p p at height \p z1: one estimate with the dry mean temperature,
/// then one with the moist. Equal heights give \p p. The hydrostatic constant differs from that of deltaZ() on purpose.
double hydroP(double p, double t1, double t2, double rh1, double rh2, double z1, double z2);
