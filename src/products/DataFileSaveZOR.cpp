#include "DataFileSaveZOR.h"

#include "FixedFields.h"
#include "Humidity.h"
#include "ProductText.h"
#include "Text.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace {

using C = ProductColumns;

constexpr std::size_t kLabelWidth = 43;

const char* const kHeading =
    "  Time   -- UTC  --   Press    Temp   Dewpt    RH     Uwind   Vwind   Wspd     Dir     dZ    GeoPoAlt     Lon     "
    "    Lat      GPSAlt \n"
    "   sec   hh mm   ss     mb      C       C       %      m/s     m/s     m/s     deg     m/s       m        deg     "
    "    deg         m   \n"
    "-------- -- -- ----- ------- ------- ------- ------- ------- ------- ------- ------- ------- -------- ----------- "
    "----------- --------\n";

constexpr FixedField kTime{C::Time, "%8.2f", 99999.0};
/// What follows the time of day.
constexpr std::array<FixedField, 13> kFields{{
    {C::Pres, " %7.2f", -999.0},
    {C::Tdry, " %7.2f", -999.0},
    {C::DewPoint, " %7.2f", -999.0},
    {C::RH, " %7.2f", -999.0},
    {C::U, " %7.2f", -999.0},
    {C::V, " %7.2f", -999.0},
    {C::Wspd, " %7.2f", -999.0},
    {C::Wdir, " %7.2f", -999.0},
    {C::Dz, " %7.2f", -999.0},
    {C::Alt, " %8.2f", -999.0},
    {C::Lon, " %11.6f", -999.0},
    {C::Lat, " %11.6f", -999.0},
    {C::GpsAlt, " %8.2f", -999.0},
}};

/// " 12  0  3.50" for a time in s since 1970, UTC.
std::string timeOfDay(double seconds) {
    constexpr double kDay = 86400.0; // s
    const double whole = std::trunc(seconds);
    double ofDay = std::fmod(whole, kDay);
    ofDay += ofDay < 0.0 ? kDay : 0.0;
    const int second = static_cast<int>(ofDay);
    return stringFormat(" %2d", second / 3600) + stringFormat(" %2d", second / 60 % 60) +
           stringFormat(" %5.2f", second % 60 + (seconds - whole));
}

/// The dew points of air that is at least as moist as an RH of 0.1 %.
std::vector<double> dewPoints(int n, const double* tdry, const double* rh) {
    std::vector<double> moist(rh, rh + n);
    std::transform(moist.begin(), moist.end(), moist.begin(), atLeastMoist);
    return makeDp(n, tdry, moist.data());
}

} // namespace

DataFileSaveZOR::DataFileSaveZOR(const std::string& fileName, std::ostream& stream, int n, const SndMetaData& metaData,
                                 const EditorControl& editor, const double* time, const double* pres,
                                 const double* tdry, const double* rh, const double* wspd, const double* wdir,
                                 const double* u, const double* v, const double* lat, const double* lon,
                                 const double* alt, const double* gpsAlt, const double* dz)
    : DataFileSave(fileName), _stream(stream) {
    writeHeader(metaData, editor.attributes(true, false));
    const std::vector<double> dewPoint = dewPoints(n, tdry, rh);
    const GivenColumns columns{{C::Time, time}, {C::Pres, pres},    {C::Tdry, tdry}, {C::DewPoint, dewPoint.data()},
                               {C::RH, rh},     {C::U, u},          {C::V, v},       {C::Wspd, wspd},
                               {C::Wdir, wdir}, {C::Dz, dz},        {C::Alt, alt},   {C::Lon, lon},
                               {C::Lat, lat},   {C::GpsAlt, gpsAlt}};
    for (int i = 0; i < n; ++i) {
        std::string line;
        appendField(line, kTime, columns, i);
        line += timeOfDay(static_cast<double>(metaData.launchTime) + time[i]);
        appendFields(line, kFields, columns, i);
        _stream << line << "\n";
    }
}

void DataFileSaveZOR::writeHeader(const SndMetaData& metaData, const EditorControl::Attributes& attributes) {
    const auto attribute = [&](const char* key) { return attributeText(attributes, key); };
    const auto labelled = [&](const std::string& label, const std::string& text) {
        return text.empty() ? text : label + text;
    };
    writeLine("Data Type/Direction:", metaData.dataType + "/" + (metaData.ascending ? "Ascending" : "Descending"));
    writeLine("File Format/Version:", "ZOR Sounding Format/1.1");
    writeLine("Project Name/Platform:", withDetail(metaData.project, metaData.flight) + "/" +
                                            withDetail(metaData.platformType, metaData.platformId));
    writeLine("Launch Site:", metaData.siteId);
    writeLine("Launch Location (lon,lat,alt):", launchLocation(metaData));
    writeLine("UTC Launch Time (y,m,d,h,m,s):", launchTimeText(metaData));
    writeLine("Sonde Id/Sonde Type:", metaData.sondeId + "/" + metaData.sondeModel);
    writeLine("Reference Launch Data Source/Time:", metaData.launchObsSource + "/" + metaData.launchObsTime);
    writeLine("System Operator/Comments:", metaData.sysOperator + "/" + metaData.comments);
    writeLine("Post Processing Comments:",
              joinTexts({attribute("TarvoVersion"), labelled("Created on ", attribute("ProcessingTime")),
                         labelled("Configuration ", attribute("ConfigSetName")), dryBiasRemark(attributes)},
                        "; "));
    const std::string disclaimer = attribute("QCDisclaimer");
    _stream << (disclaimer.empty() ? "/" : disclaimer) << "\n" << kHeading;
}

void DataFileSaveZOR::writeLine(const std::string& label, const std::string& text) {
    _stream << fitWidth(label, kLabelWidth) << text << "\n";
}

std::string DataFileSaveZOR::launchLocation(const SndMetaData& metaData) const {
    const LaunchParameter& lon = metaData.launchLon;
    const LaunchParameter& lat = metaData.launchLat;
    return formatLaunchLoc(lon, "'E", "'W") + formatLaunch(" %7.6f", lon, " -999") + ", " +
           formatLaunchLoc(lat, "'N", "'S") + formatLaunch(" %7.6f", lat, " -999") + ", " +
           formatLaunch("%8.2f", metaData.launchGpsAlt, formatLaunch("%8.2f", metaData.launchAlt, "-999"));
}
