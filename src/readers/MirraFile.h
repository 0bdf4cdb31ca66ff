#pragma once

#include "SoundingFile.h"

#include <array>
#include <string>
#include <string_view>
#include <vector>

/// The file of the MIRRA upsonde system: a header of 15 lines, a row of the launch observation, and a row for each
/// record. Values are taken as they stand. There is no GPS altitude, and one humidity, which stands for all channels.
///
/// Invalid, with a text for each: a header that ends early or lacks what tells a line of it, a launch date or time that
/// is none, no launch observation with a pressure, no data. A row that doesn't begin with a number is left out, what is
/// absent at the end of one is missing; each is told of once, with its first line.
class MirraFile : public SoundingFile {
public:
    /// \p lines: without control characters and empty lines.
    MirraFile(std::string fileName, std::vector<std::string> lines);

private:
    struct HeaderLine;
    struct Column;
    static const std::array<Column, 10>& columns();

    bool scanHeader();
    void takeDataType(std::string_view line);
    void takeProject(std::string_view line);
    void takeSite(std::string_view line);
    void takeLaunchTime(std::string_view line);
    void takeSonde(std::string_view line);
    void takeLaunchObsSource(std::string_view line);
    void takeOperator(std::string_view line);

    void readData();
    void takeLaunchRow(std::string_view row);
    void takeRow(std::string_view row);
    void fail(const std::string& reason);
};
