#include "TroveNcFile.h"

#include "RevisionInfo.h"
#include "UtcTime.h"

namespace {

enum Mark : unsigned {
    F = 1, ///< says which value is missing
    C = 2, ///< says which variables are its coordinates
    O = 4, ///< of the reference observation and not of the samples
};

const char* const kSinceLaunch = nullptr; // the units of times, which name the launch time

struct RepoAttribute {
    const char* name;
    const char* key;
};

constexpr std::array<RepoAttribute, 4> kRepoAttributes{{
    {"RepoRevision", "REPO_REVISION"},
    {"RepoLastChangedDate", "REPO_DATE"},
    {"RepoId", "REPO_HASH"},
    {"RepoBranch", "REPO_BRANCH"},
}};

} // namespace

struct TroveNcFile::Row {
    struct Text {
        const char* name = nullptr;
        const char* value = nullptr;
    };

    Variable variable;
    const char* name;
    NcType type;
    const char* longName;
    const char* units;
    unsigned marks = 0;
    float validLimit = 0.0F; ///< of the magnitude; 0 for none
    Text first{};
    Text second{};
};

const std::array<TroveNcFile::Row, 29> TroveNcFile::kRows{{
    {Time, "time", ncDouble, "time since launch time", kSinceLaunch, 0, 0, {"calendar", "standard"}, {"axis", "T"}},
    {Pres, "pres", ncFloat, "pressure", "hPa", F | C, 0, {"standard_name", "air_pressure"}},
    {Tdry, "tdry", ncFloat, "dry bulb temperature", "degC", F | C, 0, {"standard_name", "air_temperature"}},
    {Dp, "dp", ncFloat, "dew point", "degC", F | C, 0, {"standard_name", "dew_point_temperature"}},
    {Rh, "rh", ncFloat, "relative humidity", "percent", F | C, 0, {"standard_name", "relative_humidity"}},
    {U_wind, "u_wind", ncFloat, "u component of winds", "m/s", F | C, 0, {"standard_name", "eastward_wind"}},
    {V_wind, "v_wind", ncFloat, "v component of winds", "m/s", F | C, 0, {"standard_name", "northward_wind"}},
    {W_wind,
     "w_wind",
     ncFloat,
     "vertical component of winds",
     "m/s",
     F | C,
     0,
     {"standard_name", "upward_air_velocity"}},
    {Wspd, "wspd", ncFloat, "wind speed", "m/s", F | C, 0, {"standard_name", "wind_speed"}},
    {Wdir, "wdir", ncFloat, "wind direction", "degree", F | C, 0, {"standard_name", "wind_from_direction"}},
    {Dz, "dz", ncFloat, "vertical velocity", "m/s", F | C},
    {Mr, "mr", ncFloat, "mixing ratio", "gram/kg", F | C},
    {Vt, "vt", ncFloat, "virtual temperature", "K", F | C, 0, {"standard_name", "virtual_temperature"}},
    {Theta, "theta", ncFloat, "potential temperature", "K", F | C, 0, {"standard_name", "air_potential_temperature"}},
    {Theta_e,
     "theta_e",
     ncFloat,
     "equivalent potential temperature",
     "K",
     F | C,
     0,
     {"standard_name", "equivalent_potential_temperature"}},
    {Theta_v, "theta_v", ncFloat, "virtual potential temperature", "K", F | C},
    {Lat, "lat", ncFloat, "north latitude", "degree", F, 90, {"standard_name", "latitude"}, {"axis", "Y"}},
    {Lon, "lon", ncFloat, "east longitude", "degree", F, 180, {"standard_name", "longitude"}, {"axis", "X"}},
    {Alt, "alt", ncFloat, "altitude above MSL", "meters", F | C, 0, {"positive", "up"}},
    {GpsAlt, "gpsalt", ncFloat, "gps reported altitude above MSL", "meters", F, 0, {"axis", "Z"}, {"positive", "up"}},
    {RefTime, "reference_time", ncInt, "reference observation time", kSinceLaunch, O},
    {RefPres, "reference_pres", ncFloat, "reference pressure", "hPa", F | O},
    {RefTdry, "reference_tdry", ncFloat, "reference temperature", "degC", F | O},
    {RefRh, "reference_rh", ncFloat, "reference relative humidity", "percent", F | O},
    {RefWspd, "reference_wspd", ncFloat, "reference wind speed", "m/s", F | O},
    {RefWdir, "reference_wdir", ncFloat, "reference wind direction", "degree", F | O},
    {RefLat, "reference_lat", ncFloat, "reference latitude", "degrees", F | O, 90},
    {RefLon, "reference_lon", ncFloat, "reference longitude", "degrees", F | O, 180},
    {RefAlt, "reference_alt", ncFloat, "reference altitude above MSL", "meters", F | O, 0, {"positive", "up"}},
}};

