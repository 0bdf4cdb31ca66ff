#include "OutlierCheck.h"

#include "DCapture.h"

#include <cmath>

int OutlierCheck::check(const SeriesList& series, double limit, const SeriesList& flagSeries) const {
    const Series& judged = *series.front();
    const Trend trend = judged.trend();
    DCapture::dcout << "outlier check for " << judged.id().name() << ", trend slope " << trend.slope()
                    << ", trend offset " << trend.offset() << ", trend std dev " << trend.stdDevDetrend() << "\n";
    const double threshold = trend.stdDevDetrend() * limit;
    std::vector<int> failed;
    for (int i = 1; i <= judged.lastIndex(); ++i) {
        const double distance = std::abs(judged.time(i) * trend.slope() + trend.offset() - judged.data(i));
        if (distance > threshold && !judged.testAttribute(i, Value::QcKeep)) {
            failed.push_back(i);
        }
    }
    for (auto i = failed.rbegin(); i != failed.rend(); ++i) {
        DCapture::dcout << "   Removing " << judged.data(*i) << " (time " << judged.time(*i) << ")\n";
    }
    return removeAndStamp(series, failed, flagSeries, Value::QcOutlierCheck);
}

int OutlierCheck::check(Series* series, double limit, Series* flagSeries) const {
    return check(SeriesList{series}, limit, SeriesList{flagSeries});
}
