#pragma once

#include "DataFileSave.h"

#include <ostream>
#include <string>

class EditorControl;
class Levels;
struct SndMetaData;

/// The BUFR product of QC data: one message, behind an abbreviated header when the item BufrAddAbrHdr is on.
class DataFileSaveBufr : public DataFileSave {
public:
    /// Writes \p n rows of columns (as ProductColumns has them) to the open binary \p stream. \p tableDir is where the
    /// BUFR tables are, unless the environment variable AFSISIO or BUFR_TABLES names a place. \p levels may be null.
    DataFileSaveBufr(const std::string& tableDir, const std::string& fileName, std::ostream& stream, int n,
                     const SndMetaData& metaData, const EditorControl& editor, const Levels* levels, const double* time,
                     const double* pres, const double* tdry, const double* rh, const double* wspd, const double* wdir,
                     const double* lat, const double* lon, const double* alt);

    /// Whether the message stands on the stream. What is missing has been told on the standard error stream.
    bool isWhole() const { return _isWhole; }

private:
    bool _isWhole = false;
};
