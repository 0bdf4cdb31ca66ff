#include "SoundingDB.h"
#include "LevelsDB.h"
#include "MadeLevels.h"
#include "SQLSchema.h"
#include "SndMetaData.h"
#include "TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sqlite3.h>

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Pair;

constexpr int kCreate = SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE;

SndMetaData metaData(int minute = 30) {
    SndMetaData data;
    data.year = 2021;
    data.month = 9;
    data.day = 4;
    data.hour = 6;
    data.min = minute;
    data.platformType = "Aircraft";
    data.platformId = "T07";
    data.project = "Synthetic";
    data.flight = "03";
    data.sondeId = "0042";
    return data;
}

class Soundings : public testing::Test {
protected:
    TemporaryFolder folder;
    SoundingDB db{(folder / "soundings.sqlite").string(), kCreate, soundingsSchema()};
};

std::vector<int> typesOf(const SoundingDB::Levels& levels) {
    std::vector<int> types;
    for (const auto& level : levels) {
        types.push_back(level.type);
    }
    return types;
}

} // namespace

TEST_F(Soundings, secondRunRenewsTheRow) {
    const std::string name = "/data/it's \"a\" søunding; drop table levels; --.csv";
    SndMetaData data = metaData();
    const int id = db.addSounding(name, data, "CSV");
    EXPECT_EQ(db.id(name), id);
    double lat = 1.0;
    double lon = 2.0;
    EXPECT_FALSE(db.getLocation(id, lat, lon));
    EXPECT_EQ(lat, 1.0);
    data.min = 31;
    data.project = "Another";
    data.launchLat.set(26.5);
    data.launchLon.set(-70.25);
    EXPECT_EQ(db.addSounding(name, data, "CSV"), id);
    EXPECT_TRUE(db.getLocation(id, lat, lon));
    EXPECT_EQ(lat, 26.5);
    EXPECT_EQ(lon, -70.25);
    const auto all = db.getSoundings();
    ASSERT_EQ(all.size(), 1U);
    EXPECT_EQ(all[0].filename, name);
    EXPECT_EQ(all[0].launchTime, "2021-09-04T06:31:00");
    EXPECT_EQ(all[0].platform, "Aircraft T07");
    EXPECT_EQ(all[0].project, "Synthetic 03") << "as it was entered";
    EXPECT_EQ(SoundingDB::Sounding(id, db).sondeId, "0042");
    EXPECT_THROW(SoundingDB::Sounding(id + 1, db), std::string);
    db.deleteSounding(name);
    EXPECT_EQ(db.id(name), -1);
}

TEST_F(Soundings, levelsOfAMap) {
    MadeLevels made;
    made.add(LevelType::SurfaceThermo, {{LFtime, 700.0}, {LFpres, 1011.5}, {LFtdry, 27.0}, {LFrh, 100.0}});
    made.add(LevelType::SurfaceWind, {{LFtime, 699.0}, {LFpres, 1010.0}, {LFwspd, 9.0}, {LFwdir, 80.0}});
    made.add(LevelType::Standard,
             {{LFtime, 600.0}, {LFpres, 925.05}, {LFtdry, 20.0}, {LFwspd, 11.0}, {LFwdir, 90.0}, {LFalt, 780.0}});
    made.add(LevelType::Standard, {{LFpres, 850.0}, {LFtdry, 16.0}});  // at no time
    made.add(LevelType::Layer150m, {{LFtime, 690.0}, {LFwspd, 10.0}}); // at no pressure
    made.add(LevelType::TropopauseLevel, {{LFtime, 10.0}, {LFpres, 120.0}, {LFtdry, -75.0}});
    made.add(LevelType::GDLTdry, {{LFtime, 300.0}, {LFpres, 777.0}, {LFtdry, 9.0}});
    Level& wind = made.add(LevelType::MaxWind, {{LFtime, 20.0}, {LFpres, 200.0}, {LFwspd, 60.0}, {LFwdir, 270.0}});
    wind.getField(LFwdir)->setTag(true);

    const int id = db.addSounding("/a", metaData(), "CSV");
    LevelsDB::addLevels(&made.levels, &db, "/a");
    LevelsDB::addLevels(&made.levels, &db, "/a");
    LevelsDB::addLevels(&made.levels, &db, "/never entered");
    const auto levels = db.getLevels(id);
    ASSERT_THAT(typesOf(levels),
                ElementsAre(SoundingDB::SURFACE, 2 /* 925 mb */, SoundingDB::MAX_WIND, SoundingDB::TROPOPAUSE));
    // saturated air has the dew point of its temperature
    EXPECT_THAT(levels[0].fields, ElementsAre(Pair(SoundingDB::PRES, 1011.5), Pair(SoundingDB::TDRY, 27.0),
                                              Pair(SoundingDB::DP, testing::DoubleNear(27.0, 1e-6)),
                                              Pair(SoundingDB::WSPD, 9.0), Pair(SoundingDB::WDIR, 80.0)));
    EXPECT_THAT(levels[1].fields,
                ElementsAre(Pair(SoundingDB::PRES, 925.05), Pair(SoundingDB::TDRY, 20.0), Pair(SoundingDB::WSPD, 11.0),
                            Pair(SoundingDB::WDIR, 90.0), Pair(SoundingDB::ALT, 780.0)));
    EXPECT_THAT(levels[2].fields, ElementsAre(Pair(SoundingDB::PRES, 200.0), Pair(SoundingDB::WSPD, 60.0)));

    db.deleteSounding("/a");
    EXPECT_THAT(db.getLevels(id), IsEmpty()) << "they go with their sounding";
}

