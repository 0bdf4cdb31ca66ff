#include "Sounding.h"

#include "Assumptions.h"
#include "DCapture.h"
#include "VerticalVelocity.h"
#include "W.h"

#include <cmath>

namespace {

constexpr double kDefaultWavelength = 10.0; // s
constexpr double kDefaultVVDelta = 2.5;     // m/s
constexpr int kFewestJudged = 3;            // samples
constexpr double kGreatestRatio = 3.0;      // of fall rates; what is beyond counts for nothing
constexpr double kFastRatio = 1.35;
constexpr double kFastFraction = 0.5;

} // namespace

void Sounding::verticalVelocityForTimeConstants() {
    verticalVelocity("temperature sensor time constant");
}

void Sounding::verticalVelocityFinal() {
    verticalVelocity("final");
}

void Sounding::verticalVelocity(const std::string& title) {
    const auto compute = [&](const char* pres, const char* dz, double wavelength, const char* name, const char* topic) {
        const Series* presSeries = getSeries(pres);
        Series* dzSeries = getSeries(dz);
        if (presSeries->empty()) {
            dzSeries->removeAll();
            return;
        }
        if (!VerticalVelocity().verticalVelocity(presSeries, getSeries("QCTdry"), getSeries("QCRH"), dzSeries,
                                                 wavelength)) {
            _summary.addItem(topic, std::string("Unable to compute vertical velocity from ") + name + " (" + title +
                                        ", usually due to spline fit failure)");
            addQcError("- Unable to compute vertical velocity from pressure (" + title + ")\n");
        }
    };
    const double wavelength = valueOf("PresSmoothWL");
    compute("QCPres", "QCDz", wavelength != 0.0 ? wavelength : kDefaultWavelength, "pressure", "QC for Pressure");
    if (!_meta.ascending) {
        compute("QCVVPres", "QCVVDz", valueOf("WindVVPresWL"), "vv pressure", "QC for VV Pressure");
    }
}

/// The fall rate by GPS tells how good the wind by GPS is: it is compared with the hydrostatic and the theoretical one.
void Sounding::vvCheck() {
    if (_meta.ascending) {
        return;
    }
    DCapture::dcout << "vertical velocity check, wavelength " << valueOf("WindVVPresWL") << "\n";
    const double limit = valueOf("WindVVdelta", kDefaultVVDelta);
    const Series& wspd = *getSeries("QCWspd");
    if (wspd.lastIndex() < 1) {
        return;
    }
    const JudgedRange range(wspd);
    if (range.last - range.first < kFewestJudged) {
        return;
    }
    std::vector<int> failed;
    for (int i = range.first; i < range.last; ++i) {
        if (fallRatesDisagree(wspd.time(i), limit) && !wspd.testAttribute(i, Value::QcKeep)) {
            failed.push_back(i);
        }
    }
    const int removed = removeAndStamp(seriesOf(qcWinds()), failed, seriesOf(rawWinds()), Value::QcVerticalVelCheck);
    _summary.addItem("QC for Winds", "Points which failed the vertical velocity check:", removed);
}

bool Sounding::fallRatesDisagree(double time, double limit) const {
    double hydrostatic = 0.0;
    double gps = 0.0;
    double pressure = 0.0;
    double temperature = 0.0;
    const bool hasGps = getSeries("RawDz")->interpolate(time, kMaxGap, gps);
    const bool hasAll = getSeries("QCVVDz")->interpolate(time, kMaxGap, hydrostatic) && hasGps &&
                        getSeries("QCVVPres")->interpolate(time, kMaxGap, pressure) &&
                        getSeries("QCTdry")->interpolate(time, kMaxGap, temperature);
    if (!hasAll) {
        return hasGps && gps >= 0.0; // a sonde that doesn't fall at all
    }
    const double theoretical = -theoreticalFallRate(pressure, temperature);
    DCapture::dcout << "   vvel time " << time << ", pres velocity " << hydrostatic << ", theoretical velocity "
                    << theoretical << ", gps velocity " << gps << "\n";
    const bool disagrees = std::abs(hydrostatic - gps) > limit && std::abs(theoretical - gps) > limit;
    if (disagrees) {
        DCapture::dcout << "      *** Removing winds at time " << time << ", gpsVV - theoryVV: " << gps - theoretical
                        << ", gpsVV - hydroVV: " << gps - hydrostatic << "\n";
    }
    return disagrees;
}

void Sounding::verticalWind() {
    if (_meta.ascending) {
        return;
    }
    if (boolOf("WindDisableW")) {
        _summary.addItem("QC for Winds", "Vertical winds not calculated");
        return;
    }
    const Parachute chute = parachute();
    W().w(getSeries("QCDz"), getSeries("QCPres"), getSeries("QCTdry"), chute.area, chute.drag, chute.mass,
          getSeries("QCW"));
}

/// Compares the hydrostatic fall rate with the theoretical one over the whole sounding.
void Sounding::fastFallCheck() {
    const Series& dz = *getSeries("QCDz");
    if (_meta.ascending) {
        return;
    }
    const char* const topic = "Fast Fall Test";
    if (dz.lastIndex() < 1) {
        _summary.addItem(topic, "<font color=\"red\">Not enough points for the fast fall check</font>");
        return;
    }
    const JudgedRange range(dz);
    if (range.last - range.first < kFewestJudged) {
        return;
    }
    int total = 0;
    int excess = 0;
    for (int i = range.first; i < range.last; ++i) {
        double pressure = 0.0;
        double temperature = 0.0;
        if (!getSeries("QCPres")->interpolate(dz.time(i), kMaxGap, pressure) ||
            !getSeries("QCTdry")->interpolate(dz.time(i), kMaxGap, temperature)) {
            continue;
        }
        const double ratio = -dz.data(i) / theoreticalFallRate(pressure, temperature);
        if (0.0 <= ratio && ratio <= kGreatestRatio) {
            ++total;
            excess += ratio > kFastRatio ? 1 : 0;
        }
    }
    const double fraction = total == 0 ? 0.0 : static_cast<double>(excess) / total;
    const bool fast = fraction > kFastFraction;
    _summary.addItem(topic, "Number of points with excessive fall rate:", excess);
    _summary.addItem(topic, "Percentage of points with excessive fall rate: ", static_cast<int>(fraction * 100.0));
    _summary.addItem(topic, std::string("Sounding diagnosed as a fast fall: ") +
                                (fast ? "<b><font color=\"red\">Yes</font></b>" : "No"));
    if (fast) {
        _qcErrorText.insert(0, "- This appears to be a fast fall sounding.\n");
        _qcErrorFlag = true;
    }
}
