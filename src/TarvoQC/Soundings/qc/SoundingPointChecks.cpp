#include "Sounding.h"

#include "ScalarAdjustment.h"
#include "SensorRange.h"

namespace {

const std::vector<const char*> kWindsByDirection{"QCWdir", "QCWspd", "QCU", "QCV"};
const std::vector<const char*> kPosition{"QCGpsLat", "QCGpsLon"};
const std::vector<const char*> kRawPosition{"RawLat", "RawLon"};

struct LimitRow {
    std::vector<const char*> series; ///< the first decides, the others go with it
    std::vector<const char*> flagged;
    SensorRange range;
    const char* item;
    const char* topic;
};

/// The last two rows work on the raw series themselves: counts and errors out of range are dropped for good.
const std::vector<LimitRow>& limitRows() {
    static const std::vector<LimitRow> rows{
        {{"QCPres"}, {"RawPres"}, kPressureRange, "Points which failed the limit check: ", "QC for Pressure"},
        {{"QCVVPres"}, {}, kPressureRange, "Points which failed the limit check: ", "QC for VV Pressure"},
        {{"QCTdry"}, {"RawTdry"}, kTdryRange, "Points which failed the limit check: ", "QC for Temperature"},
        {{"QCRH"}, {"RawRH"}, kRHRange, "Points which failed the limit check: ", "QC for Relative Humidity"},
        {qcWinds(), rawWinds(), {0.0, 150.0}, "Points which failed the wind speed limit check: ", "QC for Winds"},
        {kWindsByDirection,
         rawWinds(),
         {0.0, 360.0},
         "Points which failed the wind direction limit check: ",
         "QC for Winds"},
        {kPosition,
         kRawPosition,
         {-90.0, 90.0},
         "Points which failed the latitude limit check: ",
         "QC for GPS Position"},
        {{"QCGpsLon", "QCGpsLat"},
         kRawPosition,
         {-180.0, 180.0},
         "Points which failed the longitude limit check: ",
         "QC for GPS Position"},
        {{"QCGpsAlt"},
         {"RawGpsAlt"},
         {-300.0, 40000.0},
         "Points which failed the limit check: ",
         "QC for GPS Altitude"},
        {{"RawSats"}, {"RawSats"}, {0.0, 32.0}, "Points which failed the limit check: ", "QC for RawSats"},
        {{"RawWe"}, {"RawWe"}, {0.0, 99.0}, "Points which failed the limit check: ", "QC for RawWe"},
    };
    return rows;
}

/// Heights (m) between which the low limit of the wind error holds.
constexpr double kLowErrorBottom = 100.0;
constexpr double kLowErrorTop = 10000.0;
constexpr double kGpsAltitudeGap = 1.0; // s

constexpr double kLeastPressure = 1.0; // mb

/// \p judged at \p index is the launch observation of a dropsonde: it has neither satellites nor a wind error.
bool isFlightObs(const Series& series, int index) {
    return index == 0 && series.testAttribute(0, Value::ObsFlight);
}

} // namespace

void Sounding::limitCheck() {
    for (const LimitRow& row : limitRows()) {
        const SeriesList series = seriesOf(row.series);
        if (!series.empty()) {
            _summary.addItem(row.topic, row.item,
                             ScalarAdjustment::limits(series, row.range.min, row.range.max, seriesOf(row.flagged)));
        }
    }
}

void Sounding::satsCheck() {
    if (boolOf("WindDisableSatsCheck")) {
        for (const char* topic : {"QC for Winds", "QC for GPS Position", "QC for GPS Altitude"}) {
            _summary.addItem(topic, "Satellites check disabled");
        }
        return;
    }
    const int minSats = intOf("WindSats");
    checkAndRemoveSats(seriesOf(kWindsByDirection), seriesOf(rawWinds()), minSats, "QC for Winds");
    checkAndRemoveSats(seriesOf(kPosition), seriesOf(kRawPosition), minSats, "QC for GPS Position");
    checkAndRemoveSats(seriesOf({"QCGpsAlt"}), seriesOf({"RawGpsAlt"}), minSats, "QC for GPS Altitude");
}

void Sounding::checkAndRemoveSats(const SeriesList& series, const SeriesList& flagSeries, int minSats,
                                  const std::string& topic) {
    const Series& judged = *series.front();
    Series matched;
    getSeries("QCRawSats")->matchSeries(judged, matched);
    if (matched.empty() || judged.empty()) {
        _summary.addItem(topic, "Sats check not applied.");
        return;
    }
    std::vector<int> failed;
    for (int i = 0; i <= matched.lastIndex(); ++i) {
        const int k = judged.indexFromTime(matched.time(i));
        if (!isFlightObs(matched, i) && !isFlightObs(judged, k) && matched.data(i) < minSats &&
            !judged.testAttribute(k, Value::QcKeep)) {
            failed.push_back(k);
        }
    }
    _summary.addItem(topic, "Points which failed the number of satellites check: ",
                     removeAndStamp(series, failed, flagSeries, Value::QcSatsCheck));
}

void Sounding::weCheck() {
    const char* const topic = "QC for Winds";
    if (!isRS41()) {
        _summary.addItem(topic, "Wind error check not applied (sonde is not xRD41)");
        return;
    }
    if (boolOf("WindDisableErrorCheck")) {
        _summary.addItem(topic, "Wind error check disabled");
        return;
    }
    const Series& wdir = *getSeries("QCWdir");
    Series matched;
    getSeries("RawWe")->matchSeries(wdir, matched);
    std::vector<int> failed;
    for (int i = 0; i <= matched.lastIndex(); ++i) {
        const int k = wdir.indexFromTime(matched.time(i));
        if (!isFlightObs(matched, i) && !isFlightObs(wdir, k) &&
            windErrorIsTooLarge(matched.time(i), matched.data(i)) && !wdir.testAttribute(k, Value::QcKeep)) {
            failed.push_back(k);
        }
    }
    _summary.addItem(
        topic, "Points which failed the wind error check: ",
        removeAndStamp(seriesOf(kWindsByDirection), failed, seriesOf(rawWinds()), Value::QcWindErrorCheck));
}

/// The low limit serves the free atmosphere, the high one the ends of the sounding and heights that aren't known.
bool Sounding::windErrorIsTooLarge(double time, double error) const {
    double altitude = 0.0;
    const bool freeAtmosphere = getSeries("QCGpsAlt")->interpolate(time, kGpsAltitudeGap, altitude) &&
                                kLowErrorBottom < altitude && altitude < kLowErrorTop;
    return error > valueOf(freeAtmosphere ? "WindErrorLow" : "WindErrorHigh");
}

/// Compares each pressure with the last good one.
void Sounding::presMonoCheck() {
    Series& pres = *getSeries("QCPres");
    if (!boolOf("PresMonoCheck") || pres.empty()) {
        return;
    }
    std::vector<int> failed;
    double previous = pres.data(0);
    for (int i = 1; i <= pres.lastIndex(); ++i) {
        const double value = pres.data(i);
        const bool backward = _meta.ascending ? value > previous : value < previous;
        if ((value < kLeastPressure || backward) && !pres.testAttribute(i, Value::QcKeep)) {
            failed.push_back(i);
        } else {
            previous = value;
        }
    }
    _summary.addItem("QC for Pressure", "Points which failed the monotonic check: ",
                     removeAndStamp({&pres}, failed, seriesOf({"RawPres"}), Value::QcMonotonicPresCheck));
}
