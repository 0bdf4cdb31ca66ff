#include "OmbraFile.h"

#include "NumberText.h"
#include "Text.h"
#include "Words.h"

#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <limits>

namespace {

constexpr double kSecondDzMark = 99.0;
constexpr double kLongFrameVersion = 1.6;      // frames carry wind error and GPS altitude from it on
constexpr double kDryBiasStart = 1230768000.0; // 2009-01-01 00:00:00, s since 1970
constexpr const char* kMiniSet = "mini-dropsonde";
constexpr const char* kMiniModel = "RSS421";
constexpr const char* kNoLaunch = "000000 000000.00"; // of a launch line that tells no launch

} // namespace

struct OmbraFile::FrameLayout {
    const FrameColumn* first;
    const FrameColumn* last;
};

OmbraFile::FrameLayout OmbraFile::frameLayout() const {
    static constexpr auto kColumns = frameColumns(kSecondDzMark, &OmbraFile::_sWe);
    return {kColumns.data(), kColumns.data() + (_formatVersion < kLongFrameVersion ? kShortFrame : kColumns.size())};
}

OmbraFile::OmbraFile(std::string fileName, std::vector<std::string> dLines, std::string activeSetName)
    : KeyedFile(std::move(fileName), std::move(dLines), 0.0), _activeSetName(std::move(activeSetName)) {
    _soundingType = SoundingType::Ombra;
    _ascending = false;
    valid();
    readData();
    takeWmoCodes("96");
}

void OmbraFile::readData() {
    for (const int channel : {0, 1, 2}) {
        registerRHchan(channel);
    }
    _rhHeatingOn = true;
    reserveFrames();
    findFormatVersion();
    readLines();
    describeSonde();
    if (!fitsActiveSet() || !settleLaunchTime()) {
        notValid();
        return;
    }
    checkDataAheadOfLaunch();
    removeEarlyData();
    countCrcErrors();
    _dataPoints = _sTime.lastIndex() + 1;
    countFrom(_launchTime);
    findWindRate();
    _needsTDDryBiasCorr = _launchTime >= kDryBiasStart && _dryBiasSonde && !_tdDryBiasCorrPresent;
    takeLaunchDate();
    if (_dataPoints < 1) {
        _errorMsg += kNoData;
        notValid();
    }
}

/// The version decides how frames are read, wherever in the file it stands.
void OmbraFile::findFormatVersion() {
    for (const std::string& line : lines()) {
        const OmbraLine type = ombraLineType(line);
        if (type == OmbraLine::Format || type == OmbraLine::FormatText) {
            std::string_view words = line;
            skipWords(words, type == OmbraLine::Format ? 3 : 5);
            _formatVersion = numberOf(nextWord(words));
        }
    }
}

void OmbraFile::readLines() {
    while (linesLeft()) {
        const std::string& line = nextLine();
        switch (const OmbraLine type = ombraLineType(line)) {
        case OmbraLine::SoundingData:
        case OmbraLine::PrelaunchData:
            takeDataFrame(line, type);
            break;
        case OmbraLine::AircraftData:
            takeAircraftLine(line);
            break;
        case OmbraLine::Launch:
            takeLaunchLine(line);
            break;
        default:
            takeCommentLine(line, type);
        }
    }
}

void OmbraFile::takeDataFrame(const std::string& line, OmbraLine type) {
    std::string_view words = line;
    double time = 0.0;
    if (!takeFrameTime(words, time)) {
        return;
    }
    const FrameLayout layout = frameLayout();
    _sTime.appendValue(time, time);
    takeFrame(words, layout.first, layout.last, time);
    if (_formatVersion < kLongFrameVersion) {
        _sWe.appendValue(kMissing, time);
        _sGpsalt.appendValue(kMissing, time);
    }
    if (type == OmbraLine::SoundingData) {
        takeCrcFlags(ombraCrcFlags(line), time);
    }
    const int i = _sTime.lastIndex();
    if (_sRh1.data(i) != _sRh0.data(i) || _sRh2.data(i) != _sRh0.data(i)) {
        _rhHeatingOn = false;
    }
}

/// False, and a warning, for a line whose date or time is none; a line cut off in the middle of them is such a line.
bool OmbraFile::takeFrameTime(std::string_view& words, double& time) {
    skipWords(words, 3);
    const std::string_view date = nextWord(words);
    const std::string_view clock = nextWord(words);
    if (!isDateText(date) || !isTimeText(clock)) {
        _errorMsg += "- Error in the date or time value in line " + std::to_string(lineNumber()) + "\n";
        return false;
    }
    time = timeTag(date, clock);
    if (_lastFrameTime >= time) {
        _errorMsg += "- Time values out of sequence in line" + std::to_string(lineNumber()) + "\n";
        notValid();
    }
    _lastFrameTime = time;
    return true;
}

void OmbraFile::takeCrcFlags(std::string_view flags, double time) {
    if (flags.empty()) {
        return;
    }
    const bool badPtu = flags[0] == '1' && !isWindsOnly();
    const bool badGps = flags[1] == '1';
    const int i = _sTime.lastIndex();
    if (badPtu) {
        for (Series* series : {&_sPres, &_sTdry, &_sRh0, &_sRh1, &_sRh2}) {
            series->setAttribute(i, Value::CrcPtu);
        }
        _badPtuTimes.push_back(time);
    }
    if (badGps) {
        for (Series* series : {&_sWdir, &_sWspd, &_sLat, &_sLon, &_sGpsalt}) {
            series->setAttribute(i, Value::CrcGps);
        }
        _badGpsTimes.push_back(time);
    }
    if (badPtu && badGps) {
        _badBothTimes.push_back(time);
    }
}

