#include "LevelsDB.h"
#include "MadeLevels.h"
#include "SndMetaData.h"
#include "SoundingDB.h"
#include "TemporaryFolder.h"
#include "TimeLimit.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <chrono>
#include <csignal>
#include <iostream>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace {

constexpr int kCreate = SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE;
constexpr int kLevels = 5;

/// Enters soundings of their own names with five levels each, in a program of its own.
pid_t enterSoundings(const std::string& path, const std::string& prefix, int count) {
    const pid_t child = fork();
    if (child != 0) {
        return child;
    }
    bool all = true;
    try {
        SoundingDB db(path, kCreate, soundingsSchema());
        MadeLevels made;
        for (int i = 0; i < kLevels; ++i) {
            made.add(LevelType::Standard, {{LFtime, 1.0}, {LFpres, i == 0 ? 1000.0 : 100.0 * i}, {LFtdry, 1.0}});
        }
        for (int i = 0; i < count; ++i) {
            const std::string name = prefix + std::to_string(i);
            SQLiteDB::Transaction whole(db);
            all = db.addSounding(name, SndMetaData(), "CSV") > 0 && all;
            LevelsDB::addLevels(&made.levels, &db, name);
            whole.commit();
        }
    } catch (const std::string& error) {
        std::cerr << error << std::endl;
        all = false;
    }
    _exit(all ? 0 : 1);
}

int number(SQLiteDB& db, const std::string& sql) {
    db.prepare(sql);
    return db.step() ? db.Integer(0) : -1;
}

} // namespace

TEST(SharedDatabase, programsWaitForEachOther) {
    const TemporaryFolder folder;
    const std::string path = (folder / "shared.sqlite").string();
    std::vector<pid_t> children;
    for (const char* prefix : {"a", "b", "c", "d"}) {
        children.push_back(enterSoundings(path, prefix, 25)); // and all want to lay it down
    }
    for (const pid_t child : children) {
        int status = -1;
        waitpid(child, &status, 0);
        EXPECT_EQ(status, 0);
    }
    SoundingDB db(path, SQLITE_OPEN_READWRITE, "");
    EXPECT_EQ(db.getSoundings().size(), 100U);
    EXPECT_EQ(number(db, "select count(*) from levels"), 100 * kLevels);
}

TEST(SharedDatabase, theChangeOfTheJournalWaits) {
    const TemporaryFolder folder;
    const std::string path = (folder / "shared.sqlite").string();
    SQLiteDB writer(path, false, kCreate);
    writer.exec(soundingsSchema()); // with the journal that SQLite begins with
    writer.exec("begin immediate");
    std::thread other([&] {
        std::this_thread::sleep_for(std::chrono::milliseconds(100));
        writer.exec("rollback");
    });
    EXPECT_NO_THROW(SoundingDB(path, SQLITE_OPEN_READWRITE, ""));
    other.join();
    SQLiteDB reader(path, false, SQLITE_OPEN_READONLY);
    reader.prepare("pragma journal_mode");
    ASSERT_TRUE(reader.step());
    EXPECT_EQ(reader.Text(0), "wal");
}

TEST(SharedDatabase, aKilledProgramLeavesWholeSoundings) {
    const TemporaryFolder folder;
    const std::string path = (folder / "killed.sqlite").string();
    int soundings = 0;
    for (int round = 0; round < 5; ++round) {
        const pid_t child = enterSoundings(path, std::to_string(round) + "/", 1000000);
        std::this_thread::sleep_for(std::chrono::milliseconds(timeLimit(60 + 17 * round)));
        kill(child, SIGKILL);
        waitpid(child, nullptr, 0);
        SoundingDB db(path, kCreate, soundingsSchema());
        db.prepare("pragma integrity_check");
        ASSERT_TRUE(db.step());
        EXPECT_EQ(db.Text(0), "ok");
        soundings = static_cast<int>(db.getSoundings().size());
        EXPECT_EQ(number(db, "select count(*) from levels"), soundings * kLevels);
    }
    EXPECT_GT(soundings, 0);
}
