#include "Sounding.h"

#include "Smooth.h"
#include "Wind.h"

#include <algorithm>

namespace {

/// Blends what was smoothed over a long wavelength into what was smoothed over a short one: the last value of \p series
/// takes that of \p shortWave alone, and the weight moves linearly to its own over the last \p length seconds.
void blend(Series& series, const Series& shortWave, double length) {
    if (!(length > 0.0)) {
        return;
    }
    const double end = shortWave.time(shortWave.lastIndex());
    for (int i = std::min(series.lastIndex(), shortWave.lastIndex()); i >= 0 && series.time(i) >= end - length; --i) {
        const double weight = (end - series.time(i)) / length;
        series.setData(i, (1.0 - weight) * shortWave.data(i) + weight * series.data(i));
    }
}

} // namespace

/// Smooths a series, or leaves it and notes the error. True when the series is as it should be.
bool Sounding::smoothed(Series* series, double wavelength, const std::string& errorText) {
    bool failed = false;
    Smooth().smooth(series, wavelength, failed);
    if (failed) {
        addQcError(errorText);
    }
    return !failed;
}

void Sounding::pressureSmoothing() {
    if (_meta.ascending) {
        smoothUpPres();
    } else {
        smoothDropPres();
    }
}

void Sounding::smoothUpPres() {
    Series* pres = getSeries("QCPres");
    if (!pres->empty()) {
        smoothed(pres, valueOf("PresSmoothWL"), "- Final smoothing failed for pressure\n");
    }
}

/// Near the surface the pressure of a drop keeps more of its detail.
void Sounding::smoothDropPres() {
    Series* vvPres = getSeries("QCVVPres");
    if (!vvPres->empty()) {
        smoothed(vvPres, valueOf("WindVVPresWL"), "- Final smoothing failed for VV pressure\n");
    }
    Series* pres = getSeries("QCPres");
    if (pres->empty()) {
        return;
    }
    Series shortWave(*pres, "Uprime");
    smoothed(pres, valueOf("PresSmoothWL"), "- Final smoothing failed for pressure\n");
    if (smoothed(&shortWave, valueOf("BlendLength"), "- Final smoothing failed for blended pressure\n")) {
        blend(*pres, shortWave, valueOf("BlendLength"));
    }
}

/// The final form of temperature, RH and wind. Speed and direction are never smoothed as such.
void Sounding::smooth() {
    if (!getSeries("QCTdry")->empty()) {
        smoothed(getSeries("QCTdry"), valueOf("TdrySmoothWL"), "- Final smoothing failed for tdry\n");
    }
    if (!getSeries("QCRH")->empty()) {
        smoothed(getSeries("QCRH"), valueOf("RHSmoothWL"), "- Final smoothing failed for RH\n");
    }
    if (getSeries("QCU")->empty()) {
        return;
    }
    if (_meta.ascending) {
        smoothUpWinds();
    } else {
        smoothDropWinds();
    }
    windsFromComponents();
}

void Sounding::smoothUpWinds() {
    const double wavelength = valueOf("WindSmoothWL");
    const char* const error = "- Final smoothing failed for winds\n";
    if (smoothed(getSeries("QCU"), wavelength, error)) {
        smoothed(getSeries("QCV"), wavelength, error);
    }
}

void Sounding::smoothDropWinds() {
    Series* u = getSeries("QCU");
    Series* v = getSeries("QCV");
    Series uPrime(*u, "Uprime");
    Series vPrime(*v, "Vprime");
    const double wavelength = valueOf("WindSmoothWL");
    const double length = valueOf("BlendLength");
    if (smoothed(u, wavelength, "- Final smoothing failed for U winds\n") &&
        smoothed(v, wavelength, "- Final smoothing failed for V winds\n") &&
        smoothed(&uPrime, length, "- Final smoothing failed for Uprime winds\n") &&
        smoothed(&vPrime, length, "- Final smoothing failed for Vprime winds\n")) {
        blend(*u, uPrime, length);
        blend(*v, vPrime, length);
    }
}

void Sounding::windsFromComponents() {
    const Series& u = *getSeries("QCU");
    const Series& v = *getSeries("QCV");
    Series& wspd = *getSeries("QCWspd");
    Series& wdir = *getSeries("QCWdir");
    const int last = std::min({u.lastIndex(), v.lastIndex(), wspd.lastIndex(), wdir.lastIndex()});
    for (int i = 0; i <= last; ++i) {
        double speed = 0.0;
        double direction = 0.0;
        SpeedDir(u.data(i), v.data(i), speed, direction);
        wspd.setData(i, speed);
        wdir.setData(i, direction);
    }
}
