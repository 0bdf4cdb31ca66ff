#include "WMOsection10.h"

#include "Globe.h"
#include "GroupCoders.h"
#include "LevelGroups.h"
#include "Levels.h"
#include "Text.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr int kNumber = 10;
const char* const kMission = "61616";
const char* const kRemarks = "62626";
constexpr double kHighestLastWind = 1000.0; // m, from which on it isn't worth a word
constexpr int kSecondsPerDay = 86400;

/// "3233N06956W". False outside the globe.
bool positionText(const Level& level, std::string& text) {
    double lat = 0.0;
    double lon = 0.0;
    if (!level.getFieldData(LFlat, lat) || !level.getFieldData(LFlon, lon) || !isOnGlobe(lat, lon)) {
        return false;
    }
    const auto hundredths = [](const char* format, double degrees) {
        return stringFormat(format, static_cast<int>(std::round(std::abs(degrees) * 100.0)));
    };
    text = hundredths("%04d", lat) + (lat < 0.0 ? "S" : "N") + hundredths("%05d", lon) + (lon < 0.0 ? "W" : "E");
    return true;
}

/// The time of day of a level, s; past midnight it begins anew.
bool clockOf(const Level& level, const SndMetaData& meta, int& seconds) {
    double time = 0.0;
    if (!level.getFieldData(LFtime, time) || !WMOgroup::isTimeOfDay(meta.hour, meta.min)) {
        return false;
    }
    seconds = static_cast<int>(time) + meta.hour * 3600 + meta.min * 60 + meta.sec;
    if (seconds > kSecondsPerDay) {
        seconds -= kSecondsPerDay;
    } else if (seconds < 0) {
        seconds += kSecondsPerDay; // the launch observation of a sonde dropped at midnight
    }
    return true;
}

std::string hoursMinutes(int seconds) {
    return WMOgroup::twoDigits(seconds / 3600) + WMOgroup::twoDigits(seconds / 60 % 60);
}

bool hasWind(const Level& level) {
    return level.has(LFwspd) && level.has(LFwdir);
}

bool holds(const WMOcodeGroup& group, const char* text) {
    return contains(group.text(), text);
}

} // namespace

WMOsection10::WMOsection10(const Levels& levels, WMOpartType part) : WMOsection(levels, part, kNumber) {
    add(kMission);
}

void WMOsection10::set61616(const std::string& text) {
    erase(kMission, kRemarks);
    _groups.emplace(_groups.begin(), std::string(kMission) + " " + text, true);
}

/// Takes out the groups from the first that holds \p from up to the next that holds \p to, which stays; to the end
/// without one.
void WMOsection10::erase(const char* from, const char* to) {
    const auto first =
        std::find_if(_groups.begin(), _groups.end(), [from](const WMOcodeGroup& group) { return holds(group, from); });
    const auto last = std::find_if(first, _groups.end(),
                                   [to](const WMOcodeGroup& group) { return to != nullptr && holds(group, to); });
    _groups.erase(first, last);
}

void WMOsection10::set62626(const Remarks& remarks, const SndMetaData& meta) {
    erase(kRemarks, nullptr);
    const auto item = [](const char* label, const std::string& text) {
        return text.empty() ? std::string() : label + text;
    };
    std::string text = item(" ", remarks.text) + splash(meta) + lastWind() +
                       layerWind(" MBL WND ", LevelType::MeanBLWind) + item(" AEV ", remarks.aev);
    if (remarks.retransmitObNum >= 0) {
        text += stringFormat(" REXMT OF OB %02d", remarks.retransmitObNum);
    }
    text += remarks.corrected ? " CORRECTED RPT" : "";
    text += remarks.lastReport ? " LAST REPORT" : "";
    text += deepLayerWind() + lowLayerWind() + item(" ATCF ", remarks.atcf) +
            place(" REL ", LevelType::RELLocation, meta) + place(" SPG ", LevelType::SPGLocation, meta);
    if (!text.empty()) {
        addOnNewLine(kRemarks + text);
    }
}

/// The splash of a sonde whose last wind has no position: where and when the surface was reached.
std::string WMOsection10::splash(const SndMetaData& meta) const {
    Level level(LevelType::SPGLocation);
    if (first(LevelType::SPGLocation, level) && level.has(LFlat) && level.has(LFlon) && level.has(LFtime)) {
        return {};
    }
    if (!first(LevelType::SurfaceThermo, level)) {
        return {};
    }
    std::string text;
    std::string position;
    int seconds = 0;
    if (positionText(level, position)) {
        text = " SPL " + position;
    }
    if (clockOf(level, meta, seconds)) {
        text += " " + hoursMinutes(seconds);
    }
    return text;
}

std::string WMOsection10::lastWind() const {
    Level level(LevelType::LastWindAlt);
    double altitude = 0.0;
    if (!first(LevelType::LastWindAlt, level) || !level.getFieldData(LFalt, altitude) ||
        !(altitude < kHighestLastWind)) {
        return {};
    }
    return stringFormat(" LST WND %03d", static_cast<int>(std::round(altitude)));
}

std::string WMOsection10::layerWind(const char* label, LevelType type) const {
    Level level(type);
    return first(type, level) && hasWind(level) ? label + ddfff(level) : std::string();
}

std::string WMOsection10::deepLayerWind() const {
    const std::string wind = layerWind(" DLM WND ", LevelType::DeepLayer);
    Level level(LevelType::DeepLayer);
    double bottom = 0.0;
    double top = 0.0;
    if (wind.empty() || !first(LevelType::DeepLayer, level) || !level.getFieldData(LFpresBot, bottom) ||
        !level.getFieldData(LFpresTop, top)) {
        return {};
    }
    return wind + " " + WMOgroup::PPP(bottom) + WMOgroup::PPP(top);
}

std::string WMOsection10::lowLayerWind() const {
    const std::string wind = layerWind(" WL150 ", LevelType::Layer150m);
    Level level(LevelType::Layer150m);
    double altitude = 0.0;
    if (wind.empty() || !first(LevelType::Layer150m, level) || !level.getFieldData(LFalt, altitude)) {
        return {};
    }
    return wind + stringFormat(" %03d", static_cast<int>(altitude));
}

std::string WMOsection10::place(const char* label, LevelType type, const SndMetaData& meta) const {
    Level level(type);
    std::string position;
    int seconds = 0;
    if (!first(type, level) || !positionText(level, position) || !clockOf(level, meta, seconds)) {
        return {};
    }
    return label + position + " " + hoursMinutes(seconds) + WMOgroup::twoDigits(seconds % 60);
}

bool WMOsection10::first(LevelType type, Level& out) const {
    const std::vector<Level> subset = _levels.subsetByType(type, 0.0, 2000.0, false);
    if (!subset.empty()) {
        out = subset.front();
    }
    return !subset.empty();
}
