// Reading the files of Table B and Table D.

#include "BufrOutput.h"
#include "BufrTables.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

namespace {

constexpr std::size_t kLongestLineB = 255;
constexpr std::size_t kLongestLineD = 4095;
constexpr std::size_t kShortestEntryB = 82;
constexpr std::size_t kUnitWidth = 11;
constexpr std::size_t kVersionColumn = 11;
constexpr int kWidestNumber = 32;    // bits; as wide as those of the WMO get
constexpr int kWidestText = 255 * 8; // bits
constexpr long long kGreatestScale = 99;
constexpr long long kGreatestReference = 0x7fffffff;

/// Where the fields of an entry begin: code, description, unit, scale, reference, bits.
const std::vector<std::size_t> kDefaultColumns{0, 8, 52, 63, 66, 78};

bool beginsWith(const std::string& line, const char* beginning) {
    return line.rfind(beginning, 0) == 0;
}

std::string trimmed(const std::string& text) {
    const auto first = text.find_first_not_of(' ');
    return first == std::string::npos ? "" : text.substr(first, text.find_last_not_of(' ') - first + 1);
}

long long numberOf(const std::string& text) {
    return std::strtoll(text.c_str(), nullptr, 10);
}

bool isWithin(long long value, long long limit) {
    return value >= -limit && value <= limit;
}

/// Opens a file that can be read to its end; a device or a pipe might have none.
bool open(std::ifstream& file, const std::string& path) {
    std::error_code error;
    if (std::filesystem::is_regular_file(path, error)) {
        file.open(path);
    }
    return file.is_open();
}

bool nextLine(std::ifstream& file, std::string& line) {
    if (!std::getline(file, line)) {
        return false;
    }
    if (!line.empty() && line.back() == '\r') {
        line.pop_back();
    }
    return true;
}

/// Sorts a table; of two rows for one descriptor the first stands.
template <typename Entry>
void sortByDescriptor(std::vector<Entry>& table) {
    std::stable_sort(table.begin(), table.end(),
                     [](const Entry& a, const Entry& b) { return a.descriptor < b.descriptor; });
    table.erase(std::unique(table.begin(), table.end(),
                            [](const Entry& a, const Entry& b) { return a.descriptor == b.descriptor; }),
                table.end());
}

/// A code of six digits.
bool parseCode(const std::string& text, int& code) {
    if (text.size() != 6 || text.find_first_not_of("0123456789") != std::string::npos) {
        return false;
    }
    code = static_cast<int>(numberOf(text));
    return bufr_is_descriptor(code);
}

class TableBReader {
public:
    explicit TableBReader(BufrTables& tables) : _tables(tables) {}

    void read(const std::string& line, bool isFirst) {
        if (isFirst && bufr_parse_columns(line).size() > 5) {
            _columns = bufr_parse_columns(line);
            _shortestEntry = _columns[5] + 1;
        } else if (beginsWith(line, "DATA_CATEGORY=")) {
            _tables.dataCategory = line.substr(line.find('=') + 1);
        } else if (beginsWith(line, "DATA_DESCRIPTION=")) {
            _tables.dataDescription = line.substr(line.find('=') + 1);
        } else if (beginsWith(line, "** VERSION") && !_versionSeen && line.size() > kVersionColumn) {
            _tables.version = static_cast<int>(numberOf(line.substr(kVersionColumn)));
            _versionSeen = true;
        } else if (beginsWith(line, "0") && line.size() >= _shortestEntry) {
            addEntry(line);
        }
    }

private:
    std::string field(const std::string& line, std::size_t index) const {
        const std::size_t begin = _columns[index];
        return index + 1 < _columns.size() ? line.substr(begin, _columns[index + 1] - begin) : line.substr(begin);
    }

