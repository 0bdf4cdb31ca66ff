#pragma once

#include "SoundingFile.h"

#include <string>
#include <string_view>
#include <vector>

/// The free-form interchange format: one record a line, comma-separated, each line introduced by a keyword. Lines come
/// in any order, except that the Fields line stands ahead of the Data lines it describes.
///
/// Invalid without a complete date and time or without a data record; there is no text for that. Lines that make no
/// sense, Data lines of another length than the Fields line among them, are passed over.
class CsvFile : public SoundingFile {
public:
    /// \p lines: one record each, without control characters.
    CsvFile(std::string fileName, std::vector<std::string> lines);

private:
    using Tokens = std::vector<std::string_view>;
    struct Keyword;
    struct Column;
    static const Keyword* findKeyword(const std::string& keyword);
    static const Column* findColumn(const std::string& name);

    void readLines();
    void takeData(const Tokens& tokens);
    void takeParameter(const Tokens& tokens);
    void takeFields(const Tokens& tokens);
    void takeAscending(const std::string& value);
    void takePtuWindTimeDiff(const std::string& value);
    void takeSondeType(const std::string& value);
    void fillEmptySeries();

    std::vector<Series*> _columns; // null for a column that isn't kept
};
