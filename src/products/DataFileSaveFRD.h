#pragma once

#include "DataFileSave.h"
#include "EditorControl.h"

#include <ostream>
#include <string>

/// The FRD product: a processing record of 21 lines, then numbered rows of fixed width in the order of time. A missing
/// value is -999.
class DataFileSaveFRD : public DataFileSave {
public:
    /// Writes \p n rows of columns in the units of ProductColumns, -999.0 marking a missing cell. Row 0 isn't written,
    /// whatever it holds.
    DataFileSaveFRD(const std::string& fileName, std::ostream& stream, int n, const SndMetaData& metaData,
                    const EditorControl& editor, const double* time, const double* pres, const double* tdry,
                    const double* rh, const double* wspd, const double* wdir, const double* u, const double* v,
                    const double* lat, const double* lon, const double* alt, const double* w, const double* sats);

private:
    void writeProcessing(const SndMetaData& metaData, const EditorControl::Attributes& attributes);
    void writeLaunch(const SndMetaData& metaData);
    std::string offset(const EditorControl::Attributes& attributes, const char* key) const;
    std::string date(const SndMetaData& metaData) const;
    std::string clock(const SndMetaData& metaData) const;
    std::string angle(const LaunchParameter& launch, const char* positive, const char* negative) const;
    std::string launchDewPoint(const SndMetaData& metaData) const;

    std::ostream& _stream;
};
