#include "SQLSchema.h"

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <sstream>

SQLSchema::SQLSchema(const std::string& source, bool isFileName) : _schema(source) {
    if (!isFileName) {
        return;
    }
    std::ifstream file(source, std::ios::binary);
    if (!file) {
        throw "SQLSchema: cannot read " + source;
    }
    _schema.assign(std::istreambuf_iterator<char>(file), {});
}

bool SQLSchema::user_version(int& version) const {
    std::istringstream lines(_schema);
    for (std::string line; std::getline(lines, line);) {
        std::size_t at = 0;
        for (const char* word : {"pragma", "user_version", "="}) {
            at = at == std::string::npos ? at : line.find(word, at);
        }
        at = at == std::string::npos ? at : line.find_first_of("0123456789", at);
        if (at != std::string::npos) {
            version = static_cast<int>(std::strtol(line.c_str() + at, nullptr, 10));
            return true;
        }
    }
    return false;
}
