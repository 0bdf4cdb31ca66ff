#pragma once

#include "DataFileSave.h"
#include "EditorControl.h"

#include <ostream>
#include <string>

/// The ZOR product: fourteen header lines, then rows of fixed width in the order of time. A missing value is -999.
class DataFileSaveZOR : public DataFileSave {
public:
    /// Writes \p n rows of columns in the units of ProductColumns, -999.0 marking a missing cell. \p lat, \p lon,
    /// \p alt, \p gpsAlt and \p dz may be null. The launch row is written like the others.
    DataFileSaveZOR(const std::string& fileName, std::ostream& stream, int n, const SndMetaData& metaData,
                    const EditorControl& editor, const double* time, const double* pres, const double* tdry,
                    const double* rh, const double* wspd, const double* wdir, const double* u, const double* v,
                    const double* lat, const double* lon, const double* alt, const double* gpsAlt, const double* dz);

private:
    void writeHeader(const SndMetaData& metaData, const EditorControl::Attributes& attributes);
    void writeLine(const std::string& label, const std::string& text);
    std::string launchLocation(const SndMetaData& metaData) const;

    std::ostream& _stream;
};
