#pragma once

#include "DataFileSave.h"

#include <ostream>
#include <string>

class EditorControl;
struct SndMetaData;

/// The comma separated product: keyed lines with the launch values, metadata and attributes, then one "Data" line for
/// each row. It is the format the system recommends for interchange, and reads back.
class DataFileSaveCsv : public DataFileSave {
public:
    /// Writes \p n rows of columns, -999.0 marking a missing cell. \p lat, \p lon, \p alt, \p gpsAlt and \p ascent may
    /// be null. The launch row isn't written.
    DataFileSaveCsv(const std::string& fileName, std::ostream& stream, int n, const SndMetaData& metaData,
                    const EditorControl& editor, const double* time, const double* pres, const double* tdry,
                    const double* rh, const double* wspd, const double* wdir, const double* u, const double* v,
                    const double* lat, const double* lon, const double* alt, const double* gpsAlt, const double* ascent,
                    bool firstDataIsPrelaunch);

    /// \p separator and \p v through the format; the separator alone when \p v is missing.
    std::string csvFormat(const char* format, double v, const std::string& separator) const;
    /// The same, decided by \p available.
    std::string csvFormat(const char* format, double v, bool available, const std::string& separator) const;

private:
    void writeDate(const SndMetaData& metaData);
    void writeLaunchValues(const SndMetaData& metaData);
    void writeTexts(const SndMetaData& metaData);
    void writeAttributes(const EditorControl& editor);
    void writeText(const std::string& keyword, const std::string& text);

    std::ostream& _stream;
};