    void addEntry(const std::string& line) {
        EntryTableB entry;
        if (!parseCode(trimmed(field(line, 0)), entry.descriptor)) {
            return;
        }
        entry.description = trimmed(field(line, 1));
        entry.unit = trimmed(field(line, 2).substr(0, kUnitWidth));
        BufrEncoding& encoding = entry.encoding;
        if (!bufr_unit_to_type(entry.unit, encoding.type)) {
            bufr_printf("Warning: error while loading Table B file: %s\n", line.c_str());
            bufr_printf("Error reading descriptor: %d unit=\"%s\"\n", entry.descriptor, entry.unit.c_str());
        }
        const long long scale = numberOf(field(line, 3));
        const long long reference = numberOf(field(line, 4));
        const long long bits = numberOf(field(line, 5));
        const bool isText = encoding.type == BufrType::String;
        const bool bitsFit = bits >= 1 && bits <= (isText ? kWidestText : kWidestNumber) && (!isText || bits % 8 == 0);
        if (!bitsFit || !isWithin(scale, kGreatestScale) || !isWithin(reference, kGreatestReference)) {
            bufr_printf("Warning: the entry of descriptor %d in Table B can't be used\n", entry.descriptor);
            return;
        }
        encoding.scale = static_cast<int>(scale);
        encoding.reference = reference;
        encoding.bits = static_cast<int>(bits);
        _tables.tableB.push_back(std::move(entry));
    }

    BufrTables& _tables;
    std::vector<std::size_t> _columns = kDefaultColumns;
    std::size_t _shortestEntry = kShortestEntryB;
    bool _versionSeen = false;
};

/// A line of codes, the first being the sequence. False for one that isn't whole.
bool parseSequence(const std::string& line, EntryTableD& entry) {
    std::istringstream words(line);
    std::string word;
    if (!(words >> word) || !parseCode(word, entry.descriptor)) {
        return false;
    }
    while (words >> word) {
        int member = 0;
        if (!parseCode(word, member)) {
            return false;
        }
        entry.members.push_back(member);
    }
    return !entry.members.empty();
}

} // namespace

std::vector<std::size_t> bufr_parse_columns(const std::string& line) {
    std::vector<std::size_t> columns;
    char before = ' ';
    for (std::size_t i = 0; i < line.size(); ++i) {
        const char c = line[i];
        if (c != ' ' && (std::string("=-_+").find(c) == std::string::npos || (before != ' ' && before != c))) {
            return {};
        }
        if (c != ' ' && before == ' ') {
            columns.push_back(i);
        }
        before = c;
    }
    return columns;
}

int bufr_load_table_b(BufrTables* tables, const std::string& path) {
    tables->tableB.clear();
    std::ifstream file;
    if (!open(file, path)) {
        return 0;
    }
    TableBReader reader(*tables);
    std::string line;
    for (bool isFirst = true; nextLine(file, line); isFirst = false) {
        reader.read(line.substr(0, kLongestLineB), isFirst);
    }
    sortByDescriptor(tables->tableB);
    return tables->tableB.empty() ? 0 : 1;
}

int bufr_load_table_d(BufrTables* tables, const std::string& path) {
    tables->tableD.clear();
    std::ifstream file;
    if (!open(file, path)) {
        return 0;
    }
    std::string description;
    std::string line;
    while (nextLine(file, line)) {
        if (beginsWith(line, "*")) {
            const auto text = line.find_first_not_of("* ");
            description += text == std::string::npos ? "" : line.substr(text);
        } else if (beginsWith(line, "3")) {
            EntryTableD entry;
            // A sequence that is cut would be another one.
            if (line.size() <= kLongestLineD && parseSequence(line, entry)) {
                entry.description = description;
                tables->tableD.push_back(std::move(entry));
            } else {
                bufr_printf("Warning: a line of Table D can't be used: %.40s\n", line.c_str());
            }
            description.clear();
        }
    }
    sortByDescriptor(tables->tableD);
    if (bufr_check_loop_tableD(*tables)) {
        bufr_print("Error: a sequence of Table D contains itself\n");
        tables->tableD.clear();
    }
    return tables->tableD.empty() ? 0 : 1;
}
