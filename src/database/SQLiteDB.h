#pragma once

#include <map>
#include <sstream>
#include <string>
#include <vector>

struct sqlite3;
struct sqlite3_stmt;

/// A thin layer over SQLite, with one current statement. Whatever fails throws a std::string that says what, and on
/// which file. A program that finds the database locked by another waits up to ten seconds for it.
class SQLiteDB {
public:
    /// \p openFlags are those of sqlite3_open_v2(). With \p deferOpen the file stays closed until init().
    SQLiteDB(std::string dbPath, bool deferOpen, int openFlags);
    SQLiteDB(const SQLiteDB&) = delete;
    SQLiteDB& operator=(const SQLiteDB&) = delete;
    virtual ~SQLiteDB();

    void init();
    void close();

    /// Makes \p sql the current statement.
    void prepare(const std::string& sql);
    /// The value of the parameter \p index, counted from 1, of the current statement.
    void bind(int index, int value);
    void bind(int index, double value);
    void bind(int index, const std::string& value);
    /// To the next row; false when there is none.
    bool step();
    void finalize();
    /// Runs statements that have no rows.
    void exec(const std::string& sql);
    void exec(const std::stringstream& sql);
    /// As exec(), for what SQLite refuses at once instead of waiting while another program has the file locked: a
    /// change of the journal's mode.
    void execWhenFree(const std::string& sql);

    /// The columns of the row, from 0. A column of another type throws; a null has SQLite's value of 0 or nothing.
    int Integer(int col) const;
    double Float(int col) const;
    std::string Text(int col) const;
    /// Good until the next step.
    const void* Blob(int col, int& len) const;
    int colType(int col) const;
    bool isNull(int col) const;

    std::vector<std::string> table_names();
    std::vector<std::string> column_names(const std::string& table);
    int user_version();
    virtual std::string version() const { return libraryVersion(); }
    static std::string libraryVersion();

    const std::string& dbPath() const { return _dbPath; }
    sqlite3* handle() const { return _handle; }
    /// Each statement is printed on standard output before it runs.
    void trace(bool on) { _trace = on; }

    /// What happens until commit() happens whole or, without it, not at all. Inside another one it is a part of that.
    class Transaction {
    public:
        explicit Transaction(SQLiteDB& db);
        Transaction(const Transaction&) = delete;
        Transaction& operator=(const Transaction&) = delete;
        ~Transaction();
        void commit();

    private:
        SQLiteDB& _db;
        bool _done = false;
    };

protected:
    /// The name of a table or column as SQL takes it, whatever stands in it.
    static std::string quoted(const std::string& name);

private:
    [[noreturn]] void fail(const std::string& what) const;
    bool hasMoved() const;
    void requireBound(int result) const;
    void determineColumnTypes();
    void checkColumn(int col, int type) const;
    const char* typeName(int type) const;

    std::string _dbPath;
    sqlite3* _handle = nullptr;
    sqlite3_stmt* _statement = nullptr;
    int _columnCount = 0;
    std::vector<int> _colTypes;
    std::map<int, const char*> _typeNames;
    bool _deferred;
    int _flags;
    bool _trace = false;
    int _transactions = 0;
};
