// The values of the descriptors. What a handler leaves unset stays missing.

#include "TarvoToBUFR.h"

#include "Humidity.h"
#include "Missing.h"
#include "RevisionInfo.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace {

/// What averaging as components takes off a direction of whole degrees, and more; it must not cost a degree.
constexpr double kAveragingNoise = 1e-6;

constexpr int kRadiosondeUnknownMaker = 9; // code tables of the WMO
constexpr int kTrackingNotSpecified = 19;
constexpr int kLaunchTimeSignificance = 18;
constexpr int kRowSequence = 303054;
constexpr int kElementsOfRow = 10;
constexpr int kPositionsOfRow = kElementsOfRow + 1;
constexpr int kMostRows = 65535;
constexpr double kLaunchTimeOffset = 1.0; // s: the launch row stands at -1
constexpr double kPascalsPerMillibar = 100.0;
constexpr double kZeroCelsius = 273.15; // K
const char* const kNoStation = "99999";
constexpr std::size_t kStationDigits = 5;
constexpr std::size_t kBlockDigits = 2;

} // namespace

int TarvoToBUFR::setInt(bufr_desc* descriptor, int value) {
    if (_active) {
        bufr_descriptor_set_ivalue(descriptor, value);
    }
    return 1;
}

int TarvoToBUFR::setText(bufr_desc* descriptor, const std::string& text) {
    if (_active && !text.empty()) {
        bufr_descriptor_set_svalue(descriptor, text.c_str());
    }
    return 1;
}

/// The number that \p text begins with; \p otherwise when there is no text.
int TarvoToBUFR::setCode(bufr_desc* descriptor, const std::string& text, int otherwise) {
    const long code = text.empty() ? otherwise : std::strtol(text.c_str(), nullptr, 10);
    return setInt(descriptor, static_cast<int>(std::clamp(code, -1L, 1000000L)));
}

int TarvoToBUFR::setStationNumber(bufr_desc* descriptor, std::size_t first, std::size_t length) {
    const std::string& station = _metaData.BSN;
    const bool isNumber = station.size() == kStationDigits && station != kNoStation &&
                          station.find_first_not_of("0123456789") == std::string::npos;
    return isNumber ? setCode(descriptor, station.substr(first, length), 0) : 1;
}

int TarvoToBUFR::bufr_001081_sernumber(bufr_desc* descriptor, int /*position*/) {
    return setText(descriptor, _metaData.sondeId);
}

int TarvoToBUFR::bufr_002017_algorithms(bufr_desc* descriptor, int /*position*/) {
    return setInt(descriptor, _metaData.ascending ? 3 : 0);
}

int TarvoToBUFR::bufr_025061_softwareid(bufr_desc* descriptor, int /*position*/) {
    return setText(descriptor, "Tarvo" + RevisionInfo().text("TARVO_AEV"));
}

int TarvoToBUFR::bufr_002191_geocalc(bufr_desc* descriptor, int /*position*/) {
    return setInt(descriptor, 0);
}

int TarvoToBUFR::bufr_001023_obsnum(bufr_desc* descriptor, int /*position*/) {
    int number = 99;
    findAttribute("ObsNum", number);
    return setInt(descriptor, number);
}

int TarvoToBUFR::bufr_001001_wmoblock(bufr_desc* descriptor, int /*position*/) {
    return setStationNumber(descriptor, 0, kBlockDigits);
}

int TarvoToBUFR::bufr_001002_wmostation(bufr_desc* descriptor, int /*position*/) {
    return setStationNumber(descriptor, kBlockDigits, kStationDigits - kBlockDigits);
}

int TarvoToBUFR::bufr_001011_stationid(bufr_desc* descriptor, int /*position*/) {
    return _metaData.callSign == "CALL" ? 1 : setText(descriptor, _metaData.callSign);
}

int TarvoToBUFR::bufr_001006_aircraftid(bufr_desc* descriptor, int /*position*/) {
    std::string agency;
    if (_active && findAttribute("ACagency", agency)) {
        bufr_descriptor_set_svalue(descriptor, agency.c_str());
    }
    return 1;
}

int TarvoToBUFR::bufr_002011_sondetype(bufr_desc* descriptor, int /*position*/) {
    return setCode(descriptor, _metaData.WMOsondeType, kRadiosondeUnknownMaker);
}

int TarvoToBUFR::bufr_002013_solarcorr(bufr_desc* descriptor, int /*position*/) {
    return setInt(descriptor, _metaData.ascending ? 4 : 0);
}

int TarvoToBUFR::bufr_002014_tracktech(bufr_desc* descriptor, int /*position*/) {
    return setCode(descriptor, _metaData.WMOtrackingType, kTrackingNotSpecified);
}

int TarvoToBUFR::bufr_002003_equiptype(bufr_desc* descriptor, int /*position*/) {
    return setInt(descriptor, 0);
}

int TarvoToBUFR::bufr_008021_timesig(bufr_desc* descriptor, int /*position*/) {
    return setInt(descriptor, kLaunchTimeSignificance);
}