TroveNcFile::TroveNcFile(const std::string& path, std::int64_t launchTime, int count, float fillValue)
    : NcFile(path.c_str(), Replace), _count(count), _fillValue(fillValue),
      _sinceLaunch(utcText(launchTime, "seconds since %Y-%m-%d %H:%M:%S UTC")) {
    if (!is_valid()) {
        return;
    }
    addAtt("Conventions", "CF-1.6");
    const RevisionInfo revision;
    for (const RepoAttribute& attribute : kRepoAttributes) {
        if (revision.count(attribute.key) > 0) {
            addAtt(attribute.name, revision.text(attribute.key));
        }
    }
    _timeDim = add_dim("time", _count); // 0 is an unlimited dimension
    _obsDim = add_dim("obs", 1);
    makeVars();
    addAtt("featureType", "trajectory");
}

void TroveNcFile::addAtt(const std::string& name, const std::string& value) {
    add_att(name.c_str(), value.c_str());
}

void TroveNcFile::makeVars() {
    makeScalars();
    for (const Row& row : kRows) {
        NcVar* variable = makeVar(row.name, row.type, row.longName, row.units, (row.marks & F) != 0,
                                  (row.marks & C) != 0, (row.marks & O) != 0);
        _variables[row.variable] = variable;
        if (variable == nullptr) {
            continue;
        }
        if (row.validLimit > 0.0F) {
            const std::array<float, 2> range{-row.validLimit, row.validLimit};
            variable->add_att("valid_range", 2, range.data());
        }
        for (const Row::Text& text : {row.first, row.second}) {
            if (text.name != nullptr) {
                variable->add_att(text.name, text.value);
            }
        }
    }
    if (NcVar* time = _variables[RefTime]) {
        time->add_att("missing_value", static_cast<int>(_fillValue));
        addFillValue(*time, ncInt);
    }
}

void TroveNcFile::makeScalars() {
    if (NcVar* trajectory = add_var("trajectory", ncChar)) {
        trajectory->add_att("cf_role", "trajectory_id");
    }
    if (NcVar* launchTime = _variables[LaunchTime] = add_var("launch_time", ncInt)) {
        launchTime->add_att("long_name", "sounding launch time");
        launchTime->add_att("units", _sinceLaunch.c_str());
    }
}

NcVar* TroveNcFile::makeVar(const char* name, NcType type, const char* longName, const char* units, bool withMissing,
                            bool withCoordinates, bool onObsDimension) {
    NcVar* variable = add_var(name, type, onObsDimension ? _obsDim : _timeDim);
    if (variable == nullptr) {
        return nullptr;
    }
    variable->add_att("long_name", longName);
    variable->add_att("units", units == kSinceLaunch ? _sinceLaunch.c_str() : units);
    if (withMissing) {
        variable->add_att("missing_value", _fillValue);
        addFillValue(*variable, type);
    }
    if (withCoordinates) {
        variable->add_att("coordinates", "lat lon gpsalt");
    }
    return variable;
}

/// The attribute by which netCDF knows what to fill a variable with has the type of that variable.
void TroveNcFile::addFillValue(NcVar& variable, NcType type) const {
    const char* const name = "_FillValue";
    const int whole = static_cast<int>(_fillValue);
    switch (type) {
    case ncByte:
        variable.add_att(name, static_cast<ncbyte>(whole));
        break;
    case ncChar:
        variable.add_att(name, static_cast<char>(whole));
        break;
    case ncShort:
        variable.add_att(name, static_cast<short>(whole));
        break;
    case ncInt:
        variable.add_att(name, whole);
        break;
    case ncDouble:
        variable.add_att(name, static_cast<double>(_fillValue));
        break;
    default:
        variable.add_att(name, _fillValue);
        break;
    }
}

void TroveNcFile::putSamples(Variable variable, const float* values) {
    if (_count > 0) {
        put(variable, values, _count);
    }
}

bool TroveNcFile::finish() {
    const std::int32_t atLaunch = 0;
    put(LaunchTime, &atLaunch, 1);
    const bool synced = sync() != 0;
    return close() != 0 && synced && _whole;
}
