#include "Position.h"

#include "Globe.h"

namespace {

/// Walks along \p position with the wind \p component; \p kmPerDegree(i) is the length of a degree for the step to i.
template <typename Length>
void walk(const Series& component, Series& position, double span, Length kmPerDegree) {
    constexpr double kMetresPerKm = 1000.0;
    double degrees = position.data(0);
    for (int i = 0; i < position.lastIndex(); ++i) {
        const double t0 = position.time(i);
        const double t1 = position.time(i + 1);
        double w0 = 0.0;
        double w1 = 0.0;
        if (!component.interpolate(t0, span, w0) || !component.interpolate(t1, span, w1)) {
            position.removeIf([i](int k, const Value&) { return k > i; });
            return;
        }
        const double k = kmPerDegree(i + 1, degrees);
        if (k > 0.0) {
            degrees += (w0 + w1) * 0.5 * (t1 - t0) / kMetresPerKm / k;
        }
        position.setData(i + 1, degrees);
    }
}

} // namespace

void Position::calculate(const Series& u, const Series& v, Series& lat, Series& lon, double span) const {
    if (lat.empty() || lon.empty()) {
        return;
    }
    walk(v, lat, span, [](int, double latitude) { return kmperdeglat(latitude); });
    lon.removeIf([&](int i, const Value&) { return i > lat.lastIndex(); }); // no length of a degree without a latitude
    walk(u, lon, span, [&lat](int i, double) { return kmperdeglon(lat.data(i)); });
}
