#include "Sounding.h"

#include "DynWindAdjustment.h"
#include "DynamicAdjustment.h"
#include "SensorRange.h"
#include "TDDryBiasCorr.h"
#include "Text.h"

#include <algorithm>
#include <array>

namespace {

constexpr std::array<const char*, 3> kDryBiasSensors{"RSS921", "RSS904", "RS904"};
constexpr double kDryBiasGap = 10.0; // s

} // namespace

void Sounding::TDDryBiasCorrect() {
    const std::string sensor = _file->thermoSensor();
    if (std::none_of(kDryBiasSensors.begin(), kDryBiasSensors.end(),
                     [&](const char* mark) { return contains(sensor, mark); })) {
        return;
    }
    const char* const topic = "TD Dry Bias Correction";
    _dryBiasApplied = false;
    _attributes["TDDryBiasCorrApplied"] = "false";
    Series* rh = getSeries("QCRH");
    if (_file->needsTDDryBiasCorr() && !_file->TDDryBiasCorrPresent()) {
        const int removed = TDDryBiasCorr().correct(rh, getSeries("RawRH"), getSeries("QCTdry"), kDryBiasGap);
        _dryBiasApplied = true;
        _attributes["TDDryBiasCorrApplied"] = "true";
        _summary.addItem(topic, "Correction was applied");
        _summary.addItem(topic, "Points which were removed due to missing temperature or bad RH: ", removed);
    } else if (_file->TDDryBiasCorrPresent()) {
        _attributes["TDDryBiasCorrApplied"] = "true";
        const int removed = TDDryBiasCorr().markDryBiasAtt(rh, getSeries("RawRH"));
        _summary.addItem(topic, "Not applied");
        _summary.addItem(topic, "Correction was present in the source data");
        _summary.addItem(topic, "Number of 0.1% RH values removed: ", removed);
    }
}

void Sounding::TdryDynAdjust() {
    Series* tdry = getSeries("QCTdry");
    double wavelength = 0.0;
    if (!boolOf("TdryDynCor") || !_config.value("TdryDynCorWL", wavelength) || tdry->empty()) {
        return;
    }
    if (!DynamicAdjustment().adjust(tdry, _tdryTimeConstant, wavelength)) {
        _summary.addItem("QC for Temperature",
                         "Unable to dynamically adjust temperature (usually due to spline fit failure)");
        addQcError("- Unable to dynamically adjust temperature\n");
    }
}

void Sounding::WindDynAdjust() {
    Series* u = getSeries("QCU");
    Series* v = getSeries("QCV");
    double wavelength = 0.0;
    if (!boolOf("WindDynCor") || !_config.value("WindDynCorWL", wavelength) || u->empty()) {
        return;
    }
    const Series* dz = getSeries("QCDz");
    if (DynWindAdjustment().adjust(dz, u, wavelength) && DynWindAdjustment().adjust(dz, v, wavelength)) {
        windsFromComponents();
    } else {
        _summary.addItem("QC for Winds", "Unable to dynamically adjust winds (usually due to spline fit failure)");
        addQcError("- Unable to dynamically adjust winds\n");
    }
}

void Sounding::adjustPressures() {
    adjustPres(getSeries("QCPres"));
    adjustPres(getSeries("QCVVPres"));
}

/// Tilts the pressure over time, so that it ends on the surface pressure that the user gave, unless that is none or the
/// tilt would leave none on the way.
void Sounding::adjustPres(Series* series) {
    double surface = 0.0;
    if (!boolOf("DropsondeHitSfc") || !_config.value("SfcPresOverride", surface) || series->empty()) {
        return;
    }
    const double start = series->time(0);
    const double duration = series->time(series->lastIndex()) - start;
    if (!(duration > 0.0)) {
        return;
    }
    const double slope = (surface - series->data(series->lastIndex())) / duration;
    Series adjusted = *series;
    for (int i = 0; i <= adjusted.lastIndex(); ++i) {
        adjusted.setData(i, adjusted.data(i) + slope * (adjusted.time(i) - start));
    }
    const bool possible = std::all_of(adjusted.begin(), adjusted.end(), [](const Value& v) { return v.data() > 0.0; });
    if (!kPressureRange.holds(surface) || !possible) {
        addQcError("- Unable to adjust " + series->id().name() + " to a surface pressure of " +
                   stringFormat("%.1f", surface) + "mb\n");
        return;
    }
    *series = adjusted;
    _summary.addItem("Pressure Adjustment", series->id().name() + " profile adjusted for a surface pressure of " +
                                                stringFormat("%.1f", surface) + "mb");
}
