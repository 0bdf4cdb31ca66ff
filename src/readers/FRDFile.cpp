#include "FRDFile.h"

#include "CutText.h"
#include "NumberText.h"
#include "PassThrough.h"
#include "Words.h"
#include "WrittenTime.h"

namespace {

constexpr std::string_view kDateLabel = "Date:";

/// The number behind so many words.
double numberAfter(std::string_view& line, int words) {
    skipWords(line, words);
    return numberOrMissing(nextWord(line));
}

/// "17.90 N", negative for the \p negative hemisphere. A label in place of a hemisphere is left in the line.
double takePosition(std::string_view& line, std::string_view negative) {
    const double degrees = numberAfter(line, 3);
    std::string_view behind = line;
    const std::string_view hemisphere = nextWord(behind);
    const bool isLabel = !hemisphere.empty() && hemisphere.back() == ':';
    if (!isLabel) {
        line = behind;
    }
    return hemisphere == negative && degrees != kMissing ? -degrees : degrees;
}

} // namespace

const ColumnFile::Table& FRDFile::table() {
    static constexpr double kNoMark = -1e300;
    static constexpr Table kTable{2,
                                  kNoMark,
                                  true,
                                  {{
                                      {3, &FRDFile::_sPres},
                                      {4, &FRDFile::_sTdry},
                                      {5, &FRDFile::_sRh0},
                                      {6, &FRDFile::_sAlt},
                                      {7, &FRDFile::_sWdir},
                                      {8, &FRDFile::_sWspd},
                                      {11, &FRDFile::_sSats},
                                      {12, &FRDFile::_sDz},
                                      {18, &FRDFile::_sLat},
                                      {19, &FRDFile::_sLon},
                                  }},
                                  {&FRDFile::_sGpsalt}};
    return kTable;
}

FRDFile::FRDFile(std::string fileName, std::vector<std::string> frdLines, ConfigSet& config)
    : ColumnFile(std::move(fileName), std::move(frdLines)) {
    // Empty lines are gone.
    static constexpr std::array<HeaderLine<FRDFile>, 19> kHeader{{
        {{}, nullptr},
        {{"DROPWINDSONDE"}, &FRDFile::takeSonde},
        {{}, nullptr},
        {{"Aircraft", kDateLabel}, &FRDFile::takeAircraft},
        {{}, nullptr},
        {{}, nullptr},
        {{}, nullptr},
        {{}, nullptr},
        {{}, nullptr},
        {{}, nullptr},
        {{}, nullptr},
        {{"COMMENT"}, &FRDFile::takeComment},
        {{}, nullptr},
        {{}, nullptr},
        {{"Lat"}, &FRDFile::takeLaunchLatitude},
        {{"Lon"}, &FRDFile::takeLaunchLongitude},
        {{"SID"}, &FRDFile::takeLaunchHumidity},
        {{}, nullptr},
        {{"IX"}, nullptr},
    }};
    _soundingType = SoundingType::Frd;
    _ascending = false;
    _dataType = "NOAA FRD";
    if (forcePassThrough(config)) {
        _errorMsg +=
            "NOAA FRD files have already had QC applied and should not be reprocessed. Setting QC mode to pass "
            "through.\n";
    }
    if (takeHeader(kHeader)) {
        takeRecords(table());
    }
    finish();
}

void FRDFile::takeSonde(std::string_view line) {
    _sondeId = rest(line, 4);
}

void FRDFile::takeAircraft(std::string_view line) {
    skipWords(line, 1);
    const auto label = std::min(line.find(kDateLabel), line.size());
    takeTexts(std::string(line.substr(0, label)), ",", {&_platformType, &_platformId});
    _descriptionText = _platformType + ", " + _platformId + " ";

    line.remove_prefix(label);
    const Words words = wordsOf(line);
    const WrittenTime launch = WrittenTime::of(WrittenTime::of(wordOf(words, 2), wordOf(words, 4)).seconds());
    takeLaunch(launch);
}

void FRDFile::takeComment(std::string_view line) {
    _comments = rest(line, 1);
}

void FRDFile::takeLaunchLatitude(std::string_view line) {
    _launchLat = takePosition(line, "S");
    _launchTdry = numberAfter(line, 1);
    _launchPres = numberAfter(line, 2);
    _launchWdir = numberAfter(line, 2);
}

void FRDFile::takeLaunchLongitude(std::string_view line) {
    _launchLon = takePosition(line, "W");
    _launchGpsAlt = numberAfter(line, 4);
    _launchWspd = numberAfter(line, 2);
}

/// A sonde without a name, or one that fills its field, leaves the label elsewhere than behind two words.
void FRDFile::takeLaunchHumidity(std::string_view line) {
    constexpr std::string_view kLabel = "RH:";
    const auto label = line.find(kLabel);
    if (label == std::string_view::npos) {
        _launchRH = numberAfter(line, 3);
    } else {
        line.remove_prefix(label + kLabel.size());
        _launchRH = numberAfter(line, 0);
    }
}
