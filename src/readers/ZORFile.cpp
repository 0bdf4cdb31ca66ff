#include "ZORFile.h"

#include "CutText.h"
#include "PassThrough.h"
#include "Text.h"

const ColumnFile::Table& ZORFile::table() {
    static constexpr Table kTable{1,
                                  99999.0,
                                  false,
                                  {{
                                      {5, &ZORFile::_sPres, &ZORFile::_launchPres, 9998.0},
                                      {6, &ZORFile::_sTdry, &ZORFile::_launchTdry, 998.0},
                                      {8, &ZORFile::_sRh0, &ZORFile::_launchRH, 998.0},
                                      {11, &ZORFile::_sWspd, &ZORFile::_launchWspd, 998.0},
                                      {12, &ZORFile::_sWdir, &ZORFile::_launchWdir, 998.0},
                                      {13, &ZORFile::_sDz, nullptr, 98.0},
                                      {14, &ZORFile::_sAlt, &ZORFile::_launchAlt},
                                      {15, &ZORFile::_sLon, &ZORFile::_launchLon, 998.0},
                                      {16, &ZORFile::_sLat, &ZORFile::_launchLat, 998.0},
                                      {17, &ZORFile::_sGpsalt, &ZORFile::_launchGpsAlt},
                                  }},
                                  {&ZORFile::_sSats}};
    return kTable;
}

ZORFile::ZORFile(std::string fileName, std::vector<std::string> zorLines, ConfigSet& config)
    : ColumnFile(std::move(fileName), std::move(zorLines)) {
    static constexpr std::array<HeaderLine<ZORFile>, 14> kHeader{{
        {{"Data Type"}, &ZORFile::takeDataType},
        {{"File Format", "ZOR Sounding Format"}, nullptr},
        {{"Project"}, &ZORFile::takeProject},
        {{"Launch"}, &ZORFile::takeSite},
        {{"Launch"}, nullptr},
        {{"UTC Launch"}, &ZORFile::takeLaunchTime},
        {{"Sonde Id"}, &ZORFile::takeSonde},
        {{"Reference"}, &ZORFile::takeReference},
        {{"Operator"}, &ZORFile::takeOperator},
        {{}, nullptr},
        {{}, nullptr},
        {{"Time"}, nullptr},
        {{"sec"}, nullptr},
        {{"-------"}, nullptr},
    }};
    _soundingType = SoundingType::Zor;
    if (forcePassThrough(config)) {
        _errorMsg +=
            "KIVU ZOR files have already had QC applied and should not be reprocessed. Setting QC mode to pass "
            "through.\n";
    }
    if (takeHeader(kHeader) && linesLeft()) {
        takeLaunchRow(table(), nextLine());
        takeRecords(table());
    }
    finish();
}

void ZORFile::takeDataType(std::string_view line) {
    const std::string typeAndDirection = rest(line, 2);
    _dataType = typeAndDirection.substr(0, typeAndDirection.find('/'));
    _ascending = contains(line, "Ascending");
}

void ZORFile::takeProject(std::string_view line) {
    const std::string both = rest(line, 2);
    std::string project;
    std::string platform;
    takeTexts(both, "/", {&project, &platform});
    takeTexts(project, ",", {&_project, &_flight});
    takeTexts(platform, ",", {&_platformType, &_platformId});
    _descriptionText = both + " ";
}

void ZORFile::takeSite(std::string_view line) {
    _siteId = rest(line, 2);
}

void ZORFile::takeSonde(std::string_view line) {
    takeTexts(rest(line, 3), "/", {&_sondeId, &_sondeModel});
    if (contains(_sondeModel, "RSS")) {
        _thermoSensor = _sondeModel;
    }
}

void ZORFile::takeReference(std::string_view line) {
    takeTexts(rest(line, 4), "/", {&_launchObsSource, &_launchObsTime});
}

void ZORFile::takeOperator(std::string_view line) {
    takeOperatorAndComments(rest(line, 2), '/');
}
