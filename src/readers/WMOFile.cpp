#include "WMOFile.h"

#include "UnLevels.h"

#include <algorithm>

WMOFile::WMOFile(std::string fileName, std::vector<std::string> messageLines)
    : SoundingFile(std::move(fileName), std::move(messageLines)) {
    valid();
    _soundingType = SoundingType::Wmo;
    takeWmoCodes("90");
    std::string text;
    for (const std::string& line : lines()) {
        text += line + "\n";
    }
    try {
        _unLevels = std::make_shared<const UnLevels>(text);
    } catch (const std::string& error) {
        _errorMsg += error;
        notValid();
        return;
    }
    if (!_unLevels->unreadPart().empty()) {
        _errorMsg += "- Another sounding begins with the second " + _unLevels->unreadPart() +
                     " of this file. It and what follows were not read.\n";
    }
    _ascending = _unLevels->wmoType() != "TEMP DROP";
    _dataType = "WMO " + _unLevels->wmoType();
    _launchLat = _unLevels->latitude();
    _launchLon = _unLevels->longitude();
    takeTime();
}

/// The hour of the observation serves a message that doesn't tell when its sonde was launched. The day goes with that
/// hour, which is the nearest: after a launch late in the evening it is that of the next morning. What day came before
/// the first of a month isn't told.
void WMOFile::takeTime() {
    constexpr int kNextDayFrom = 2330; // hhmm
    const int time = _unLevels->obsTime() >= 0 ? _unLevels->obsTime() : std::max(_unLevels->obsHour(), 0) * 100;
    _sec = 0;
    _min = time % 100;
    _hour = time / 100;
    _day = _unLevels->dayOfMonth();
    if (time >= kNextDayFrom && _unLevels->obsHour() == 0 && _day > 1) {
        --_day;
    }
    _month = 1;
    _year = 1970;
}
