#include "DynamicAdjustment.h"

#include "ParallelSeries.h"
#include "SeriesSpline.h"

bool DynamicAdjustment::adjust(Series* series, const TimeConstant& tc, double wavelength) const {
    if (series->lastIndex() < 2) {
        return false;
    }
    const BSpline<double> spline = splineOf(*series, wavelength);
    if (!spline.ok()) {
        return false;
    }
    const JudgedRange range(*series);
    for (int i = range.first; i <= range.last; ++i) {
        double timeConstant = 0.0;
        if (tc.value(series->time(i), timeConstant)) {
            series->setData(i, series->data(i) + timeConstant * spline.slope(series->time(i)));
        }
    }
    return true;
}
