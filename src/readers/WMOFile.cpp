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

/// The hour of the observation serves a message that doesn't tell when its sonde was launched.
void WMOFile::takeTime() {
    const int time = _unLevels->obsTime() >= 0 ? _unLevels->obsTime() : std::max(_unLevels->obsHour(), 0) * 100;
    _sec = 0;
    _min = time % 100;
    _hour = time / 100;
    _day = _unLevels->dayOfMonth();
    _month = 1;
    _year = 1970;
}
