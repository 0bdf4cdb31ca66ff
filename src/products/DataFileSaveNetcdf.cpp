#include "DataFileSaveNetcdf.h"

#include "AtomicFile.h"
#include "FixedFields.h"
#include "Humidity.h"
#include "Missing.h"
#include "ProductText.h"
#include "SndMetaData.h"
#include "TroveNcFile.h"

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <iostream>

namespace {

namespace fs = std::filesystem;
using C = ProductColumns;
using Nc = TroveNcFile;
using Setter = void (TroveNcFile::*)(const float* values);

constexpr float kFillValue = -999.0F;

struct ReferenceValue {
    C::Column quantity;
    Setter set;
};

constexpr std::array<ReferenceValue, 8> kReference{{
    {C::Pres, &Nc::setRefPres},
    {C::Tdry, &Nc::setRefTdry},
    {C::RH, &Nc::setRefRh},
    {C::Wdir, &Nc::setRefWdir},
    {C::Wspd, &Nc::setRefWspd},
    {C::Lat, &Nc::setRefLat},
    {C::Lon, &Nc::setRefLon},
    {C::Alt, &Nc::setRefAlt},
}};

void putReferenceTime(TroveNcFile& file, const SndMetaData& metaData) {
    const bool timeKnown = metaData.unixLaunchObsTime != static_cast<std::int64_t>(kMissing);
    const std::int64_t time = timeKnown ? metaData.unixLaunchObsTime - metaData.launchTime : metaData.unixLaunchObsTime;
    const auto seconds = static_cast<std::int32_t>(time);
    file.setRefTime(&seconds);
}

void putReference(TroveNcFile& file, const GivenColumns& columns) {
    for (const ReferenceValue& reference : kReference) {
        if (columns[reference.quantity] != nullptr) {
            const auto value = static_cast<float>(columns[reference.quantity][0]);
            (file.*reference.set)(&value);
        }
    }
}

/// Puts the \p count samples behind the reference row, with what can be worked out of them.
void putSamples(TroveNcFile& file, const GivenColumns& columns, int count, bool reverse) {
    std::vector<std::vector<double>> derived;
    const auto derive = [&](auto formula, auto... inputs) -> const double* {
        std::vector<double>& values = derived.emplace_back(count);
        formula(inputs..., values.data(), count);
        // Outside the range of a formula (no pressure, a temperature below 0 K) there is no value.
        std::replace_if(
            values.begin(), values.end(), [](double value) { return !std::isfinite(value); }, kMissing);
        return values.data();
    };
    const auto given = [&](C::Column quantity) {
        return columns[quantity] == nullptr ? nullptr : columns[quantity] + 1;
    };
    const auto givenOrDerived = [&](C::Column quantity, auto formula, auto... inputs) {
        return columns[quantity] == nullptr ? derive(formula, inputs...) : given(quantity);
    };
    const double* const pres = given(C::Pres);
    const double* const tdry = given(C::Tdry);
    const double* const rh = given(C::RH);
    const double* const dp = givenOrDerived(C::DewPoint, dpArray, tdry, rh);
    const double* const vt = givenOrDerived(C::VirtualTemp, tvArray, tdry, rh, pres);

    struct Variable {
        Setter set;
        const double* values;
    };
    const std::array<Variable, 20> variables{{
        {&Nc::setTime, given(C::Time)},
        {&Nc::setPres, pres},
        {&Nc::setTdry, tdry},
        {&Nc::setRh, rh},
        {&Nc::setWspd, given(C::Wspd)},
        {&Nc::setWdir, given(C::Wdir)},
        {&Nc::setAlt, given(C::Alt)},
        {&Nc::setGpsAlt, given(C::GpsAlt)},
        {&Nc::setLat, given(C::Lat)},
        {&Nc::setLon, given(C::Lon)},
        {&Nc::setDz, given(C::Dz)},
        {&Nc::setU_wind, given(C::U)},
        {&Nc::setV_wind, given(C::V)},
        {&Nc::setW_wind, given(C::W)},
        {&Nc::setDp, dp},
        {&Nc::setMr, givenOrDerived(C::MixingRatio, mrArray, dp, pres)},
        {&Nc::setTheta, givenOrDerived(C::PotentialTemp, thetaArray, tdry, pres)},
        {&Nc::setTheta_e, derive(thetaEArray, tdry, dp, pres)},
        {&Nc::setVt, vt},
        {&Nc::setTheta_v, derive(thetaVArray, vt, pres)},
    }};
    std::vector<float> narrow(static_cast<std::size_t>(count));
    for (const Variable& variable : variables) {
        if (variable.values != nullptr) {
            floatFromDouble(variable.values, narrow.data(), count, reverse);
            (file.*variable.set)(narrow.data());
        }
    }
}

/// Writes to \p path. False when that fails.
bool write(const std::string& path, int n, const SndMetaData& metaData, const EditorControl& editor,
           const GivenColumns& columns) {
    const int count = std::max(n - 1, 0);
    TroveNcFile file(path, metaData.launchTime, count, kFillValue);
    if (!file.is_valid()) {
        return false;
    }
    for (const auto& [key, text] : documentedAttributes(editor)) {
        file.addAtt(key, text);
    }
    putReferenceTime(file, metaData);
    if (n > 0) {
        putReference(file, columns);
    }
    if (count > 0) {
        putSamples(file, columns, count, !metaData.ascending);
    }
    return file.finish();
}

/// What netCDF is to call the file at \p path. It would take a blank at the start of a name for none, and it removes
/// what it fails to write, be it a device: an empty text when there is no plain file.
std::string plainFile(const std::string& path) {
    std::error_code error;
    const fs::path whole = fs::absolute(path, error);
    return !error && fs::is_regular_file(whole, error) ? whole.string() : "";
}

} // namespace

DataFileSaveNetcdf::DataFileSaveNetcdf(const std::string& fileName, int n, const SndMetaData& metaData,
                                       const EditorControl& editor, const double* time, const double* pres,
                                       const double* tdry, const double* rh, const double* wspd, const double* wdir,
                                       const double* u, const double* v, const double* w, const double* lat,
                                       const double* lon, const double* alt, const double* gpsAlt, const double* dz,
                                       const double* dp, const double* mr, const double* vt, const double* theta)
    : DataFileSave(fileName) {
    const GivenColumns columns{{C::Time, time},
                               {C::Pres, pres},
                               {C::Tdry, tdry},
                               {C::RH, rh},
                               {C::Wspd, wspd},
                               {C::Wdir, wdir},
                               {C::U, u},
                               {C::V, v},
                               {C::W, w},
                               {C::Lat, lat},
                               {C::Lon, lon},
                               {C::Alt, alt},
                               {C::Dz, dz},
                               {C::GpsAlt, gpsAlt},
                               {C::DewPoint, dp},
                               {C::MixingRatio, mr},
                               {C::VirtualTemp, vt},
                               {C::PotentialTemp, theta}};
    AtomicFile file(fileName);
    const std::string path = file.isOpen() ? plainFile(file.temporaryPath()) : "";
    _saved = !path.empty() && write(path, n, metaData, editor, columns) && file.commit();
    if (!_saved) {
        std::cerr << "Could not save netcdf file: " << fileName << "\n";
    }
}
