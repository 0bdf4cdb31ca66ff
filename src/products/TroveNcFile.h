#pragma once

#include <netcdfcpp.h>

#include <array>
#include <cstdint>
#include <string>

/// The errors of netCDF are looked at and neither printed nor fatal, which they are by default.
struct QuietNetcdf {
    NcError errors{NcError::silent_nonfatal};
};

/// The fixed shape of a netCDF product: a single trajectory after the CF 1.6 conventions, its dimensions, variables and
/// their attributes. Everything is defined by the constructor; the setters then put the values, as many as there are
/// samples, or one for the reference observation. What isn't put reads as the fill value.
///
/// The library below is for one thread at a time.
class TroveNcFile : private QuietNetcdf, public NcFile {
public:
    /// Creates the file at \p path in place of one that stands there. is_valid() is false when that fails.
    /// \p launchTime is in s since 1970, UTC.
    TroveNcFile(const std::string& path, std::int64_t launchTime, int count, float fillValue);

    /// Adds a global attribute.
    void addAtt(const std::string& name, const std::string& value);

    void setTime(const float* values) { putSamples(Time, values); }
    void setPres(const float* values) { putSamples(Pres, values); }
    void setTdry(const float* values) { putSamples(Tdry, values); }
    void setDp(const float* values) { putSamples(Dp, values); }
    void setRh(const float* values) { putSamples(Rh, values); }
    void setU_wind(const float* values) { putSamples(U_wind, values); }
    void setV_wind(const float* values) { putSamples(V_wind, values); }
    void setW_wind(const float* values) { putSamples(W_wind, values); }
    void setWspd(const float* values) { putSamples(Wspd, values); }
    void setWdir(const float* values) { putSamples(Wdir, values); }
    void setDz(const float* values) { putSamples(Dz, values); }
    void setMr(const float* values) { putSamples(Mr, values); }
    void setVt(const float* values) { putSamples(Vt, values); }
    void setTheta(const float* values) { putSamples(Theta, values); }
    void setTheta_e(const float* values) { putSamples(Theta_e, values); }
    void setTheta_v(const float* values) { putSamples(Theta_v, values); }
    void setLat(const float* values) { putSamples(Lat, values); }
    void setLon(const float* values) { putSamples(Lon, values); }
    void setAlt(const float* values) { putSamples(Alt, values); }
    void setGpsAlt(const float* values) { putSamples(GpsAlt, values); }

    /// s from launch.
    void setRefTime(const std::int32_t* value) { put(RefTime, value, 1); }
    void setRefPres(const float* value) { put(RefPres, value, 1); }
    void setRefTdry(const float* value) { put(RefTdry, value, 1); }
    void setRefRh(const float* value) { put(RefRh, value, 1); }
    void setRefWspd(const float* value) { put(RefWspd, value, 1); }
    void setRefWdir(const float* value) { put(RefWdir, value, 1); }
    void setRefLat(const float* value) { put(RefLat, value, 1); }
    void setRefLon(const float* value) { put(RefLon, value, 1); }
    void setRefAlt(const float* value) { put(RefAlt, value, 1); }

    /// Closes the file. False when anything put has been lost on the way to it.
    bool finish();

private:
    enum Variable {
        Trajectory,
        LaunchTime,
        Time,
        Pres,
        Tdry,
        Dp,
        Rh,
        U_wind,
        V_wind,
        W_wind,
        Wspd,
        Wdir,
        Dz,
        Mr,
        Vt,
        Theta,
        Theta_e,
        Theta_v,
        Lat,
        Lon,
        Alt,
        GpsAlt,
        RefTime,
        RefPres,
        RefTdry,
        RefRh,
        RefWspd,
        RefWdir,
        RefLat,
        RefLon,
        RefAlt,
        NumVariables
    };
    struct Row;
    static const std::array<Row, 29> kRows;

    void makeVars();
    void makeScalars();
    NcVar* makeVar(const char* name, NcType type, const char* longName, const char* units, bool withMissing,
                   bool withCoordinates, bool onObsDimension);
    void addFillValue(NcVar& variable, NcType type) const;
    void putSamples(Variable variable, const float* values);
    template <typename Number>
    void put(Variable variable, const Number* values, int count) {
        NcVar* target = _variables[variable];
        _whole = target != nullptr && target->put(values, count) != 0 && _whole;
    }

    int _count;
    float _fillValue;
    std::string _sinceLaunch; ///< the units of times
    bool _whole = true;       ///< everything put so far was taken
    NcDim* _timeDim = nullptr;
    NcDim* _obsDim = nullptr;
    std::array<NcVar*, NumVariables> _variables{};
};
