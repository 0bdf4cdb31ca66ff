#include "Trend.h"

#include "Series.h"

#include <cmath>

Trend::Trend(const Series& series) {
    const int n = series.lastIndex() + 1;
    if (n == 0) {
        return;
    }
    double sumT = 0.0;
    double sumY = 0.0;
    for (int i = 0; i < n; ++i) {
        sumT += series.time(i);
        sumY += series.data(i);
    }
    const double meanT = sumT / n;
    const double meanY = sumY / n;
    bool oneTime = true;
    double sumYT = 0.0;
    double sumTT = 0.0;
    for (int i = 0; i < n; ++i) {
        const double t = series.time(i) - meanT;
        oneTime = oneTime && series.time(i) == series.time(0);
        sumYT += series.data(i) * t;
        sumTT += t * t;
    }
    // Values all at one time have no slope, whatever rounding left in the sums; their line is their mean.
    _slope = oneTime ? 0.0 : sumYT / sumTT;
    _offset = meanY - _slope * meanT;
    double sumSquares = 0.0;
    for (int i = 0; i < n; ++i) {
        const double residual = series.data(i) - _offset - _slope * series.time(i);
        sumSquares += residual * residual;
    }
    _stdDevDetrend = std::sqrt(sumSquares / n);
}
