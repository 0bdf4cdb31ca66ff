#include "KeyedUpsondeFile.h"

#include "NumberText.h"
#include "Text.h"
#include "WrittenTime.h"

namespace {

constexpr int kWordsAheadOfSonde = 2;
constexpr std::size_t kTimeLength = 8; // HHMMSS and tenths; what is written behind them doesn't count
constexpr std::size_t kSecondsAt = 4;  // of the time
constexpr std::size_t kSecondsLength = 4;

/// Seconds since 1970.
double tagOf(std::string_view date, std::string_view time) {
    return timeTag(date, time.substr(0, kTimeLength));
}

bool inRange(const WrittenTime& launch) {
    return launch.inRange() && launch.month > 0 && launch.day > 0;
}

} // namespace

void KeyedUpsondeFile::takeAircraftLine(const std::string& line) {
    static constexpr auto kColumns = frameColumns(kMissing, nullptr);
    std::string_view words = line;
    skipWords(words, kWordsAheadOfColumns);
    takeLaunchObs(words, kColumns.data(), kColumns.data() + _frameWords);
}

void KeyedUpsondeFile::takeLaunchLine(const std::string& line) {
    setLaunch(line);
    _launchLineFound = true;
}

void KeyedUpsondeFile::setLaunch(std::string_view line) {
    skipWords(line, kWordsAheadOfSonde);
    _sondeId = nextWord(line);
    const std::string_view date = nextWord(line);
    const std::string_view time = nextWord(line);
    WrittenTime launch = WrittenTime::of(date, time);
    launch.sec = time.size() > kSecondsAt ? integerOf(time.substr(kSecondsAt, kSecondsLength)) : 0;
    takeLaunch(launch);
    _launchInRange = isDateText(date) && isTimeText(time) && inRange(launch);
    _launchTag = tagOf(date, time);
}

void KeyedUpsondeFile::tellDataAheadOfLaunch() {
    const char* const warning = "- Sounding data (S) line occurs before launch (LAU) line in file.\n";
    if (!contains(_errorMsg, warning)) {
        _errorMsg += warning;
    }
}

void KeyedUpsondeFile::takeUnknownSonde(const std::string& /*line*/) {}

void KeyedUpsondeFile::takeRecord(const std::string& line) {
    static constexpr auto kColumns = frameColumns(kMissing, nullptr);
    std::string_view words = line;
    skipWords(words, kWordsAheadOfSonde + 1);
    const std::string_view date = nextWord(words);
    const std::string_view clock = nextWord(words);
    if (!isDateText(date) || !isTimeText(clock)) {
        warnOnce("- Error in the date or time value in line ");
        return;
    }
    const double time = tagOf(date, clock);
    _sTime.appendValue(time, time);
    if (_sondeId.empty()) {
        takeUnknownSonde(line);
    }
    takeFrame(words, kColumns.data(), kColumns.data() + _frameWords, time);
    if (_frameWords < kColumns.size()) {
        _sGpsalt.appendValue(kMissing, time);
    }
    ++_dataPoints;
}

void KeyedUpsondeFile::takePrelaunchObs(const std::string& value) {
    if (!takeLaunchObsSource(value)) {
        _launchObsTime.clear();
    }
}

void KeyedUpsondeFile::settleLaunch() {
    describeSonde();
    countFrom(_launchTag);
    if (!_launchLineFound) {
        _errorMsg += "- No launch line (LAU) found in file.\n";
        notValid();
    }
    if (!_launchInRange) {
        _errorMsg += kLaunchInvalid;
        notValid();
    }
}

void KeyedUpsondeFile::conclude(SoundingType type, const char* platform) {
    _soundingType = type;
    _platformType = platform;
    takeWmoCodes("90");
    if (_dataPoints < 1) {
        _errorMsg += kNoData;
        notValid();
    }
}
