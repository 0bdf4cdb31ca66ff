#pragma once

#include <string>

/// The text that lays down a database, and the version that it says it has.
class SQLSchema {
public:
    /// \p source is the text itself, or the path of its file when \p isFileName; a file that can't be read throws a
    /// std::string.
    SQLSchema(const std::string& source, bool isFileName);

    const std::string& schema() const { return _schema; }
    /// The number of the first line that sets user_version; false when none does.
    bool user_version(int& version) const;

private:
    std::string _schema;
};
