#include "SQLiteDB.h"

#include <sqlite3.h>

#include <chrono>
#include <cstdint>
#include <iostream>
#include <memory>
#include <thread>
#include <utility>

namespace {

constexpr std::chrono::milliseconds kWait(10000); // for another program to be done
constexpr std::chrono::milliseconds kPause(5);    // between two tries

} // namespace

SQLiteDB::SQLiteDB(std::string dbPath, bool deferOpen, int openFlags)
    : _dbPath(std::move(dbPath)), _typeNames{{SQLITE_TEXT, "SQLITE_TEXT"},
                                             {SQLITE_FLOAT, "SQLITE_FLOAT"},
                                             {SQLITE_BLOB, "SQLITE_BLOB"},
                                             {SQLITE_INTEGER, "SQLITE_INTEGER"},
                                             {SQLITE_NULL, "SQLITE_NULL"}},
      _deferred(deferOpen), _flags(openFlags) {
    if (_deferred) {
        return;
    }
    try {
        init();
    } catch (...) {
        close();
        throw;
    }
}

SQLiteDB::~SQLiteDB() {
    close();
}

void SQLiteDB::init() {
    close();
    if (sqlite3_open_v2(_dbPath.c_str(), &_handle, _flags, nullptr) != SQLITE_OK) {
        throw "SQLiteDB: cannot open " + _dbPath + ": " + sqlite3_errmsg(_handle);
    }
    sqlite3_busy_timeout(_handle, static_cast<int>(kWait.count()));
}

void SQLiteDB::close() {
    finalize();
    sqlite3_close(_handle);
    _handle = nullptr;
}

void SQLiteDB::finalize() {
    sqlite3_finalize(_statement);
    _statement = nullptr;
    _columnCount = 0;
    _colTypes.clear();
}

void SQLiteDB::prepare(const std::string& sql) {
    finalize();
    if (_trace) {
        std::cout << "prepare: " << sql << '\n';
    }
    if (sqlite3_prepare_v2(_handle, sql.c_str(), -1, &_statement, nullptr) != SQLITE_OK) {
        fail("prepare failed for sql statement:" + sql + ": " + sqlite3_errmsg(_handle));
    }
    _columnCount = sqlite3_column_count(_statement);
}

void SQLiteDB::requireBound(int result) const {
    if (result != SQLITE_OK) {
        fail(std::string("bind failed: ") + sqlite3_errmsg(_handle));
    }
}

void SQLiteDB::bind(int index, int value) {
    requireBound(sqlite3_bind_int(_statement, index, value));
}

void SQLiteDB::bind(int index, double value) {
    requireBound(sqlite3_bind_double(_statement, index, value));
}

void SQLiteDB::bind(int index, const std::string& value) {
    requireBound(sqlite3_bind_text(_statement, index, value.data(), static_cast<int>(value.size()), SQLITE_TRANSIENT));
}

bool SQLiteDB::step() {
    const int result = sqlite3_step(_statement);
    if (result == SQLITE_ROW) {
        determineColumnTypes();
        return true;
    }
    _colTypes.clear();
    if (result != SQLITE_DONE) {
        const char* sql = sqlite3_sql(_statement);
        fail("step failed for sql statement \"" + std::string(sql != nullptr ? sql : "") +
             "\": " + sqlite3_errmsg(_handle));
    }
    return false;
}

std::string SQLiteDB::quoted(const std::string& name) {
    std::string text = "\"";
    for (const char c : name) {
        text += c;
        if (c == '"') {
            text += c;
        }
    }
    return text + "\"";
}

void SQLiteDB::exec(const std::string& sql) {
    if (_trace) {
        std::cout << "exec: " << sql << '\n';
    }
    char* message = nullptr;
    const int result = sqlite3_exec(_handle, sql.c_str(), nullptr, nullptr, &message);
    const std::unique_ptr<char, void (*)(void*)> owned(message, &sqlite3_free);
    if (result != SQLITE_OK) {
        fail("exec failed for sql statement \"" + sql + "\": " + (message != nullptr ? message : "no memory"));
    }
}

void SQLiteDB::exec(const std::stringstream& sql) {
    exec(sql.str());
}

