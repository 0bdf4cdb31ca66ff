#pragma once

#include "ColumnFile.h"

class ConfigSet;

/// The ZOR format, one of our products. Its data have been through quality control.
///
/// What follows the first "/" of the operator's line is the comment, with any further "/" in it.
class ZORFile : public ColumnFile {
public:
    /// Puts the item DoQC of \p config to pass-through, and says so in the error text when it wasn't there.
    ZORFile(std::string fileName, std::vector<std::string> lines, ConfigSet& config);

private:
    static const Table& table();

    void takeDataType(std::string_view line);
    void takeProject(std::string_view line);
    void takeSite(std::string_view line);
    void takeSonde(std::string_view line);
    void takeReference(std::string_view line);
    void takeOperator(std::string_view line);
};
