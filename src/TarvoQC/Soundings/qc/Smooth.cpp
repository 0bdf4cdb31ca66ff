#include "Smooth.h"

#include "SeriesSpline.h"

void Smooth::smooth(Series* series, double wavelength, bool& failed) const {
    failed = false;
    if (wavelength == 0.0) {
        return;
    }
    const BSpline<double> spline = splineOf(*series, wavelength);
    failed = !spline.ok();
    if (failed) {
        return;
    }
    for (int i = 1; i <= series->lastIndex(); ++i) {
        series->setData(i, spline.evaluate(series->time(i)));
    }
}
