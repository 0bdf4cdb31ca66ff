#pragma once

#include "BSpline.h"
#include "Series.h"

/// The smoothing spline of a series over its time, as every step fits it: second derivative zero at both ends, as many
/// nodes as the \p wavelength (s) asks for. The caller tests ok().
BSpline<double> splineOf(const Series& series, double wavelength);
