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

int ScalarAdjustment::minThreshold(Series& series, double limit) {
    return force(series, limit, [](double value, double bound) { return value < bound; });
}

int ScalarAdjustment::maxThreshold(Series& series, double limit) {
    return force(series, limit, [](double value, double bound) { return value > bound; });
}
