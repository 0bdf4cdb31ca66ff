#include "WMOsection1.h"

#include "Globe.h"
#include "GroupCoders.h"
#include "Levels.h"
#include "Missing.h"
#include "Text.h"
#include "UtcTime.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace {

constexpr int kNumber = 1;
constexpr int kKnots = 50;
constexpr std::array<const char*, 4> kPartLetters{"AA ", "BB ", "CC ", "DD "};
constexpr std::array<const char*, 3> kTempForms{"TT", "UU", "II"};
const char* const kDropForm = "XX";
constexpr std::int64_t kHalfHour = 1800; // s

std::string tenths(const char* format, double degrees) {
    return stringFormat(format, static_cast<int>(std::round(std::abs(degrees) * 10.0)));
}

bool launchPosition(const SndMetaData& meta, double& lat, double& lon) {
    if (!meta.launchLat.avail(false) || !meta.launchLon.avail(false) ||
        !isOnGlobe(meta.launchLat.value(), meta.launchLon.value())) {
        return false;
    }
    lat = meta.launchLat.value();
    lon = meta.launchLon.value();
    return true;
}

/// Height and unit of a mobile station. No height, of the lowest confidence, where four characters don't hold it.
std::string heightGroup(const LaunchParameter& altitude) {
    constexpr double kLowest = -999.0; // m
    constexpr double kHighest = 9999.0;
    const double height = std::round(altitude.value());
    return altitude.avail(false) && height >= kLowest && height <= kHighest
               ? stringFormat("%04d", static_cast<int>(height)) + "1"
               : "00004";
}

} // namespace

WMOsection1::WMOsection1(const Levels& levels, WMOpartType part) : WMOsection(levels, part, kNumber) {}

void WMOsection1::addPart(const std::string& codeForm) {
    const std::string text = codeForm + kPartLetters[static_cast<std::size_t>(_part)];
    _groups.emplace_back(text, _part == WMOpartType::A || _part == WMOpartType::C);
}

std::string WMOsection1::dateGroup(const SndMetaData& meta, int dayOffset, const std::string& last) const {
    if (meta.day < 1 || meta.day > 31 || !WMOgroup::isTimeOfDay(meta.hour, meta.min)) {
        return "////" + last;
    }
    int day = meta.day;
    int hour = meta.hour;
    if (meta.min >= 30) {
        const std::int64_t rounded = utcSeconds(meta.year, meta.month, meta.day, meta.hour, meta.min, 0) + kHalfHour;
        day = std::atoi(utcText(rounded, "%d").c_str());
        hour = std::atoi(utcText(rounded, "%H").c_str());
    }
    return WMOgroup::twoDigits(day + dayOffset) + WMOgroup::twoDigits(hour) + last;
}

std::string WMOsection1::dateSuffix(const SndMetaData& meta) const {
    switch (_part) {
    case WMOpartType::B:
        return meta.WMOequipType;
    case WMOpartType::D:
        return "/";
    default:
        return Id();
    }
}

void WMOsection1::addPosition(double lat, double lon) {
    if (!isOnGlobe(lat, lon)) {
        add("99///");
        add("/////");
        add("/////");
        return;
    }
    const std::string quadrant = WMOgroup::quadrant(lat, lon);
    add("99" + tenths("%03d", lat));
    add(quadrant + tenths("%04d", lon));
    add(WMOgroup::marsden(lat, lon, quadrant));
}

WMOsection1temp::WMOsection1temp(const Levels& levels, WMOpartType part, TempMsgType message, const SndMetaData& meta)
    : WMOsection1(levels, part) {
    const std::string date = dateGroup(meta, kKnots, dateSuffix(meta));
    addPart(kTempForms[static_cast<std::size_t>(message)]);
    if (message == TempMsgType::Temp) {
        add(date);
        add(meta.BSN);
        return;
    }
    add(meta.callSign);
    add(date);
    double lat = kMissing;
    double lon = kMissing;
    launchPosition(meta, lat, lon);
    addPosition(lat, lon);
    if (message == TempMsgType::TempMobil) {
        add(heightGroup(meta.launchAlt));
    }
}

WMOsection1tempdrop::WMOsection1tempdrop(const Levels& levels, WMOpartType part, const SndMetaData& meta)
    : WMOsection1(levels, part) {
    const auto& all = levels.levels();
    const bool hasWind = std::any_of(all.begin(), all.end(), [](const Level& level) { return level.has(LFwspd); });
    double lat = kMissing;
    double lon = kMissing;
    if (!launchPosition(meta, lat, lon)) {
        levels.highestPos(lat, lon);
    }
    addPart(kDropForm);
    add(dateGroup(meta, hasWind ? kKnots : 0, dateSuffix(meta)));
    addPosition(lat, lon);
}
