#include "SoundingFile.h"

#include "NumberText.h"
#include "SoundingLines.h"
#include "Text.h"
#include "UtcTime.h"
#include "WrittenTime.h"

#include <algorithm>

SoundingFile::SoundingFile(std::string fileName, std::vector<std::string> lines)
    : _fileName(std::move(fileName)), _valid(!lines.empty()), _lines(std::move(lines)) {}

SoundingFile::~SoundingFile() = default;

void SoundingFile::updateDescendingGeoAlt(double /*alt*/) {}

bool SoundingFile::dated() const {
    const auto date = {_year, _month, _day, _hour, _min, _sec};
    return std::none_of(date.begin(), date.end(), [](int field) { return field == -999; });
}

std::string SoundingFile::description() const {
    auto separator = _fileName.rfind('\\');
    if (separator == std::string::npos) {
        separator = _fileName.rfind('/');
    }
    const std::string name = separator == std::string::npos ? _fileName : _fileName.substr(separator + 1);
    return name + " " + _descriptionText;
}

std::int64_t SoundingFile::unixLaunchObsTime() {
    if (_unixLaunchObsTime != kUnknownTime) {
        return _unixLaunchObsTime;
    }
    const std::vector<std::string> clock = tokenize(_launchObsTime, ":");
    if (clock.size() != 3 && clock.size() != 4) {
        return kUnknownTime;
    }
    const int hour = integerOf(clock[0].substr(clock[0].find_last_of(" T") + 1)); // a date may stand ahead of it
    const int min = integerOf(clock[1]);
    const int sec = integerOf(clock[2]);
    const auto within = [](int value, int greatest) { return value >= 0 && value <= greatest; };
    if (within(hour, 23) && within(min, 59) && within(sec, 59)) {
        _unixLaunchObsTime = nearLaunch(utcSeconds(_year, _month, _day, hour, min, sec));
    }
    return _unixLaunchObsTime;
}

/// \p time on the day of the launch, or on the day ahead of it or behind it when that is nearer to the launch.
std::int64_t SoundingFile::nearLaunch(std::int64_t time) const {
    constexpr std::int64_t kDay = 86400; // s
    const std::int64_t late = dated() ? time - utcSeconds(_year, _month, _day, _hour, _min, _sec) : 0;
    return late > kDay / 2 ? time - kDay : late < -kDay / 2 ? time + kDay : time;
}

void SoundingFile::settleTimes() {
    if (!_valid) {
        return;
    }
    std::vector<double> times = _sTime.timeArray();
    times.erase(std::remove(times.begin(), times.end(), kMissing), times.end()); // such records are told elsewhere
    constexpr int kKeptAhead = 1; // the frame from ahead of the launch may be an old one
    const auto ahead = std::count_if(times.begin(), times.end(), [](double time) { return time < kLaunchObsTime; });
    if (ahead > kKeptAhead) {
        _errorMsg += "- " + std::to_string(ahead) + " records from more than 1 s ahead of the launch are left out.\n";
    }
    if (!std::is_sorted(times.begin(), times.end())) {
        for (Series* series : recordSeries()) {
            series->sortByTime();
        }
        _errorMsg += "- The times of the records go backward. The records are put in order of time.\n";
    }
    dropRepeated();
}

void SoundingFile::dropRepeated() {
    const std::vector<Series*> all = recordSeries();
    const bool isTable = std::all_of(all.begin(), all.end(), [this](const Series* series) {
        return series->lastIndex() == _sTime.lastIndex(); // columns may come in the middle of a CSV file
    });
    std::set<int> repeated;
    for (int i = 1; isTable && i <= _sTime.lastIndex(); ++i) {
        const auto repeats = [i](const Series* series) {
            return series->time(i) == series->time(i - 1) && series->data(i) == series->data(i - 1);
        };
        if (_sTime.time(i) != kMissing && std::all_of(all.begin(), all.end(), repeats)) {
            repeated.insert(i);
        }
    }
    if (repeated.empty()) {
        return;
    }
    for (Series* series : all) {
        series->removeIf([&](int index, const Value&) { return repeated.count(index) > 0; });
    }
    _dataPoints = _sTime.lastIndex() + 1;
    _errorMsg += "- Records are repeated. Each was read once.\n";
}

std::vector<Series*> SoundingFile::recordSeries() {
    std::vector<Series*> used;
    for (Series* series : {&_sTime, &_sPres, &_sTdry, &_sRh0, &_sRh1, &_sRh2, &_sWdir, &_sWspd, &_sDz, &_sLon, &_sLat,
                           &_sAlt, &_sGpsalt, &_sSats, &_sDp, &_sMr, &_sVt, &_sPtemp, &_sWe}) {
        if (!series->empty()) {
            used.push_back(series);
        }
    }
    return used;
}

void SoundingFile::tellLongLine(std::size_t lineNumber) {
    _errorMsg += "- Line " + std::to_string(lineNumber) + " is longer than " + std::to_string(kLongestLine) +
                 " characters; the rest of the file was not read.\n";
}

void SoundingFile::warnOnce(const std::string& warning) {
    if (!contains(_errorMsg, warning)) {
        _errorMsg += warning + std::to_string(lineNumber()) + "\n";
    }
}

void SoundingFile::takeLaunch(const WrittenTime& launch) {
    _year = launch.year;
    _month = launch.month;
    _day = launch.day;
    _hour = launch.hour;
    _min = launch.min;
    _sec = launch.sec;
}

void SoundingFile::checkLaunchTime() {
    const WrittenTime told{_year, _month, _day, _hour, _min, _sec, 0.0};
    if (WrittenTime::of(told.seconds()).text() != told.text()) {
        _errorMsg += kLaunchInvalid;
    }
}

void SoundingFile::takeWmoCodes(const char* sondeType) {
    _wmoTrackingType = "08";
    _wmoRadCorrection = "0";
    _wmoEquipType = "8";
    _wmoSondeType = sondeType;
}

void SoundingFile::adjustErrStats(double endTime) {
    _crcErrorsAfterEnd = CrcErrors();
    // The record kept from ahead of the launch was never counted.
    for (int i = _sTime.lastIndex(); i >= 0 && _sTime.time(i) > endTime && _sTime.time(i) >= 0.0; --i) {
        const bool ptu = i <= _sPres.lastIndex() && _sPres.testAttribute(i, Value::CrcPtu);
        const bool gps = i <= _sWspd.lastIndex() && _sWspd.testAttribute(i, Value::CrcGps);
        _crcErrorsAfterEnd.ptu += ptu ? 1 : 0;
        _crcErrorsAfterEnd.gps += gps ? 1 : 0;
        _crcErrorsAfterEnd.both += ptu && gps ? 1 : 0;
    }
}
