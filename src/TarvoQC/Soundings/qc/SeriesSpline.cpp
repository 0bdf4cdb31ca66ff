#include "SeriesSpline.h"

BSpline<double> splineOf(const Series& series, double wavelength) {
    constexpr int kZeroCurvature = 2;
    constexpr int kDefaultNodes = 0;
    const std::vector<double> times = series.timeArray();
    const std::vector<double> data = series.dataArray();
    return {times.data(), static_cast<int>(times.size()), data.data(), wavelength, kZeroCurvature, kDefaultNodes};
}
