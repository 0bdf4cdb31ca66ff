#include "Sounding.h"

#include "BuddyCheck.h"
#include "FilterCheck.h"
#include "OutlierCheck.h"

namespace {

/// What the checks of whole series are applied to. The first series of a list decides, the others go with it.
struct CheckRow {
    std::vector<const char*> series;
    std::vector<const char*> flagged;
    const char* topic;
    const char* buddyKey;
    const char* buddyItem;
    const char* wavelengthKey;
    const char* deviationKey;
    const char* filterError;
    const char* filterItem;
};

const char* const kBuddyItem = "Points which failed the buddy check: ";
const char* const kFilterItem = "Points which failed the Q/C filter check: ";

const std::vector<CheckRow>& checkRows() {
    static const std::vector<CheckRow> rows{
        {{"QCPres"},
         {"RawPres"},
         "QC for Pressure",
         "PresBuddySlope",
         kBuddyItem,
         "PresQCWL",
         "PresQCDev",
         "- Filter check failed for pressure\n",
         kFilterItem},
        {{"QCVVPres"},
         {},
         "QC for VV Pressure",
         "PresBuddySlope",
         kBuddyItem,
         "PresQCWL",
         "PresQCDev",
         "- Filter check failed for VVpressure\n",
         kFilterItem},
        {{"QCTdry"},
         {"RawTdry"},
         "QC for Temperature",
         "TdryBuddySlope",
         kBuddyItem,
         "TdryQCWL",
         "TdryQCDev",
         "- Filter check failed for Tdry\n",
         kFilterItem},
        {{"QCRH"},
         {"RawRH"},
         "QC for Relative Humidity",
         "RHBuddySlope",
         kBuddyItem,
         "RHQCWL",
         "RHQCDev",
         "- Filter check failed for RH\n",
         kFilterItem},
        {{"QCGpsLat", "QCGpsLon"},
         {"RawLat", "RawLon"},
         "QC for GPS Position",
         "GPSPosBuddySlope",
         "Points which failed the latitude buddy check: ",
         "GPSPosQCWL",
         "GPSPosQCDev",
         "- Filter check failed for GPS Latitude\n",
         "Points which failed the latitude Q/C filter check: "},
        {{"QCGpsLon", "QCGpsLat"},
         {"RawLat", "RawLon"},
         "QC for GPS Position",
         "GPSPosBuddySlope",
         "Points which failed the longitude buddy check: ",
         "GPSPosQCWL",
         "GPSPosQCDev",
         "- Filter check failed for GPS Longitude\n",
         "Points which failed the longitude Q/C filter check: "},
        {{"QCGpsAlt"},
         {"RawGpsAlt"},
         "QC for GPS Altitude",
         "GPSAltBuddySlope",
         kBuddyItem,
         "GPSAltQCWL",
         "GPSAltQCDev",
         "- Filter check failed for GPS Altitude\n",
         kFilterItem},
        {qcWinds(), rawWinds(), "QC for Winds", "WindBuddySlope", kBuddyItem, "WindQCWL", "WindQCDev",
         "- Filter check failed for winds\n", kFilterItem},
    };
    return rows;
}

struct OutlierRow {
    std::vector<const char*> series;
    std::vector<const char*> flagged;
    const char* disableKey;
    const char* limitKey;
    const char* topic;
    bool headsGroup; ///< tells of the whole group when it is disabled
};

const std::vector<OutlierRow>& outlierRows() {
    static const std::vector<OutlierRow> rows{
        {{"QCPres"}, {"RawPres"}, "PresDisableOutlierCheck", "PresOutlier", "QC for Pressure", true},
        {{"QCVVPres"}, {}, "PresDisableOutlierCheck", "PresOutlier", "QC for VV Pressure", false},
        {{"QCTdry"}, {"RawTdry"}, "TdryDisableOutlierCheck", "TdryOutlier", "QC for Temperature", true},
        {{"QCRH"}, {"RawRH"}, "RHDisableOutlierCheck", "RHOutlier", "QC for Relative Humidity", true},
        {qcWinds(), rawWinds(), "WindDisableOutlierCheck", "WindOutlier", "QC for Winds", true},
    };
    return rows;
}

} // namespace

void Sounding::buddyCheck() {
    for (const CheckRow& row : checkRows()) {
        const SeriesList series = seriesOf(row.series);
        if (!series.empty()) {
            _summary.addItem(row.topic, row.buddyItem,
                             BuddyCheck().check(series, valueOf(row.buddyKey), seriesOf(row.flagged)));
        }
    }
}

void Sounding::outlierCheck() {
    for (const OutlierRow& row : outlierRows()) {
        const SeriesList series = seriesOf(row.series);
        if (boolOf(row.disableKey)) {
            if (row.headsGroup) {
                _summary.addItem(row.topic, "Outlier check disabled");
            }
        } else if (!series.empty()) {
            _summary.addItem(row.topic, "Points which failed the outlier check: ",
                             OutlierCheck().check(series, valueOf(row.limitKey), seriesOf(row.flagged)));
        }
    }
}

void Sounding::filterCheck() {
    for (const CheckRow& row : checkRows()) {
        const bool isWind = std::string(row.topic) == "QC for Winds";
        if (isWind && boolOf("WindDisableQCFilter")) {
            _summary.addItem(row.topic, "Q/C filter check disabled");
            continue;
        }
        const SeriesList series = seriesOf(row.series);
        if (series.empty()) {
            continue;
        }
        bool failed = false;
        const int removed = FilterCheck().check(series, valueOf(row.deviationKey), valueOf(row.wavelengthKey),
                                                seriesOf(row.flagged), failed);
        if (failed) {
            addQcError(row.filterError);
        }
        _summary.addItem(row.topic, row.filterItem, removed);
    }
}
