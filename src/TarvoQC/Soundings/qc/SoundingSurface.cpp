#include "Sounding.h"

#include "Hydrostatics.h"
#include "SeriesSpline.h"
#include "Text.h"

#include <algorithm>
#include <array>

namespace {

const char* const kTopic = "Surface Observation";

constexpr std::array<double, 4> kWavelengths{2.0, 4.0, 6.0, 8.0}; // s, tried in this order
constexpr double kSecondsToSurface = 0.54;                        // from the last usable frame on
constexpr double kDefaultFallRate = -12.0;                        // m/s
constexpr double kSurfaceRH = 70.0;                               // %
constexpr double kMetresPerMb = 8.7;
constexpr double kTailBehindData = 1.0;  // s
constexpr double kOldestPressure = 10.0; // s before the splash
constexpr double kOldestOther = 1.5;     // s before the splash

} // namespace

/// Extrapolates a last observation to the moment at which a dropsonde reaches the surface.
void Sounding::createSfcObs() {
    Series* pres = getSeries("QCPres");
    double splash = 0.0;
    if (!boolOf("DropsondeHitSfc") || pres->empty() || !splashTime(splash)) {
        return;
    }
    const auto item = [this](const std::string& text) { _summary.addItem(kTopic, text); };
    item("Splash time (time of the last usable frame): " + stringFormat("%.2f", splash) + "s");
    double distance = 0.0;
    if (!fallDistance(splash, distance)) {
        return;
    }
    const double surfaceTime = splash + kSecondsToSurface;
    item("Extrapolated surface time: " + stringFormat("%.2f", surfaceTime) + "s");

    Series* tdry = getSeries("QCTdry");
    Series* rh = getSeries("QCRH");
    double humidity = kSurfaceRH;
    if (extrapolateAtEnd(rh, splash, humidity)) {
        humidity = std::clamp(humidity, 0.0, 100.0);
    }
    double p = 0.0;
    if (!extrapolateAtEnd(pres, splash, p)) {
        return;
    }
    double temperature = 0.0;
    const bool hasTemperature = extrapolateAtEnd(tdry, splash, temperature);
    const double surfacePressure = hasTemperature
                                       ? hydroP(p, temperature, temperature, humidity, humidity, 0.0, distance)
                                       : p - distance / kMetresPerMb;
    createSfcValue(pres, surfaceTime, surfacePressure);
    createSfcValue(getSeries("QCVVPres"), surfaceTime, surfacePressure);
    item("Fall distance from last frame: " + stringFormat("%.1f", -distance) + "m");
    item("Extrapolated surface pressure: " + stringFormat("%.1f", surfacePressure) + "mb");

    const auto isRecent = [splash](const Series* series) {
        return !series->empty() && splash - series->time(series->lastIndex()) <= kOldestOther;
    };
    if (hasTemperature && isRecent(tdry)) {
        createSfcValue(tdry, surfaceTime, temperature);
        item("Extrapolated surface temperature: " + stringFormat("%.1f", temperature) + "C");
    }
    if (isRecent(rh)) {
        createSfcValue(rh, surfaceTime, humidity);
        item("Extrapolated surface rh: " + stringFormat("%.1f", humidity) + "%");
    }
    createSfcValue(getSeries("QCTime"), surfaceTime, surfaceTime);
}

/// The time of the last usable frame. False when the pressure ends too long before it.
bool Sounding::splashTime(double& time) const {
    const Series* pres = getSeries("QCPres");
    const double lastPressure = pres->time(pres->lastIndex());
    time = lastPressure;
    for (const Series* series : seriesOf({"QCTdry", "QCRH", "QCWspd"})) {
        if (!series->empty()) {
            time = std::max(time, series->time(series->lastIndex()));
        }
    }
    const double end = maxLastDataTime();
    const bool isCut = end > QClastDataTime() + kFrameTimeError; // where the user has set the end, nothing comes behind
    if (end - time < kTailBehindData && end > time && !isCut) {
        time = end;
    }
    return time - lastPressure <= kOldestPressure;
}

/// The way from the last usable frame to the surface, m, negative. False when the sonde rises.
bool Sounding::fallDistance(double splash, double& distance) const {
    double rate = kDefaultFallRate;
    extrapolateAtEnd(getSeries("QCDz"), splash, rate);
    distance = rate * kSecondsToSurface;
    return distance <= 0.0;
}

/// Along the slope of the smooth curve through \p series, from the sample at \p index to \p time.
bool Sounding::extrapolate(const Series* series, int index, double wavelength, double time, double& out) const {
    if (series->lastIndex() < 2) {
        return false;
    }
    const BSpline<double> spline = splineOf(*series, wavelength);
    if (!spline.ok()) {
        return false;
    }
    out = spline.slope(series->time(index)) * (time - series->time(index)) + series->data(index);
    return true;
}

/// From the last sample, with the first wavelength that can be fitted.
bool Sounding::extrapolateAtEnd(const Series* series, double time, double& out) const {
    return std::any_of(kWavelengths.begin(), kWavelengths.end(), [&](double wavelength) {
        return extrapolate(series, series->lastIndex(), wavelength, time, out);
    });
}

bool Sounding::createSfcValue(Series* series, double time, double data) {
    if (series->empty()) {
        return false;
    }
    series->appendValue(data, time);
    series->setAttribute(series->lastIndex(), Value::ObsSurface);
    return true;
}
