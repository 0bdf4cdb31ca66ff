#include "FilterCheck.h"

#include "DCapture.h"
#include "SeriesSpline.h"

#include <cmath>

int FilterCheck::check(const SeriesList& series, double deviation, double wavelength, const SeriesList& flagSeries,
                       bool& failed) const {
    const Series& judged = *series.front();
    DCapture::dcout << "filter check for " << judged.id().name() << ", deviation " << deviation << ", wavelength "
                    << wavelength << "\n";
    failed = false;
    if (judged.lastIndex() < 2) {
        return 0;
    }
    const BSpline<double> spline = splineOf(judged, wavelength);
    failed = !spline.ok();
    if (failed) {
        return 0;
    }
    const JudgedRange range(judged);
    std::vector<int> condemned;
    for (int i = range.first; i <= range.last; ++i) {
        const double off = std::abs(judged.data(i) - spline.evaluate(judged.time(i)));
        if (off > deviation && !judged.testAttribute(i, Value::QcKeep)) {
            condemned.push_back(i);
        }
    }
    for (auto i = condemned.rbegin(); i != condemned.rend(); ++i) {
        DCapture::dcout << "   Removing " << judged.data(*i) << ", smoothed value " << spline.evaluate(judged.time(*i))
                        << " (time " << judged.time(*i) << ")\n";
    }
    return removeAndStamp(series, condemned, flagSeries, Value::QcFilterCheck);
}

int FilterCheck::check(Series* series, double deviation, double wavelength, Series* flagSeries, bool& failed) const {
    return check(SeriesList{series}, deviation, wavelength, SeriesList{flagSeries}, failed);
}
