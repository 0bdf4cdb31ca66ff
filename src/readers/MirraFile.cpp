#include "MirraFile.h"

#include "CommaParts.h"
#include "NumberText.h"
#include "Text.h"
#include "Words.h"

#include <array>

namespace {

std::string behindWords(std::string_view line, int count) {
    skipWords(line, count);
    return std::string(trimmed(line));
}

} // namespace

struct MirraFile::HeaderLine {
    std::string_view required; ///< what the line must hold
    void (MirraFile::*take)(std::string_view line);
};

struct MirraFile::Column {
    double SoundingFile::*launch; ///< null: of the launch row not kept
    std::array<Series SoundingFile::*, 3> series;
};

MirraFile::MirraFile(std::string fileName, std::vector<std::string> fileLines)
    : SoundingFile(std::move(fileName), std::move(fileLines)) {
    _soundingType = SoundingType::Mirra;
    if (!scanHeader()) {
        return;
    }
    readData();
    takeWmoCodes("90");
    if (_dataPoints < 1) {
        fail(kNoData);
    }
}

void MirraFile::fail(const std::string& reason) {
    _errorMsg += reason;
    notValid();
}

bool MirraFile::scanHeader() {
    static constexpr std::array<HeaderLine, 15> kHeader{{
        {"Data Type", &MirraFile::takeDataType},
        {"Project", &MirraFile::takeProject},
        {"Launch", &MirraFile::takeSite},
        {"Launch", nullptr},
        {"GMT", &MirraFile::takeLaunchTime},
        {"Sonde", &MirraFile::takeSonde},
        {"Met", nullptr},
        {"Winds", nullptr},
        {"Pre-Launch", &MirraFile::takeLaunchObsSource},
        {"System", &MirraFile::takeOperator},
        {"", nullptr},
        {"", nullptr},
        {"Time", nullptr},
        {"sec", nullptr},
        {"-----", nullptr},
    }};
    for (const HeaderLine& expected : kHeader) {
        if (!linesLeft()) {
            fail("- The file ends inside its header.\n");
            return false;
        }
        const std::string& line = nextLine();
        if (!contains(line, expected.required)) {
            fail("- Header line " + std::to_string(lineNumber()) + " does not contain \"" +
                 std::string(expected.required) + "\".\n");
            return false;
        }
        if (expected.take != nullptr) {
            (this->*expected.take)(line);
        }
    }
    return isValid();
}

void MirraFile::takeDataType(std::string_view line) {
    _dataType = behindWords(line, 2);
}

/// "Project Name/Mission ID: " or "Project Name/Mission Version: ", the latter being part of the text.
void MirraFile::takeProject(std::string_view line) {
    skipWords(line, 2);
    std::string_view behind = line;
    if (!contains(nextWord(behind), "Version:")) {
        line = behind;
    }
    const std::string text(trimmed(line));
    takeCommaPart(text, 0, _project);
    _descriptionText = text + "  ";
}

void MirraFile::takeSite(std::string_view line) {
    takeCommaPart(behindWords(line, 4), 1, _siteId);
}

void MirraFile::takeLaunchTime(std::string_view line) {
    skipWords(line, 4);
    _year = integerOf(nextWord(line));
    _month = integerOf(nextWord(line));
    _day = integerOf(nextWord(line));
    const auto clock = tokenize(std::string(trimmed(line)), ":");
    if (clock.size() >= 3) {
        _hour = integerOf(clock[0]);
        _min = integerOf(clock[1]);
        _sec = integerOf(clock[2]);
    }
    const auto within = [](int value, int least, int greatest) { return value >= least && value <= greatest; };
    if (!within(_year, 1, 9999) || !within(_month, 1, 12) || !within(_day, 1, 31) || !within(_hour, 0, 59) ||
        !within(_min, 0, 59) || !within(_sec, 0, 59)) {
        fail(kLaunchInvalid);
    }
}

/// "model ... id frequency, sensor"
void MirraFile::takeSonde(std::string_view line) {
    _platformType = "KIVU MIRRA";
    std::string sonde;
    takeCommaPart(behindWords(line, 4), 0, sonde);
    std::string_view rest = sonde;
    for (int number = 1; !rest.empty(); ++number) {
        const std::string word(nextWord(rest));
        if (number == 3) {
            _sondeId = word;
        }
        if (!rest.empty()) {
            _sondeModel += word + " ";
        }
    }
}

void MirraFile::takeLaunchObsSource(std::string_view line) {
    skipWords(line, 4);
    _launchObsSource = nextWord(line);
}

void MirraFile::takeOperator(std::string_view line) {
    const std::string value = behindWords(line, 2);
    takeCommaPart(value, 0, _sysOperator);
    takeCommaPart(value, 1, _comments);
}

const std::array<MirraFile::Column, 10>& MirraFile::columns() {
    static constexpr std::array<Column, 10> kColumns{{
        {&MirraFile::_launchPres, {&MirraFile::_sPres}},
        {&MirraFile::_launchTdry, {&MirraFile::_sTdry}},
        {&MirraFile::_launchRH, {&MirraFile::_sRh0, &MirraFile::_sRh1, &MirraFile::_sRh2}},
        {&MirraFile::_launchWdir, {&MirraFile::_sWdir}},
        {&MirraFile::_launchWspd, {&MirraFile::_sWspd}},
        {nullptr, {&MirraFile::_sDz}},
        {&MirraFile::_launchLon, {&MirraFile::_sLon}},
        {&MirraFile::_launchLat, {&MirraFile::_sLat}},
        {&MirraFile::_launchAlt, {&MirraFile::_sAlt}},
        {nullptr, {&MirraFile::_sSats}},
    }};
    return kColumns;
}

void MirraFile::readData() {
    if (linesLeft()) {
        takeLaunchRow(nextLine());
    }
    if (_launchPres <= kMissing) {
        fail("- No launch observation with a pressure found in file.\n");
    }
    while (linesLeft()) {
        takeRow(nextLine());
    }
}

void MirraFile::takeLaunchRow(std::string_view row) {
    nextWord(row);
    for (const Column& column : columns()) {
        const double value = numberOrMissing(nextWord(row));
        if (column.launch != nullptr) {
            this->*column.launch = value;
        }
    }
}

void MirraFile::takeRow(std::string_view row) {
    if (!beginsWithNumber(row)) {
        warnOnce(kNoTime);
        return;
    }
    const double time = numberOf(nextWord(row));
    if (time < 0.0) {
        return;
    }
    _sTime.appendValue(time, time);
    for (const Column& column : columns()) {
        const std::string_view word = nextWord(row);
        if (word.empty()) {
            warnOnce(kValuesMissing);
        }
        for (Series SoundingFile::*series : column.series) {
            if (series != nullptr) {
                (this->*series).appendValue(numberOrMissing(word), time);
            }
        }
    }
    _sGpsalt.appendValue(kMissing, time);
    ++_dataPoints;
}
