#include "DataFileSaveFRD.h"

#include "FixedFields.h"
#include "Humidity.h"
#include "Missing.h"
#include "ProductText.h"
#include "SndMetaData.h"
#include "Text.h"

#include <array>
#include <cmath>
#include <cstdlib>

namespace {

using C = ProductColumns;

constexpr std::size_t kAircraftWidth = 34;
constexpr std::size_t kSondeWidth = 25;

const std::string kDoubleRule = " " + std::string(75, '=') + "\n";
const std::string kSingleRule = " " + std::string(75, '-') + "\n";

const char* const kHeading =
    "IX      t (s)  P (mb)    T (C)    RH (%)  Z (m)   WD    WS (m/s)   U (m/s)   V (m/s)  NS  "
    "WZ (m/s)  ZW (m)   FP  FT  FH  FW    LAT (N)   LON (E)\n";

constexpr std::array<FixedField, 14> kFields{{
    {C::Time, "%7.2f  ", 9999.0},
    {C::Pres, "%6.1f   ", -999.0},
    {C::Tdry, "%7.2f   ", -999.0},
    {C::RH, "%6.1f   ", -999.0},
    {C::Alt, "%5.0f  ", -999.0},
    {C::Wdir, "%4.0f  ", -999.0},
    {C::Wspd, "%7.2f   ", -999.0},
    {C::U, "%7.2f   ", -999.0},
    {C::V, "%7.2f  ", -999.0},
    {C::Sats, "%4.0f  ", -999.0},
    {C::W, "%6.1f   ", -999.0},
    {C::Alt, "%5.0f     0   0   0   0    ", -999.0}, // the four flags aren't used
    {C::Lat, "%8.3f  ", -999.0},
    {C::Lon, "%8.3f", -999.0},
}};

} // namespace

DataFileSaveFRD::DataFileSaveFRD(const std::string& fileName, std::ostream& stream, int n, const SndMetaData& metaData,
                                 const EditorControl& editor, const double* time, const double* pres,
                                 const double* tdry, const double* rh, const double* wspd, const double* wdir,
                                 const double* u, const double* v, const double* lat, const double* lon,
                                 const double* alt, const double* w, const double* sats)
    : DataFileSave(fileName), _stream(stream) {
    writeProcessing(metaData, editor.attributes(true, false));
    writeLaunch(metaData);
    _stream << "\n" << kHeading;
    const GivenColumns columns{{C::Time, time}, {C::Pres, pres}, {C::Tdry, tdry}, {C::RH, rh},   {C::Wspd, wspd},
                               {C::Wdir, wdir}, {C::U, u},       {C::V, v},       {C::Lat, lat}, {C::Lon, lon},
                               {C::Alt, alt},   {C::W, w},       {C::Sats, sats}};
    for (int i = 1; i < n; ++i) {
        std::string line = stringFormat("%04d ", i);
        appendFields(line, kFields, columns, i);
        _stream << line << "\n";
    }
}

/// The record of what was done to the data, lines 1 to 13. Nobody keeps a record of filters and estimates.
void DataFileSaveFRD::writeProcessing(const SndMetaData& metaData, const EditorControl::Attributes& attributes) {
    const std::string aircraft = withDetail(metaData.platformType, metaData.platformId);
    _stream << kDoubleRule << " DROPWINDSONDE PROCESSING RECORD                            Sonde: " << metaData.sondeId
            << "\n FRD file written by " << attributeText(attributes, "TarvoVersion") << ", "
            << attributeText(attributes, "ProcessingTime") << "\n Aircraft: " << fitWidth(aircraft, kAircraftWidth)
            << "Date: " << date(metaData) << "   Time: " << clock(metaData) << " UTC\n"
            << kSingleRule << " Bias corrections:  PR = " << offset(attributes, "PresOffset")
            << " mb  TE = " << offset(attributes, "TdryOffset") << " C  RH = " << offset(attributes, "RHOffset")
            << " %  PRB = " << formatVal("%4.1f", 0.0) << " mb\n"
            << " Filters (LPF):     PTH = \n"
               " Dyn RH correction = \n"
               " Estimated PR used = \n"
               " Dyn T correction  = \n"
            << kSingleRule << " COMMENT: " << metaData.comments;
    const std::string remark = dryBiasRemark(attributes);
    _stream << (remark.empty() ? "" : "; " + remark) << "\n" << kDoubleRule;
}

/// The launch observation, lines 14 to 19.
void DataFileSaveFRD::writeLaunch(const SndMetaData& metaData) {
    const std::string altitude = formatLaunch("%6.0f", metaData.launchGpsAlt,
                                              formatLaunch("%6.0f", metaData.launchAlt, formatVal("%6.0f", kMissing)));
    _stream << "\n"
            << kDoubleRule << " Date: " << date(metaData) << "   Lat: " << angle(metaData.launchLat, " N", " S")
            << "   TA: " << formatVal("%6.1f", metaData.launchTdry.value())
            << " C   PS: " << formatVal("%6.1f", metaData.launchPres.value())
            << " mb   WD: " << formatVal("%5.0f", metaData.launchWdir.value()) << " deg\n Time: " << clock(metaData)
            << "   Lon: " << angle(metaData.launchLon, " E", " W") << "   TD: " << launchDewPoint(metaData)
            << " C   GA: " << altitude << " m    WS: " << formatVal("%5.1f", metaData.launchWspd.value())
            << " m/s\n SID:  " << fitWidth(metaData.sondeId, kSondeWidth)
            << "RH: " << formatVal("%6.1f", metaData.launchRH.value()) << " %   Navaid:   GP\n"
            << kDoubleRule;
}

/// A correction that the configuration adds to a quantity; 0 without one.
std::string DataFileSaveFRD::offset(const EditorControl::Attributes& attributes, const char* key) const {
    return formatVal("%5.1f", std::strtod(attributeText(attributes, key).c_str(), nullptr));
}

std::string DataFileSaveFRD::date(const SndMetaData& metaData) const {
    return stringFormat("%02d", metaData.year % 100) + stringFormat("%02d", metaData.month) +
           stringFormat("%02d", metaData.day);
}

std::string DataFileSaveFRD::clock(const SndMetaData& metaData) const {
    return stringFormat("%02d", metaData.hour) + stringFormat("%02d", metaData.min) +
           stringFormat("%02d", metaData.sec);
}

std::string DataFileSaveFRD::angle(const LaunchParameter& launch, const char* positive, const char* negative) const {
    const bool isNegative = launch.value() < 0.0;
    return launch.avail(false) ? formatVal("%6.2f", std::abs(launch.value())) + (isNegative ? negative : positive)
                               : "-999.0  ";
}

std::string DataFileSaveFRD::launchDewPoint(const SndMetaData& metaData) const {
    const bool known = metaData.launchTdry.avail(false) && metaData.launchRH.avail(false);
    return formatVal("%6.1f",
                     known ? dewPt(metaData.launchTdry.value(), atLeastMoist(metaData.launchRH.value())) : kMissing);
}