int TarvoToBUFR::bufr_004001_year(bufr_desc* descriptor, int /*position*/) {
    return setInt(descriptor, _metaData.year);
}

int TarvoToBUFR::bufr_004002_month(bufr_desc* descriptor, int /*position*/) {
    return setInt(descriptor, _metaData.month);
}

int TarvoToBUFR::bufr_004003_day(bufr_desc* descriptor, int /*position*/) {
    return setInt(descriptor, _metaData.day);
}

int TarvoToBUFR::bufr_004004_hour(bufr_desc* descriptor, int /*position*/) {
    return setInt(descriptor, _metaData.hour);
}

int TarvoToBUFR::bufr_004005_minute(bufr_desc* descriptor, int /*position*/) {
    return setInt(descriptor, _metaData.min);
}

int TarvoToBUFR::bufr_004006_second(bufr_desc* descriptor, int /*position*/) {
    return setInt(descriptor, _metaData.sec);
}

int TarvoToBUFR::setDouble(bufr_desc* descriptor, double value) {
    if (_active) {
        bufr_descriptor_set_dvalue(descriptor, value);
    }
    return 1;
}

int TarvoToBUFR::bufr_005001_lat(bufr_desc* descriptor, int /*position*/) {
    return _launchLat == kMissing ? 1 : setDouble(descriptor, _launchLat);
}

int TarvoToBUFR::bufr_006001_lon(bufr_desc* descriptor, int /*position*/) {
    return _launchLon == kMissing ? 1 : setDouble(descriptor, _launchLon);
}

int TarvoToBUFR::bufr_007007_relheight(bufr_desc* descriptor, int /*position*/) {
    return _metaData.launchAlt.avail(false) ? setDouble(descriptor, _metaData.launchAlt.value()) : 1;
}

int TarvoToBUFR::bufr_031002_nplevels(bufr_desc* descriptor, int /*position*/) {
    if (!_active) {
        return 1;
    }
    const auto rows = static_cast<int>(_rows.size());
    setInt(descriptor, rows);
    // The descriptor is gone once the subset is expanded.
    if (rows > kMostRows || bufr_expand_datasubset(_subset, 0) < 0) {
        fault("A BUFR message can't hold " + std::to_string(rows) + " rows");
    }
    return 1;
}

int TarvoToBUFR::bufr_303054_plevels(bufr_desc* /*descriptor*/, int position) {
    const auto rows = static_cast<int>(_rows.size());
    for (int i = 0; _active && !_faulty && i < rows; ++i) {
        const int row = _metaData.ascending ? i : rows - 1 - i;
        codeRow(static_cast<std::size_t>(row), position + i * kPositionsOfRow);
    }
    return rows * kPositionsOfRow + 1;
}

void TarvoToBUFR::codeRow(std::size_t row, int position) {
    for (int i = 0; i < kPositionsOfRow; ++i) {
        bufr_desc* descriptor = bufr_datasubset_get_descriptor(_subset, position + i);
        const bool isMarker = descriptor != nullptr && descriptor->descriptor == kRowSequence;
        if (descriptor == nullptr || isMarker != (i == 0) || (i > 0 && !codeRowElement(descriptor, row))) {
            fault("unexpected descriptor found in the 303054 sequence");
        }
    }
}

/// False for a descriptor that doesn't belong to a row.
bool TarvoToBUFR::codeRowElement(bufr_desc* descriptor, std::size_t row) {
    using R = BufrRows;
    const auto value = [&](R::Column column) { return _rows.value(column, row); };
    const auto set = [&](bool known, double v) {
        if (known) {
            bufr_descriptor_set_dvalue(descriptor, v);
        }
        return true;
    };
    switch (descriptor->descriptor) {
    case 4086:
        return set(true, _rows.time(row) + kLaunchTimeOffset);
    case 8042:
        bufr_descriptor_set_ivalue(descriptor, static_cast<int>(_rows.flags(row)));
        return true;
    case 7004:
        return set(value(R::Pres) != kMissing, value(R::Pres) * kPascalsPerMillibar);
    case 10009:
        return set(value(R::Alt) != kMissing, value(R::Alt));
    case 5015:
        return set(value(R::Lat) != kMissing && _launchLat != kMissing, value(R::Lat) - _launchLat);
    case 6015:
        return set(value(R::Lon) != kMissing && _launchLon != kMissing, R::halfTurn(value(R::Lon) - _launchLon));
    case 12101:
        return set(value(R::Tdry) != kMissing, value(R::Tdry) + kZeroCelsius);
    case 12103: {
        const double dp =
            value(R::Tdry) == kMissing || value(R::RH) == kMissing ? kMissing : dewPt(value(R::Tdry), value(R::RH));
        return set(dp != kMissing, dp + kZeroCelsius);
    }
    case 11001:
        return set(value(R::Wdir) != kMissing, std::trunc(value(R::Wdir) + kAveragingNoise));
    case 11002:
        return set(value(R::Wspd) != kMissing, value(R::Wspd));
    default:
        return false;
    }
}
