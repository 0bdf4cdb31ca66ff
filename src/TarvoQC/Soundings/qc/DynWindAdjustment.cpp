#include "DynWindAdjustment.h"

#include "Assumptions.h"
#include "DCapture.h"
#include "ParallelSeries.h"
#include "SeriesSpline.h"

namespace {

constexpr double kGravity = 9.80665;    // m/s2
constexpr double kEndWavelength = 4.0;  // s
constexpr double kEndStretch = 4.0;     // s
constexpr double kPerEndStretch = 0.25; // 1/s

} // namespace

bool DynWindAdjustment::adjust(const Series* dz, Series* component, double wavelength) const {
    DCapture::dcout << "*** dynamic wind adjustment for " << component->id().name() << "\n"
                    << "**** dyn wind adjustment for " << component->id().name() << "\n"
                    << "  index"
                    << "  time"
                    << "  spd"
                    << "  accel"
                    << "  fall rate"
                    << "  correction"
                    << "\n";
    if (component->lastIndex() < 2) {
        return false;
    }
    const BSpline<double> whole = splineOf(*component, wavelength);
    const BSpline<double> end = splineOf(*component, kEndWavelength);
    if (!whole.ok() || !end.ok()) {
        return false;
    }
    const JudgedRange range(*component);
    const double lastTime = component->time(component->lastIndex());
    for (int i = range.first; i <= range.last; ++i) {
        const double time = component->time(i);
        const double speed = component->data(i);
        double fallRate = 0.0;
        if (!dz->interpolate(time, kMaxGap, fallRate)) {
            continue;
        }
        const double acceleration = whole.slope(time);
        double corrected = speed - acceleration * fallRate / kGravity;
        if (time >= lastTime - kEndStretch) {
            const double weight = (lastTime - time) * kPerEndStretch;
            corrected = (1.0 - weight) * (speed - end.slope(time) * fallRate / kGravity) + weight * corrected;
        }
        component->setData(i, corrected);
        DCapture::dcout << i << " " << time << " " << speed << " " << acceleration << " " << fallRate << " "
                        << corrected << "\n";
    }
    return true;
}
