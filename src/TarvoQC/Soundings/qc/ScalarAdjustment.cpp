#include "ScalarAdjustment.h"

namespace {

template <typename Beyond>
int force(Series& series, double limit, Beyond beyond) {
    int forced = 0;
    for (int i = 0; i <= series.lastIndex(); ++i) {
        if (beyond(series.data(i), limit)) {
            series.setData(i, limit);
            ++forced;
        }
    }
    return forced;
}

} // namespace

int ScalarAdjustment::limits(const SeriesList& series, double min, double max, const SeriesList& flagSeries) {
    const Series& judged = *series.front();
    std::vector<int> failed;
    for (int i = 0; i <= judged.lastIndex(); ++i) {
        const double value = judged.data(i);
        if (!(min <= value && value <= max) && !judged.testAttribute(i, Value::QcKeep)) {
            failed.push_back(i);
        }
    }
    return removeAndStamp(series, failed, flagSeries, Value::QcLimitCheck);
}

int ScalarAdjustment::limits(Series* series, double min, double max, Series* flagSeries) {
    return limits(SeriesList{series}, min, max, SeriesList{flagSeries});
}

int ScalarAdjustment::minThreshold(Series& series, double limit) {
    return force(series, limit, [](double value, double bound) { return value < bound; });
}

int ScalarAdjustment::maxThreshold(Series& series, double limit) {
    return force(series, limit, [](double value, double bound) { return value > bound; });
}
