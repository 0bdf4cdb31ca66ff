#include "VerticalVelocity.h"

#include "Assumptions.h"
#include "DCapture.h"
#include "Humidity.h"
#include "ParallelSeries.h"
#include "SeriesSpline.h"

namespace {

constexpr double kGasConstant = 287.04; // J/(kg K), dry air
constexpr double kGravity = 9.80665;    // m/s2

} // namespace

bool VerticalVelocity::verticalVelocity(const Series* pres, const Series* tdry, const Series* rh, Series* outDz,
                                        double wavelength) const {
    outDz->removeAll();
    if (pres->lastIndex() < 2) {
        return false;
    }
    const BSpline<double> spline = splineOf(*pres, wavelength);
    if (!spline.ok()) {
        return false;
    }
    for (int i = JudgedRange(*pres).first; i <= pres->lastIndex(); ++i) {
        const double time = pres->time(i);
        const double p = pres->data(i);
        double temperature = 0.0;
        if (!tdry->interpolate(time, kMaxGap, temperature)) {
            continue;
        }
        double humidity = kDefaultRH;
        rh->interpolate(time, kMaxGap, humidity);
        const double virtualTemperature = Tv(p, temperature, humidity);
        const double slope = spline.slope(time);
        const double rate = -kGasConstant * virtualTemperature / (p * kGravity) * slope;
        outDz->appendValue(rate, time);
        DCapture::dcout << "vertical velocity " << i << " time:" << time << " P:" << p << " T:" << temperature
                        << " RH:" << humidity << " Tv:" << virtualTemperature << " dP/dt" << slope << " vv:" << rate
                        << "\n";
    }
    return true;
}
