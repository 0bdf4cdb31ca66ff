#include "Sounding.h"

#include "Altitude.h"
#include "Position.h"
#include "SensorRange.h"

namespace {

/// A value put in front of a series for as long as the object lives.
class TemporaryLaunchValue {
public:
    TemporaryLaunchValue(Series* series, double data, std::uint32_t attributes) : _series(series) {
        _series->prependValue(data, kLaunchObsTime);
        _series->setAttribute(0, static_cast<Value::AttributeType>(attributes));
    }
    TemporaryLaunchValue(const TemporaryLaunchValue&) = delete;
    TemporaryLaunchValue& operator=(const TemporaryLaunchValue&) = delete;
    ~TemporaryLaunchValue() { _series->remove(0); }

private:
    Series* _series;
};

struct LaunchHeightValue {
    const char* series;
    LaunchParameter SndMetaData::*parameter;
    SensorRange range;
};

constexpr LaunchHeightValue kLaunchHeightValues[] = {
    {"QCPres", &SndMetaData::launchPres, kPressureRange},
    {"QCTdry", &SndMetaData::launchTdry, kTdryRange},
    {"QCRH", &SndMetaData::launchRH, kRHRange},
};

} // namespace

void Sounding::altitudes() {
    const char* const topic = "QC Height Integration";
    if (getSeries("QCTdry")->lastIndex() < 1) {
        _summary.addItem(topic, "No temperature data (fewer than 2 data points)");
        return;
    }
    if (getSeries("QCPres")->empty()) {
        return;
    }
    const double span = valueOf("AltInterpSpan");
    const double start = valueOf("SfcAltitude");
    if (_meta.ascending) {
        upAltitudes(span, start);
    } else {
        dropAltitudes(span, start);
    }
}

/// Makes \p target a copy of the pressure with heights in place of the data.
void Sounding::integrate(const Id& target, double span, double start, bool backward) {
    const Series& pres = *getSeries("QCPres");
    Series& alt = *getSeries(target);
    alt = Series(pres, target);
    std::string log;
    Altitude().calculate(alt, pres, *getSeries("QCTdry"), *getSeries("QCRH"), span, start,
                         backward ? Altitude::BACKWARD : Altitude::FORWARD, log);
    if (!log.empty()) {
        _summary.addItem("QC Height Integration", log);
    }
}

/// Upward from a surface that the sonde has reached, and downward from the launch. Both may use launch values that QC
/// left out.
void Sounding::dropAltitudes(double span, double start) {
    const bool useIgnored = boolOf("UseIgnoredLaunch");
    std::vector<std::unique_ptr<TemporaryLaunchValue>> temporary;
    for (const LaunchHeightValue& launch : kLaunchHeightValues) {
        Series* series = getSeries(launch.series);
        const LaunchParameter& parameter = _meta.*launch.parameter;
        if (!series->empty() && !series->testAttribute(0, Value::ObsFlight) && parameter.avail(useIgnored) &&
            launch.range.holds(parameter.value())) {
            temporary.push_back(std::make_unique<TemporaryLaunchValue>(series, parameter.value(), Value::ObsFlight));
        }
    }
    if (boolOf("DropsondeHitSfc") && !boolOf("SfcAltUnknown")) {
        integrate("QCAltUp", span, valueOf("SfcAltOverride", start), true);
    }
    if (_meta.launchAlt.avail(useIgnored)) {
        Series* pres = getSeries("QCPres");
        const Series* raw = getSeries("RawPres");
        std::unique_ptr<TemporaryLaunchValue> first;
        if (!pres->testAttribute(0, Value::ObsFlight) && !raw->empty() && kPressureRange.holds(raw->data(0))) {
            first = std::make_unique<TemporaryLaunchValue>(pres, raw->data(0), raw->attributes(0));
        }
        integrate("QCAltDn", span, _meta.launchAlt.value(), false);
    }
}

void Sounding::upAltitudes(double span, double start) {
    if (!_meta.launchAlt.avail(false) && !_config.exists("LaunchAltOverride")) {
        return;
    }
    integrate("QCAltUp", span, valueOf("LaunchAltOverride", start), false);
}

/// From the launch along the winds. The position series hold the launch and nothing else so far.
void Sounding::position() {
    Series& u = *getSeries("QCU");
    Series& v = *getSeries("QCV");
    Series& lat = *getSeries("QCLat");
    Series& lon = *getSeries("QCLon");
    if (u.empty() || v.empty() || lat.empty() || lon.empty()) {
        return;
    }
    // The wind ahead of the first one known is taken to be the same.
    std::unique_ptr<TemporaryLaunchValue> firstU;
    std::unique_ptr<TemporaryLaunchValue> firstV;
    if (!u.getValue(0).isObservation()) {
        firstU = std::make_unique<TemporaryLaunchValue>(&u, u.data(0), 0u);
        firstV = std::make_unique<TemporaryLaunchValue>(&v, v.data(0), 0u);
    }
    for (int i = 1; i <= u.lastIndex(); ++i) {
        lat.appendValue(kMissing, u.time(i));
        lon.appendValue(kMissing, u.time(i));
    }
    Position().calculate(u, v, lat, lon, valueOf("PosInterpSpan", 60.0));
}