void SQLiteDB::execWhenFree(const std::string& sql) {
    const auto end = std::chrono::steady_clock::now() + kWait;
    for (;;) {
        try {
            return exec(sql);
        } catch (const std::string&) {
            if (sqlite3_errcode(_handle) != SQLITE_BUSY || std::chrono::steady_clock::now() > end) {
                throw;
            }
        }
        std::this_thread::sleep_for(kPause);
    }
}

void SQLiteDB::fail(const std::string& what) const {
    throw "SQLiteDB: database error for " + _dbPath + " SQLiteDB: " + what;
}

void SQLiteDB::determineColumnTypes() {
    _colTypes.clear();
    for (int col = 0; col < _columnCount; ++col) {
        _colTypes.push_back(sqlite3_column_type(_statement, col));
    }
}

int SQLiteDB::colType(int col) const {
    if (col < 0 || static_cast<std::size_t>(col) >= _colTypes.size()) {
        throw "SQLiteDB: requested column " + std::to_string(col) + " is larger than the " +
            std::to_string(_colTypes.size()) + " available columns";
    }
    return _colTypes[static_cast<std::size_t>(col)];
}

bool SQLiteDB::isNull(int col) const {
    return colType(col) == SQLITE_NULL;
}

void SQLiteDB::checkColumn(int col, int type) const {
    const int actual = colType(col);
    if (actual != type && actual != SQLITE_NULL) {
        throw std::string("SQLiteDB: Requested data type (") + typeName(type) +
            ") does not match actual column data type (" + typeName(actual) + ") for column " + std::to_string(col) +
            " in query: " + sqlite3_sql(_statement);
    }
}

const char* SQLiteDB::typeName(int type) const {
    const auto found = _typeNames.find(type);
    return found == _typeNames.end() ? "unknown" : found->second;
}

int SQLiteDB::Integer(int col) const {
    checkColumn(col, SQLITE_INTEGER);
    return sqlite3_column_int(_statement, col);
}

double SQLiteDB::Float(int col) const {
    checkColumn(col, SQLITE_FLOAT);
    return sqlite3_column_double(_statement, col);
}

std::string SQLiteDB::Text(int col) const {
    checkColumn(col, SQLITE_TEXT);
    const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(_statement, col));
    return text == nullptr ? std::string()
                           : std::string(text, static_cast<std::size_t>(sqlite3_column_bytes(_statement, col)));
}

const void* SQLiteDB::Blob(int col, int& len) const {
    checkColumn(col, SQLITE_BLOB);
    const void* blob = sqlite3_column_blob(_statement, col);
    len = sqlite3_column_bytes(_statement, col);
    return blob;
}

std::vector<std::string> SQLiteDB::table_names() {
    std::vector<std::string> names;
    prepare("SELECT name FROM sqlite_master WHERE type='table'");
    while (step()) {
        names.push_back(Text(0));
    }
    finalize();
    return names;
}

std::vector<std::string> SQLiteDB::column_names(const std::string& table) {
    std::vector<std::string> names;
    prepare("PRAGMA table_info(" + quoted(table) + ")");
    while (step()) {
        names.push_back(Text(1));
    }
    finalize();
    return names;
}

int SQLiteDB::user_version() {
    prepare("PRAGMA user_version");
    const int version = step() ? Integer(0) : 0;
    finalize();
    return version;
}

std::string SQLiteDB::libraryVersion() {
    return std::string("SQLite version: ") + sqlite3_libversion();
}

/// Whether the path leads to this file no longer: what is written then is lost with it.
bool SQLiteDB::hasMoved() const {
    int moved = 0;
    return sqlite3_file_control(_handle, "main", SQLITE_FCNTL_HAS_MOVED, &moved) == SQLITE_OK && moved != 0;
}

// A transaction that will write takes its lock at once: two programs that both read first would each wait for the other
// to let go.
SQLiteDB::Transaction::Transaction(SQLiteDB& db) : _db(db) {
    if (_db._transactions == 0) {
        if (_db.hasMoved()) {
            _db.fail("the file was deleted or renamed meanwhile");
        }
        _db.exec("begin immediate");
    }
    ++_db._transactions;
}

void SQLiteDB::Transaction::commit() {
    if (_db._transactions == 1) {
        _db.finalize();
        _db.exec("commit");
    }
    _done = true;
}

SQLiteDB::Transaction::~Transaction() {
    --_db._transactions;
    if (!_done && _db._transactions == 0) {
        _db.finalize();
        sqlite3_exec(_db._handle, "rollback", nullptr, nullptr, nullptr);
    }
}
