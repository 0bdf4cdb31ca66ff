#pragma once

#include "ColumnFile.h"

/// The TROVE format, one of our products and that of other systems.
///
/// The first row is the launch observation, and a file has to give its pressure. Our product marks what is missing with
/// numbers of its own, the launch pressure too, and runs backward in time for a dropsonde: such a file is turned round,
/// and its launch observation stands last. It also has fewer words in the line of the sonde, of which the last is the
/// sonde's name.
class TroveFile : public ColumnFile {
public:
    TroveFile(std::string fileName, std::vector<std::string> lines);

private:
    static const Table& table();

    void takeProject(std::string_view line);
    void takeSite(std::string_view line);
    void takeSonde(std::string_view line);
    void takeReference(std::string_view line);
    void takeOperator(std::string_view line);
    void readData();
    std::vector<std::string_view> rowsFromLaunchOn();
};
