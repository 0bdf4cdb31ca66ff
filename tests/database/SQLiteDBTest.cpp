#include "SQLiteDB.h"
#include "SQLSchema.h"
#include "TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sqlite3.h>

namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;

constexpr int kCreate = SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE;

template <typename Action>
std::string thrownBy(Action action) {
    try {
        action();
    } catch (const std::string& text) {
        return text;
    }
    return "nothing thrown";
}

struct Made : TemporaryFolder, SQLiteDB {
    Made() : SQLiteDB((path() / "made.sqlite").string(), false, kCreate) {
        exec(
            "create table t (n integer, x float, s text); insert into t values (7, null, 'seven'), (8, 8.5, 'eight');");
    }
};

} // namespace

TEST(SQLite, readsRowsByType) {
    Made db;
    db.prepare("select n, x, s from t where n >= ? order by n");
    db.bind(1, 7);
    ASSERT_TRUE(db.step());
    EXPECT_EQ(db.Integer(0), 7);
    EXPECT_EQ(db.Float(1), 0.0);
    EXPECT_TRUE(db.isNull(1));
    EXPECT_THAT(thrownBy([&] { db.Integer(2); }),
                HasSubstr("Requested data type (SQLITE_INTEGER) does not match actual column data type (SQLITE_TEXT) "
                          "for column 2 in query: select n"));
    EXPECT_EQ(thrownBy([&] { db.Text(3); }), "SQLiteDB: requested column 3 is larger than the 3 available columns");
    EXPECT_THAT(thrownBy([&] { db.Text(-1); }), HasSubstr("requested column -1"));
    db.prepare("select s from t where n=?"); // the other isn't at its end
    db.bind(1, 8);
    ASSERT_TRUE(db.step());
    EXPECT_EQ(db.Text(0), "eight");
    EXPECT_FALSE(db.step());
    EXPECT_THAT(thrownBy([&] { db.Text(0); }), HasSubstr("requested column 0"));
    EXPECT_THAT(db.column_names("t"), ElementsAre("n", "x", "s"));
}

TEST(SQLite, failuresNameTheFile) {
    const TemporaryFolder folder;
    const std::string nowhere = (folder / "no/such.sqlite").string();
    EXPECT_THAT(thrownBy([&] { SQLiteDB(nowhere, false, kCreate); }),
                HasSubstr("SQLiteDB: cannot open " + nowhere + ": "));
    const std::string text = (folder / "text.sqlite").string();
    writeFile(text, "This is no database, however long it may be.");
    SQLiteDB db(text, false, SQLITE_OPEN_READWRITE);
    EXPECT_THAT(thrownBy([&] { db.exec("nonsense"); }), AllOf(HasSubstr(text), HasSubstr("nonsense")));
}

TEST(SQLite, transactionsAreWholeOrNothing) {
    Made db;
    const auto count = [&] {
        db.prepare("select count(*) from t");
        db.step();
        const int rows = db.Integer(0);
        db.finalize();
        return rows;
    };
    {
        SQLiteDB::Transaction given(db);
        db.exec("delete from t");
        SQLiteDB::Transaction inner(db);
        db.exec("insert into t values (9, 9.5, 'nine')");
        inner.commit();
        EXPECT_EQ(count(), 1);
    }
    EXPECT_EQ(count(), 2);
    {
        SQLiteDB::Transaction kept(db);
        db.exec("delete from t where n = 7");
        kept.commit();
    }
    EXPECT_EQ(count(), 1);
}

TEST(SQLite, versionOfASchema) {
    int version = -1;
    EXPECT_TRUE(SQLSchema("-- was pragma user_version = 12;\npragma user_version = 3;", false).user_version(version));
    EXPECT_EQ(version, 12);
    EXPECT_FALSE(
        SQLSchema("create table t (user_version integer);\npragma user_version;", false).user_version(version));
    EXPECT_EQ(version, 12);
    const TemporaryFolder folder;
    writeFile(folder / "s.sql", "pragma user_version=4;");
    EXPECT_TRUE(SQLSchema((folder / "s.sql").string(), true).user_version(version));
    EXPECT_EQ(version, 4);
    EXPECT_THAT(thrownBy([&] { SQLSchema((folder / "none").string(), true); }), HasSubstr("none"));
}
