#include "TroveFile.h"

#include "NumberText.h"
#include "Words.h"

#include <algorithm>

namespace {

constexpr double kMissingPressure = 9999.0; // mb, as our product marks it

/// Whether most steps from one row to the next go back in time.
bool runsBackward(const std::vector<double>& times, std::size_t first) {
    int backward = 0;
    for (std::size_t i = first + 1; i < times.size(); ++i) {
        backward += times[i] < times[i - 1] ? 1 : times[i] > times[i - 1] ? -1 : 0;
    }
    return backward > 0;
}

} // namespace

const ColumnFile::Table& TroveFile::table() {
    static constexpr Table kTable{1,
                                  99999.0,
                                  false,
                                  {{
                                      {2, &TroveFile::_sPres, &TroveFile::_launchPres, 9998.0, kMissingPressure},
                                      {3, &TroveFile::_sTdry, &TroveFile::_launchTdry, 998.0, 999.0},
                                      {5, &TroveFile::_sRh0, &TroveFile::_launchRH, 998.0, 999.0},
                                      {8, &TroveFile::_sWspd, &TroveFile::_launchWspd, 998.0, 999.0},
                                      {9, &TroveFile::_sWdir, &TroveFile::_launchWdir, 998.0, 999.0},
                                      {10, &TroveFile::_sDz, nullptr, 98.0, 99.0},
                                      {11, &TroveFile::_sLon, &TroveFile::_launchLon, 998.0, 999.0},
                                      {12, &TroveFile::_sLat, &TroveFile::_launchLat, 998.0, 999.0},
                                      {15, &TroveFile::_sAlt, &TroveFile::_launchAlt, kNoLimit, 99999.0},
                                  }},
                                  {&TroveFile::_sGpsalt, &TroveFile::_sSats}};
    return kTable;
}

TroveFile::TroveFile(std::string fileName, std::vector<std::string> troveLines)
    : ColumnFile(std::move(fileName), std::move(troveLines)) {
    static constexpr std::array<HeaderLine<TroveFile>, 15> kHeader{{
        {{"Data Type"}, nullptr},
        {{"Project"}, &TroveFile::takeProject},
        {{"Site"}, &TroveFile::takeSite},
        {{"Location"}, nullptr},
        {{"Time"}, &TroveFile::takeLaunchTime},
        {{"Sonde"}, &TroveFile::takeSonde},
        {{}, nullptr},
        {{}, nullptr},
        {{}, &TroveFile::takeReference},
        {{}, &TroveFile::takeOperator},
        {{}, nullptr},
        {{}, nullptr},
        {{"Time"}, nullptr},
        {{"sec"}, nullptr},
        {{"------ ------ ----- ----- ----- ------ ------ ----- ----- ----- -------- ------- ----- ----- ------- ---- "
          "---- ---- ---- ---- ----"},
         nullptr},
    }};
    _soundingType = SoundingType::Trove;
    if (takeHeader(kHeader)) {
        readData();
    }
    finish();
}

void TroveFile::takeProject(std::string_view line) {
    _project = rest(line, 2);
    _descriptionText = _project + "  ";
}

void TroveFile::takeSite(std::string_view line) {
    _project = rest(line, 4) + " " + _project;
}

void TroveFile::takeSonde(std::string_view line) {
    constexpr std::size_t kLabelWords = 2; // of our product
    const Words words = wordsOf(line);
    _platformType = "KIVU TROVE " + std::string(wordOf(words, 5));
    if (words.size() > kLabelWords) {
        _sondeId = words.size() < 6 ? words.back() : words[5];
    }
}

void TroveFile::takeReference(std::string_view line) {
    skipWords(line, 4);
    const std::string_view source = nextWord(line);
    if (!source.empty()) {
        _launchObsSource = source;
    }
}

void TroveFile::takeOperator(std::string_view line) {
    takeOperatorAndComments(rest(line, 2), ',');
}

void TroveFile::readData() {
    const std::vector<std::string_view> rows = rowsFromLaunchOn();
    if (rows.empty()) {
        return;
    }
    takeLaunchRow(table(), rows.front());
    const bool marked = numberOf(wordOf(wordsOf(rows.front()), table().columns[0].word)) == kMissingPressure;
    if (_launchPres <= kMissing && !marked) {
        notValid();
    }
    for (std::size_t i = 1; i < rows.size(); ++i) {
        takeRecord(table(), rows[i]);
    }
}

/// The rows that are left, the launch observation first, then ascending in time.
std::vector<std::string_view> TroveFile::rowsFromLaunchOn() {
    std::vector<std::string_view> rows;
    std::vector<double> times;
    while (linesLeft()) {
        const std::string_view row = nextLine();
        const std::string_view time = wordOf(wordsOf(row), table().timeWord);
        if (rows.empty() || hasTime(time)) {
            rows.push_back(row);
            times.push_back(numberOf(time));
        }
    }
    if (runsBackward(times, rows.size() > 2 ? 1 : 0)) {
        _ascending = false;
        const bool launchFirst = times[0] <= times[1]; // out of the order then
        std::reverse(launchFirst ? rows.begin() + 1 : rows.begin(), rows.end());
    }
    return rows;
}
