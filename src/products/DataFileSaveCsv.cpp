#include "DataFileSaveCsv.h"

#include "EditorControl.h"
#include "Humidity.h"
#include "Missing.h"
#include "ProductText.h"
#include "RevisionInfo.h"
#include "SndMetaData.h"
#include "Text.h"

#include <array>
#include <sstream>
#include <vector>

namespace {

struct DateLine {
    const char* keyword;
    int SndMetaData::*field;
    const char* format;
};

constexpr std::array<DateLine, 6> kDateLines{{
    {"Year", &SndMetaData::year, "%04d"},
    {"Month", &SndMetaData::month, "%02d"},
    {"Day", &SndMetaData::day, "%02d"},
    {"Hour", &SndMetaData::hour, "%02d"},
    {"Minute", &SndMetaData::min, "%02d"},
    {"Second", &SndMetaData::sec, "%02d"},
}};

struct LaunchLine {
    const char* keyword;
    LaunchParameter SndMetaData::*parameter;
    const char* format;
    const char* units;
};

constexpr std::array<LaunchLine, 9> kLaunchLines{{
    {"Pressure", &SndMetaData::launchPres, "%.1f", "mb"},
    {"Temperature", &SndMetaData::launchTdry, "%.1f", "deg C"},
    {"RH", &SndMetaData::launchRH, "%.1f", "%"},
    {"Speed", &SndMetaData::launchWspd, "%.1f", "m/s"},
    {"Direction", &SndMetaData::launchWdir, "%.1f", "deg"},
    {"Latitude", &SndMetaData::launchLat, "%.4f", "deg"},
    {"Longitude", &SndMetaData::launchLon, "%.4f", "deg"},
    {"Altitude", &SndMetaData::launchAlt, "%.1f", "m"},
    {"GpsAltitude", &SndMetaData::launchGpsAlt, "%.1f", "m"},
}};

struct TextLine {
    const char* keyword;
    std::string SndMetaData::*field;
};

constexpr std::array<TextLine, 7> kTextLinesAhead{{
    {"Comments", &SndMetaData::comments},
    {"DataType", &SndMetaData::dataType},
    {"EquipmentType", &SndMetaData::WMOequipType},
    {"PlatformType", &SndMetaData::platformType},
    {"PlatformId", &SndMetaData::platformId},
    {"Project", &SndMetaData::project},
    {"Flight", &SndMetaData::flight},
}};

constexpr std::array<TextLine, 7> kTextLinesBehind{{
    {"RadiationCorr", &SndMetaData::WMOradCorrection},
    {"TrackingType", &SndMetaData::WMOtrackingType},
    {"SondeId", &SndMetaData::sondeId},
    {"SondeModel", &SndMetaData::sondeModel},
    {"Operator", &SndMetaData::sysOperator},
    {"LaunchObsSource", &SndMetaData::launchObsSource},
    {"LaunchObsTime", &SndMetaData::launchObsTime},
}};

const char* const kFieldsLine = "Fields,Time,Pressure,Temperature,RH,Speed,Direction,Latitude,Longitude,Altitude,"
                                "GPS Altitude,Dewpoint,Uwnd,Vwnd,Ascent\n";
const char* const kUnitsLine = "Units,sec,mb,deg C,%,m/s,deg,deg,deg,m,m,deg C,m/s,m/s,m/s\n";

struct DataField {
    const double* column; ///< null for a quantity that the caller doesn't have
    const char* format;
};

} // namespace

DataFileSaveCsv::DataFileSaveCsv(const std::string& fileName, std::ostream& stream, int n, const SndMetaData& metaData,
                                 const EditorControl& editor, const double* time, const double* pres,
                                 const double* tdry, const double* rh, const double* wspd, const double* wdir,
                                 const double* u, const double* v, const double* lat, const double* lon,
                                 const double* alt, const double* gpsAlt, const double* ascent,
                                 bool firstDataIsPrelaunch)
    : DataFileSave(fileName), _stream(stream) {
    _stream << "FileFormat,CSV\n";
    writeDate(metaData);
    writeLaunchValues(metaData);
    writeTexts(metaData);
    writeAttributes(editor);
    _stream << kFieldsLine << kUnitsLine;

    std::vector<double> dewPoint = makeDp(n, tdry, rh);
    const std::array<DataField, 13> fields{{
        {pres, "%.2f"},
        {tdry, "%.2f"},
        {rh, "%.2f"},
        {wspd, "%.2f"},
        {wdir, "%.2f"},
        {lat, "%.5f"},
        {lon, "%.5f"},
        {alt, "%.1f"},
        {gpsAlt, "%.1f"},
        {dewPoint.data(), "%.2f"},
        {u, "%.2f"},
        {v, "%.2f"},
        {ascent, "%.2f"},
    }};
    std::string line;
    for (int i = firstDataIsPrelaunch ? 1 : 0; i < n; ++i) {
        line = "Data," + csvFormat("%.1f", time[i], "");
        for (const DataField& field : fields) {
            line += csvFormat(field.format, field.column == nullptr ? kMissing : field.column[i], ",");
        }
        _stream << line << "\n";
    }
}

std::string DataFileSaveCsv::csvFormat(const char* format, double v, const std::string& separator) const {
    return csvFormat(format, v, v != kMissing, separator);
}

std::string DataFileSaveCsv::csvFormat(const char* format, double v, bool available,
                                       const std::string& separator) const {
    return available ? separator + formatVal(format, v) : separator;
}

void DataFileSaveCsv::writeDate(const SndMetaData& metaData) {
    for (const DateLine& line : kDateLines) {
        _stream << line.keyword << "," << stringFormat(line.format, metaData.*line.field) << "\n";
    }
}

void DataFileSaveCsv::writeLaunchValues(const SndMetaData& metaData) {
    for (const LaunchLine& line : kLaunchLines) {
        const LaunchParameter& parameter = metaData.*line.parameter;
        _stream << line.keyword << csvFormat(line.format, parameter.value(), parameter.avail(false), ",")
                << ",\"units=" << line.units << "\"\n";
    }
}

void DataFileSaveCsv::writeText(const std::string& keyword, const std::string& text) {
    _stream << keyword << ",\"" << text << "\"\n";
}

void DataFileSaveCsv::writeTexts(const SndMetaData& metaData) {
    writeText("Ascending", metaData.ascending ? "true" : "false");
    for (const TextLine& line : kTextLinesAhead) {
        writeText(line.keyword, metaData.*line.field);
    }
    std::ostringstream timeDiff;
    timeDiff << metaData.ptuWindTimeDiff;
    writeText("PtuWindTimeDiff", timeDiff.str());
    for (const TextLine& line : kTextLinesBehind) {
        writeText(line.keyword, metaData.*line.field);
    }
}

/// The build and what the product says of its making.
void DataFileSaveCsv::writeAttributes(const EditorControl& editor) {
    const RevisionInfo revision;
    const std::array<std::array<const char*, 2>, 2> buildLines{
        {{"SvnRevision", "REPO_REVISION"}, {"SvnLastChangedDate", "REPO_DATE"}}};
    for (const auto& [keyword, key] : buildLines) {
        const std::string text = revision.text(key);
        if (!text.empty()) {
            writeText(keyword, text);
        }
    }
    for (const auto& [key, text] : documentedAttributes(editor)) {
        writeText(key, text);
    }
}
