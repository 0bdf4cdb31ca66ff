#pragma once

#include "DataFileSave.h"

#include <string>

class EditorControl;
struct SndMetaData;

/// The netCDF product: one sounding as a trajectory after the CF 1.6 conventions. Row 0 of the columns is the reference
/// observation, the others are the samples, which run upward. Like netCDF itself, for one thread at a time.
class DataFileSaveNetcdf : public DataFileSave {
public:
    /// Writes \p n rows of columns in the units of ProductColumns, -999.0 marking a missing cell, whole or not at all;
    /// a file that can't be written is told on the error stream. \p w, \p alt, \p dp (deg C), \p mr (g/kg), \p vt (K)
    /// and \p theta (K) may be null; the last four are then worked out.
    DataFileSaveNetcdf(const std::string& fileName, int n, const SndMetaData& metaData, const EditorControl& editor,
                       const double* time, const double* pres, const double* tdry, const double* rh, const double* wspd,
                       const double* wdir, const double* u, const double* v, const double* w, const double* lat,
                       const double* lon, const double* alt, const double* gpsAlt, const double* dz, const double* dp,
                       const double* mr, const double* vt, const double* theta);

    /// Whether the file stands.
    bool isSaved() const { return _saved; }

private:
    bool _saved = false;
};
