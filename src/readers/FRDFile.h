#pragma once

#include "ColumnFile.h"

class ConfigSet;

/// The FRD format of dropsondes, one of our products. Its data have been through quality control.
///
/// The whole comment is kept. A position without a hemisphere, as our product writes a missing one, is followed at once
/// by the next label.
class FRDFile : public ColumnFile {
public:
    /// Puts the item DoQC of \p config to pass-through, and says so in the error text when it wasn't there.
    FRDFile(std::string fileName, std::vector<std::string> lines, ConfigSet& config);

private:
    static const Table& table();

    void takeSonde(std::string_view line);
    void takeAircraft(std::string_view line);
    void takeComment(std::string_view line);
    void takeLaunchLatitude(std::string_view line);
    void takeLaunchLongitude(std::string_view line);
    void takeLaunchHumidity(std::string_view line);
};
