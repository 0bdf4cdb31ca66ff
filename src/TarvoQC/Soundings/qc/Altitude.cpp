#include "Altitude.h"

#include "Assumptions.h"
#include "Hydrostatics.h"
#include "Text.h"

#include <cmath>

namespace {

/// The thickness from the time \p t0 to the time \p t1, m. False across a gap, and where there is none.
bool thickness(const Series& pres, const Series& tdry, const Series& rh, double span, double t0, double t1,
               double& out) {
    double P0 = 0.0;
    double P1 = 0.0;
    double T0 = 0.0;
    double T1 = 0.0;
    double RH0 = kDefaultRH;
    double RH1 = kDefaultRH;
    rh.interpolate(t0, span, RH0);
    rh.interpolate(t1, span, RH1);
    bool temperatures = tdry.interpolate(t0, span, T0) && tdry.interpolate(t1, span, T1);
    const double extent = tdry.time(tdry.lastIndex()) - tdry.time(0);
    if (!temperatures && extent > span) {
        temperatures = tdry.interpolate(t0, extent, T0) && tdry.interpolate(t1, extent, T1);
    }
    if (!temperatures || !pres.interpolate(t0, span, P0) || !pres.interpolate(t1, span, P1) ||
        std::abs(t0 - t1) > span) {
        return false;
    }
    out = deltaZ(P0, P1, T0, T1, RH0, RH1);
    return std::isfinite(out); // between two pressures of 1 mb, whose logarithms are 0, it isn't
}

} // namespace

void Altitude::calculate(Series& alt, const Series& pres, const Series& tdry, const Series& rh, double span,
                         double start, DIRECTION dir, std::string& log) const {
    log.clear();
    if (tdry.lastIndex() < 1 || alt.empty()) {
        return;
    }
    const int last = alt.lastIndex();
    const int step = dir == FORWARD ? 1 : -1;
    log = std::string(dir == FORWARD ? "Downward" : "Upward") + " integration starts @ " + stringFormat("%.1f", start) +
          "m";
    double z = start;
    int i = dir == FORWARD ? 0 : last;
    alt.setData(i, z);
    for (i += step; i >= 0 && i <= last; i += step) {
        double layer = 0.0;
        if (!thickness(pres, tdry, rh, span, alt.time(i - step), alt.time(i), layer)) {
            log += " and stops @ " + stringFormat("%.1f", z) + "m\n";
            alt.removeIf([=](int k, const Value&) { return dir == FORWARD ? k >= i : k <= i; });
            break;
        }
        z += layer;
        alt.setData(i, z);
    }
    const int end = pres.lastIndex();
    if (alt.time(0) == pres.time(0) && pres.testAttribute(0, Value::ObsFlight)) {
        alt.setAttribute(0, Value::ObsFlight);
    }
    if (alt.time(alt.lastIndex()) == pres.time(end) && pres.testAttribute(end, Value::ObsSurface)) {
        alt.setAttribute(alt.lastIndex(), Value::ObsSurface);
    }
}