TEST_F(Soundings, aPressureOfNoMandatoryLevelStandsAtTheSurface) {
    const int id = db.addSounding("/a", metaData(), "CSV");
    db.addLevelData(SoundingDB::TDRY, 1.0);
    db.addLevel(id, 926.0, LevelType::Standard);
    db.addLevelData(SoundingDB::ALT, 30000.0);
    db.addLevel(id, 1.0, LevelType::Standard);
    db.addLevel(id, 300.0, LevelType::DeepLayer); // with nothing
    db.addLevel(id, 300.0, LevelType::DeepLayer);
    EXPECT_THAT(typesOf(db.getLevels(id)), ElementsAre(0, 21, 23));
}

TEST_F(Soundings, clearing) {
    db.addSounding("/a", metaData(), "CSV");
    db.addSounding("/b", metaData(), "CSV");
    testing::internal::CaptureStdout();
    db.clear();
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "Deleting all 2 rows in soundings table.\n");
    EXPECT_THAT(db.getSoundings(), IsEmpty());
}

TEST_F(Soundings, aFileThatIsReadOnlyLockedOrTakenAwayLosesNothing) {
    db.addSounding("/a", metaData(), "CSV");
    const auto refuses = [](SoundingDB& refusing, const char* told) {
        testing::internal::CaptureStdout();
        EXPECT_EQ(refusing.addSounding("/b", metaData(), "CSV"), -1);
        EXPECT_THAT(testing::internal::GetCapturedStdout(), HasSubstr(told));
        MadeLevels made;
        EXPECT_THROW(LevelsDB::addLevels(&made.levels, &refusing, "/a"), std::string);
        EXPECT_EQ(refusing.getSoundings().size(), 1U);
    };
    SoundingDB reader(db.dbPath(), SQLITE_OPEN_READONLY, "");
    refuses(reader, "addSounding");
    SQLiteDB other(db.dbPath(), false, SQLITE_OPEN_READWRITE);
    other.exec("begin immediate");
    sqlite3_busy_timeout(db.handle(), 10);
    refuses(db, "locked");
    other.exec("rollback");

    const std::filesystem::path elsewhere = folder / "renamed.sqlite";
    std::filesystem::rename(db.dbPath(), elsewhere);
    refuses(db, "deleted or renamed");
    writeFile(db.dbPath(), ""); // another one stands there now
    refuses(db, "deleted or renamed");
    std::filesystem::rename(elsewhere, db.dbPath());
    EXPECT_GT(db.addSounding("/b", metaData(), "CSV"), 0);
}

TEST(OpenOrCreate, laysDownOnlyWhatIsEmpty) {
    const TemporaryFolder folder;
    const std::string path = (folder / "it's a \"né w\".sqlite").string();
    writeFile(path, "");
    {
        const auto made = SoundingDB::openOrCreate(path);
        EXPECT_TRUE(made->validate());
        EXPECT_EQ(made->user_version(), 2);
        EXPECT_GT(made->addSounding("/a", metaData(), "CSV"), 0);
    }
    EXPECT_EQ(SoundingDB::openOrCreate(path)->getSoundings().size(), 1U);

    const std::string foreign = (folder / "foreign.sqlite").string();
    SQLiteDB(foreign, false, kCreate).exec("create table t (n integer)");
    const std::string notes = (folder / "notes").string();
    writeFile(notes, "no database at all, but longer than nothing\n");
    for (const std::string& other : {foreign, notes}) {
        const std::string before = readFile(other);
        EXPECT_FALSE(SoundingDB::openOrCreate(other)->validate());
        EXPECT_EQ(readFile(other), before);
    }
    SoundingDB(foreign, kCreate, soundingsSchema()); // which isn't for a file with tables
    EXPECT_EQ(SQLiteDB(foreign, false, SQLITE_OPEN_READWRITE).table_names(), std::vector<std::string>{"t"});
    EXPECT_THROW(SoundingDB::openOrCreate((folder / "no/such/folder.sqlite").string()), std::string);
}
