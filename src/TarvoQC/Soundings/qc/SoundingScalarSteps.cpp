#include "Sounding.h"

#include "Offset.h"
#include "QcAttribute.h"
#include "ScalarAdjustment.h"

#include <algorithm>
#include <array>

namespace {

constexpr double kRHFloor = 0.1;     // %, not 0: a dew point needs some vapour
constexpr double kRHCeiling = 100.0; // %

// The bands beyond 0 and 100 % that thresholding forces back; what lies further out is for the limit check.
constexpr double kRHBandLow = -5.0;
constexpr double kRHBandHigh = 110.0;

constexpr int kSplashPressures = 30;    // samples looked at for the greatest pressure
constexpr double kSplashPressure = 1.0; // mb
constexpr int kSplashSatellites = 60;   // samples looked at for satellites
constexpr double kSplashGpsEnd = 0.5;   // s
constexpr double kSplashGpsGap = 1.0;   // s

struct OffsetTarget {
    const char* series;
    const char* key;
};

constexpr std::array<OffsetTarget, 4> kOffsets{{
    {"QCPres", "PresOffset"},
    {"QCVVPres", "PresOffset"}, // of a descending sounding only
    {"QCTdry", "TdryOffset"},
    {"QCRH", "RHOffset"},
}};

} // namespace

void Sounding::offsets() {
    for (const OffsetTarget& target : kOffsets) {
        if (Series* series = getSeries(target.series)) {
            Offset::apply(*series, valueOf(target.key));
        }
    }
}

/// Finds a drop whose data go on after the sonde has reached the water, when the user hasn't set the end of the drop.
void Sounding::postSplashCheck() {
    if (_meta.ascending || !boolOf("DropsondeHitSfc") || _config.exists("LastDataTimeOverride")) {
        return;
    }
    const std::string reason = postSplashReason();
    if (!reason.empty()) {
        _summary.addItem("Post-splash Test", reason);
        addQcError("- This sounding appears to contain post-splash data. Please remove post-splash data by setting "
                   "end-of-drop time.\n");
    }
}

std::string Sounding::postSplashReason() const {
    const Series& pres = *getSeries("QCPres");
    if (pres.lastIndex() > 1) {
        double greatest = 0.0;
        for (int i = std::max(0, pres.lastIndex() + 1 - kSplashPressures); i <= pres.lastIndex(); ++i) {
            greatest = std::max(greatest, pres.data(i));
        }
        if (greatest - pres.data(pres.lastIndex()) > kSplashPressure) {
            return "Floating sonde detected - last pressure is not max pressure";
        }
    }
    const Series& sats = *getSeries("QCRawSats");
    if (sats.lastIndex() < 2) {
        return {};
    }
    int k = sats.lastIndex();
    while (k >= 0 && sats.data(k) == 0.0) {
        --k;
    }
    if (k < 0) {
        return {};
    }
    double t = sats.time(k);
    if (maxLastDataTime() - t > kSplashGpsEnd) {
        return "Floating sonde detected - GPS data ends before end of sounding";
    }
    const int first = std::max(0, sats.lastIndex() + 1 - kSplashSatellites);
    for (int i = k - 1; i >= first; --i) {
        if (sats.data(i) == 0.0) {
            continue;
        }
        if (t - sats.time(i) >= kSplashGpsGap) {
            return "Floating sonde detected - gap larger than 1 second in GPS near surface";
        }
        t = sats.time(i);
    }
    return {};
}

/// Forces an RH a little beyond its range to the range, when the configuration asks for it.
void Sounding::rhThresholding() {
    Series& rh = *getSeries("QCRH");
    if (!boolOf("RHThreshold") || rh.empty()) {
        return;
    }
    const QcAttribute stamp(getSeries("RawRH"), Value::QcRHThreshold);
    int forced = 0;
    for (int i = 0; i <= rh.lastIndex(); ++i) {
        const double value = rh.data(i);
        const bool tooLow = kRHBandLow <= value && value < 0.0;
        const bool tooHigh = kRHCeiling < value && value < kRHBandHigh;
        if (tooLow || tooHigh) {
            rh.setData(i, tooLow ? 0.0 : kRHCeiling);
            stamp.setAttribute(rh.time(i));
            ++forced;
        }
    }
    _summary.addItem("QC for Relative Humidity", "Points which were forced to 0% or 100%: ", forced);
}

/// Limits the RH to what it can be, whatever the item of this name says. Stamps and removes nothing.
void Sounding::RHThreshold() {
    Series& rh = *getSeries("QCRH");
    if (rh.empty()) {
        return;
    }
    _summary.addItem("QC for Relative Humidity",
                     "Points which failed the lower limit check: ", ScalarAdjustment::minThreshold(rh, kRHFloor));
    _summary.addItem("QC for Relative Humidity",
                     "Points which failed the upper limit check: ", ScalarAdjustment::maxThreshold(rh, kRHCeiling));
}
