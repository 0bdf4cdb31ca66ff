#pragma once

#include "SoundingFile.h"

#include <string>
#include <string_view>
#include <vector>

class ConfigSet;

/// The text export of the MW41 radiosonde system: tab-separated pairs of key and value, an empty line, and a
/// comma-separated table whose first line names the columns. Its data have been checked already.
///
/// What isn't understood of the pairs is kept as metadata. Invalid, with a text, without an empty line, without a
/// column of elapsed times, or without a record; a column that isn't known only gives a notice. 99999.0 is a missing
/// value, and so is an empty cell.
class Mw41File : public SoundingFile {
public:
    /// \p lines with the empty ones among them. Puts the item DoQC of \p config to pass-through, and says so in the
    /// error text when it wasn't there.
    Mw41File(std::string fileName, std::vector<std::string> lines, ConfigSet& config);

private:
    struct Key;
    struct Column;
    static const Key* findKey(std::string_view key);
    static const Column* findColumn(std::string_view name);
    using Columns = std::vector<Series*>; // null for a column that isn't kept

    void scanHeader();
    void takePair(const std::string& key, const std::string& value);
    void takeDateAndTime(const std::string& value);
    void takeTime(const std::string& value);
    void takeDate(const std::string& value);
    void joinDateAndTime();
    void makeTimeTag();
    void takeSonde(const std::string& value);
    void takeStation(const std::string& value);
    void keep(const std::string& key, const std::string& value);

    void readData();
    Columns takeColumns(const std::vector<std::string>& names);
    void takeRecord(const std::vector<std::string>& cells, const Columns& columns, std::size_t timeColumn);

    std::string _dateText;
    std::string _timeText;
};
