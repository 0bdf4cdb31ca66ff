#include "DataFileSaveTrove.h"

#include "FixedFields.h"
#include "Humidity.h"
#include "ProductText.h"

#include <array>

namespace {

using C = ProductColumns;

constexpr std::size_t kLabelWidth = 35;

const char* const kHeading =
    " Time  Press  Temp  Dewpt  RH    Uwind  Vwind  Wspd  Dir   dZ      Lon     Lat    Rng   Az     Alt    Qp   Qt   "
    "Qh "
    "  Qu   Qv   Quv\n"
    "  sec    mb     C     C     %     m/s    m/s   m/s   deg   m/s     deg     deg     km   deg     m     mb   C    % "
    " "
    "  m/s  m/s  m/s\n"
    "------ ------ ----- ----- ----- ------ ------ ----- ----- ----- -------- ------- ----- ----- ------- ---- ---- "
    "---- ---- ---- ----\n";

constexpr std::array<FixedField, 13> kFields{{
    {C::Time, "%6.1f", 99999.0},
    {C::Pres, " %6.1f", 9999.0},
    {C::Tdry, " %5.1f", 999.0},
    {C::DewPoint, " %5.1f", 999.0},
    {C::RH, " %5.1f", 999.0},
    {C::U, " %6.1f", 999.0},
    {C::V, " %6.1f", 999.0},
    {C::Wspd, " %5.1f", 999.0},
    {C::Wdir, " %5.1f", 999.0},
    {C::Dz, " %5.1f", 99.0},
    {C::Lon, " %8.3f", 999.0},
    {C::Lat, " %7.3f", 999.0},
    {C::Alt, " 999.0 999.0 %7.1f", 99999.0}, // behind range and azimuth, which nobody measures
}};
const char* const kNoQualities = " 99.0 99.0 99.0 99.0 99.0 99.0\n";

} // namespace

DataFileSaveTrove::DataFileSaveTrove(const std::string& fileName, std::ostream& stream, int n,
                                     const SndMetaData& metaData, const EditorControl& editor, const double* time,
                                     const double* pres, const double* tdry, const double* rh, const double* wspd,
                                     const double* wdir, const double* u, const double* v, const double* lat,
                                     const double* lon, const double* alt, const double* dz)
    : DataFileSave(fileName), _stream(stream) {
    writeHeader(metaData, editor.baseAttributes());
    const std::vector<double> dewPoint = makeDp(n, tdry, rh);
    const GivenColumns columns{{C::Time, time}, {C::Pres, pres}, {C::Tdry, tdry}, {C::DewPoint, dewPoint.data()},
                               {C::RH, rh},     {C::U, u},       {C::V, v},       {C::Wspd, wspd},
                               {C::Wdir, wdir}, {C::Dz, dz},     {C::Lon, lon},   {C::Lat, lat},
                               {C::Alt, alt}};
    for (int i = 0; i < n; ++i) {
        std::string line;
        appendFields(line, kFields, columns, metaData.ascending ? i : n - 1 - i);
        _stream << line << kNoQualities;
    }
}

void DataFileSaveTrove::writeHeader(const SndMetaData& metaData, const EditorControl::Attributes& attributes) {
    writeLine("Data Type:", metaData.dataType);
    writeLine("Project ID:", withDetail(metaData.project, metaData.flight));
    writeLine("Launch Site Type/Site ID:", withDetail(metaData.platformType, metaData.platformId));
    writeLine("Launch Location (lon,lat,alt):", launchLocation(metaData));
    writeLine("GMT Launch Time (y,m,d,h,m,s):", launchTimeText(metaData));
    writeLine("Sonde Id:", metaData.sondeId);
    _stream << "/\n/\n/\n";
    writeLine("System Operator/Comments:", metaData.sysOperator + "," + metaData.comments);
    const std::string remark = dryBiasRemark(attributes);
    writeLine("Post Processing Comments:", attributeText(attributes, "TarvoVersion") + "; Created on " +
                                               attributeText(attributes, "ProcessingTime") +
                                               (remark.empty() ? "" : "; " + remark));
    _stream << "/\n" << kHeading;
}

void DataFileSaveTrove::writeLine(const std::string& label, const std::string& text) {
    _stream << fitWidth(label, kLabelWidth) << text << "\n";
}

std::string DataFileSaveTrove::launchLocation(const SndMetaData& metaData) const {
    return formatLaunchLoc(metaData.launchLon, "'E", "'W") + ", " + formatLaunchLoc(metaData.launchLat, "'N", "'S") +
           ", " + formatLaunch("%07.5f ", metaData.launchLon, "-999 ") +
           formatLaunch("%07.5f ", metaData.launchLat, "-999 ") + formatLaunch("%1.0f", metaData.launchAlt, "-999");
}