/// Whether the last frame is one of the wind frames between two full ones: it has no PTU part that could be wrong.
bool OmbraFile::isWindsOnly() const {
    const int i = _sTime.lastIndex();
    const auto missing = [&](const Series* series) { return series->data(i) == kMissing; };
    const auto absent = {&_sPres, &_sTdry, &_sRh0, &_sLon, &_sLat, &_sAlt, &_sRh1, &_sRh2};
    return _formatVersion >= kLongFrameVersion && std::all_of(absent.begin(), absent.end(), missing);
}

void OmbraFile::takeAircraftLine(std::string_view line) {
    const FrameLayout layout = frameLayout();
    skipWords(line, kWordsAheadOfColumns);
    takeLaunchObs(line, layout.first, layout.last);
}

void OmbraFile::takeLaunchLine(std::string_view line) {
    if (contains(line, kNoLaunch)) {
        return;
    }
    skipWords(line, 2);
    _launchLineId = nextWord(line);
    _sondeId = _launchLineId;
    checkSondeIds();
    const std::string_view date = nextWord(line);
    const std::string_view time = nextWord(line);
    _toldLaunch = WrittenTime::of(date, time);
    _toldLaunchIsATime = isDateText(date) && isTimeText(time);
}

/// Minisondes have a configuration set of their own, and it suits no other sonde.
bool OmbraFile::fitsActiveSet() {
    const bool miniSet = _activeSetName == kMiniSet;
    if (!contains(_sondeModel, kMiniModel)) {
        return true;
    }
    if (contains(_sondeRevision, "A")) {
        if (miniSet) {
            _errorMsg += "This is not a minisonde, but you are using the mini-dropsonde config set. Please close this "
                         "file, select a different config set, and reopen the file.\n";
        }
        return !miniSet;
    }
    if (contains(_sondeRevision, "N") && !miniSet) {
        _errorMsg +=
            "This is a minisonde, but you are not using the mini-dropsonde config set. Please close this file, "
            "select the mini-dropsonde config set, and reopen the file.\n";
        return false;
    }
    return true;
}

bool OmbraFile::settleLaunchTime() {
    const std::optional<double> told =
        _toldLaunch ? std::optional<double>(_toldLaunch->seconds()) : std::optional<double>();
    const LaunchTimeDecision decision = decideLaunchTime(told, findPresLaunchTime(_sPres));
    _errorMsg += decision.errorText;
    _summaryInfo.insert(_summaryInfo.end(), decision.summary.begin(), decision.summary.end());
    _launchTimeSource = decision.source;
    _launchTime = decision.time.value_or(0.0);
    return decision.time.has_value();
}

void OmbraFile::checkDataAheadOfLaunch() {
    if (_sTime.empty() || _sTime.time(0) < _launchTime) {
        return;
    }
    _errorMsg +=
        "- This file does not include any sonde data prior to launch. This suggests the file has been manually "
        "edited and, if the time gap between launch and data is large enough, may invalidate sensor "
        "equilibration times.\n";
    _summaryInfo.emplace_back("This file does not include any sonde data prior to launch.");
}

void OmbraFile::removeEarlyData() {
    const auto afterLaunch =
        std::find_if(_sTime.begin(), _sTime.end(), [&](const Value& frame) { return frame.time() >= _launchTime; });
    const auto firstKept = static_cast<int>(afterLaunch - _sTime.begin()) - 1;
    for (Series* series : recordSeries()) {
        series->removeIf([&](int index, const Value&) { return index < firstKept; });
    }
}

void OmbraFile::countCrcErrors() {
    const auto sinceLaunch = [&](const std::vector<double>& times) {
        return static_cast<int>(
            std::count_if(times.begin(), times.end(), [&](double time) { return time >= _launchTime; }));
    };
    _crcErrors = {sinceLaunch(_badPtuTimes), sinceLaunch(_badGpsTimes), sinceLaunch(_badBothTimes)};
}

void OmbraFile::findWindRate() {
    constexpr int kDefaultRate = 2;
    constexpr int kIntervals = 4;
    constexpr double kGreatestRate = std::numeric_limits<int>::max();
    _ombraWindRate = kDefaultRate;
    if (_dataPoints <= kIntervals + 1) {
        return;
    }
    const double interval = (_sTime.data(kIntervals) - _sTime.data(0)) / kIntervals;
    if (interval != 0.0) { // only in a file whose times are out of sequence
        _ombraWindRate = static_cast<int>(std::clamp(std::floor(1.0 / interval + 0.5), -kGreatestRate, kGreatestRate));
    }
}

void OmbraFile::takeLaunchDate() {
    const WrittenTime launch = WrittenTime::of(_launchTime);
    takeLaunch(launch);
    // As seconds since 1970 any text makes some date; whether it was one shows in the text.
    const bool asTold = _launchTimeSource == LaunchTimeSource::LaunchLine && _toldLaunch;
    if (asTold && !(_toldLaunchIsATime && _toldLaunch->inRange())) {
        _errorMsg += kLaunchInvalid;
        notValid();
    }
}
