#include "Sounding.h"

#include "QcAttribute.h"
#include "SensorRange.h"
#include "Text.h"

namespace {

const char* const kTopic = "Ambient Equilibration";

// Equilibration leaves the launch value at -1 s alone and takes the sample at 0 s.
constexpr double kEquilibrationStart = -1e-5;

constexpr double kTemperatureAccuracy = 0.1; // deg C
constexpr double kRHAccuracy = 5.0;          // %

// The ambient air where the launch observation doesn't tell.
constexpr double kUnknownPressure = 250.0; // mb
constexpr double kUnknownTdry = -50.0;     // deg C
constexpr double kUnknownRH = 50.0;        // %

} // namespace

/// Works out how long the sensors need to settle to the air outside, and takes out what they reported until then.
void Sounding::ambient() {
    if (_meta.ascending) {
        return;
    }
    if (getSeries("QCTdry")->empty()) {
        _summary.addItem(kTopic, "Warning: no ambient equilibration performed because there is no temperature data");
    } else {
        const double temperatureTime = ambientTemperature();
        ambientRH();
        ambientPressure(temperatureTime);
        trimHead(seriesOf({"QCVVPres"}), {}, temperatureTime);
    }
    ambientWinds();
}

void Sounding::trimHead(const SeriesList& series, const SeriesList& flagSeries, double time) {
    for (Series* member : series) {
        member->timeTrimMiddle(kEquilibrationStart, time);
    }
    QcAttribute(flagSeries, Value::QcAmbientEquilibration).setAttributes(kEquilibrationStart, time);
}

namespace {

double ambientValue(const LaunchParameter& parameter, bool useIgnored, const SensorRange& range, double unknown) {
    return parameter.avail(useIgnored) && range.holds(parameter.value()) ? parameter.value() : unknown;
}

std::string equilibrationItem(const std::string& quantity, bool isOverride, double time, const std::string& sensor,
                              double timeConstants) {
    return quantity + " equilibration" + (isOverride ? " (override) " : " ") +
           "at time: " + stringFormat("%.1f", time) + "s" +
           (isOverride ? "." : ", " + sensor + " sensor time constants: " + stringFormat("%.1f", timeConstants));
}

} // namespace

/// Returns the equilibration time of temperature, s.
double Sounding::ambientTemperature() {
    const bool useIgnored = boolOf("UseIgnoredLaunch");
    const double p = ambientValue(_meta.launchPres, useIgnored, kPressureRange, kUnknownPressure);
    const double t = ambientValue(_meta.launchTdry, useIgnored, kTdryRange, kUnknownTdry);
    const double rh = ambientValue(_meta.launchRH, useIgnored, kRHRange, kUnknownRH);
    const double cabin = valueOf("CabinTemp");
    const auto item = [this](const std::string& text) { _summary.addItem(kTopic, text); };
    item("Cabin temperature: " + stringFormat("%.0f", cabin) + "C");
    item("Sensor type: " + _sensorName);
    item("Ambient pressure: " + stringFormat("%.0f", p) + "mb");
    item("Ambient temperature: " + stringFormat("%.0f", t) + "C");
    item("Ambient RH: " + stringFormat("%.0f", rh) + "%");
    item("Temperature equilibration accuracy: " + stringFormat("%.1f", kTemperatureAccuracy) + "C");
    item("RH equilibration accuracy: " + stringFormat("%.1f", kRHAccuracy) + "%");

    AmbientPoint::Equilibration point{valueOf("TdryEquilTimeOverride"), 0.0};
    const bool isOverride = point.time > 0.0;
    if (!isOverride) {
        const Parachute chute = parachute();
        point = _ambientPoint->temperature(getSeries("QCTdry"), getSeries("QCPres"), p, t, cabin, kTemperatureAccuracy,
                                           chute.mass, chute.area, chute.drag);
    }
    trimHead(seriesOf({"QCTdry"}), seriesOf({"RawTdry"}), point.time);
    _attributes["TdryEquilTime"] = stringFormat("%.2f", point.time);
    _attributes["PresEquilTime"] = stringFormat("%.2f", point.time);
    item(equilibrationItem("Temperature", isOverride, point.time, _sensorName + " T", point.timeConstants));
    return point.time;
}

void Sounding::ambientRH() {
    Series* rhSeries = getSeries("QCRH");
    if (rhSeries->empty()) {
        _summary.addItem(kTopic, "RH: no ambient equilibration performed because there is no RH data");
        return;
    }
    const bool useIgnored = boolOf("UseIgnoredLaunch");
    AmbientPoint::Equilibration point{valueOf("RHEquilTimeOverride"), 0.0};
    const bool isOverride = point.time > 0.0;
    if (!isOverride) {
        const double rh = ambientValue(_meta.launchRH, useIgnored, kRHRange, kUnknownRH);
        const double t = ambientValue(_meta.launchTdry, useIgnored, kTdryRange, kUnknownTdry);
        point = _ambientPoint->RH(rhSeries, getSeries("QCPres"), rh, t, valueOf("CabinTemp"), kRHAccuracy);
    }
    trimHead({rhSeries}, seriesOf({"RawRH"}), point.time);
    _attributes["RHEquilTime"] = stringFormat("%.2f", point.time);
    _summary.addItem(kTopic, equilibrationItem("RH", isOverride, point.time, _sensorName + " RH", point.timeConstants));
}

void Sounding::ambientPressure(double temperatureTime) {
    if (getSeries("QCPres")->empty()) {
        return;
    }
    const double overrideTime = valueOf("PresEquilTimeOverride");
    if (overrideTime > 0.0) {
        trimHead(seriesOf({"QCPres"}), seriesOf({"RawPres"}), overrideTime);
        _summary.addItem(kTopic,
                         "Pressure equilibration (override) at time: " + stringFormat("%.1f", overrideTime) + "s");
    } else {
        trimHead(seriesOf({"QCPres"}), seriesOf({"RawPres"}), temperatureTime);
        _summary.addItem(kTopic, "Pressure: same equilibration time used as for temperature");
    }
}

void Sounding::ambientWinds() {
    if (getSeries("QCWspd")->empty()) {
        _summary.addItem(kTopic, "Winds: no ambient equilibration performed because there is no wind data");
        return;
    }
    const double time = valueOf("WindEquilTime");
    trimHead(seriesOf({"QCWspd", "QCU", "QCV", "QCWdir"}), seriesOf({"RawWdir", "RawWspd"}), time);
    _summary.addItem(kTopic, "Wind equilibration: " + stringFormat("%.1f", time) + "s");
}

void Sounding::updateTimeConstants() {
    const Series* pres = getSeries("QCPres");
    const Series* tdry = getSeries("QCTdry");
    if (boolOf("UseTheoryVentRate")) {
        const Parachute chute = parachute();
        _tdryTimeConstant.update(pres, tdry, chute.area, chute.drag, chute.mass);
    } else {
        _tdryTimeConstant.update(pres, tdry, getSeries("QCDz"));
    }
}
