#pragma once

#include "Level.h"
#include "SQLiteDB.h"

#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

struct SndMetaData;

/// The text that lays down a new, empty database of soundings.
const std::string& soundingsSchema();
/// The version that it says it has.
int soundingsSchemaVersion();

/// One file of processed soundings, a row for each sounding file, with the levels that a synoptic map shows. Errors are
/// thrown as std::string, unless said otherwise.
class SoundingDB : public SQLiteDB {
public:
    /// The number stored with a level. 1 to 21 are the mandatory levels from 1000 to 1 mb.
    enum LEVEL_TYPE {
        SURFACE = 0,
        MANDATORY_1000 = 1,
        MANDATORY_1 = 21,
        LAYER_150M = 22,
        DEEP_LAYER = 23,
        MEAN_BL = 24,
        MAX_WIND = 25,
        TROPOPAUSE = 26
    };
    enum SOUNDING_FIELD {
        PRES = 1,    ///< mb
        TDRY = 2,    ///< deg C
        DP = 4,      ///< deg C
        WSPD = 8,    ///< m/s
        WDIR = 0x10, ///< degrees
        ALT = 0x20   ///< m
    };

    /// What a map has to know of a sounding.
    struct Sounding {
        /// Throws when there is no sounding \p id.
        Sounding(int id, SoundingDB& db);

        int id;
        std::string filename; ///< canonical path
        std::string launchTime;
        std::string platform;
        std::string project;
        std::string sondeId;
        std::string comments;
        std::string BSN;
        std::string callSign;
        std::string soundingType;

    private:
        friend class SoundingDB;
        /// From the row that \p db stands at, the id in its first column.
        explicit Sounding(const SoundingDB& db);
        void read(const SoundingDB& db, int firstText);
    };

    struct StoredLevel {
        LEVEL_TYPE type;
        std::vector<std::pair<SOUNDING_FIELD, double>> fields; ///< those that it has
    };
    using Levels = std::vector<StoredLevel>;

    /// Opens \p path with the flags of sqlite3_open_v2(), and lays it down after \p schema, unless that is empty or the
    /// file has tables by now.
    SoundingDB(const std::string& path, int openFlags, const std::string& schema);
    /// Opens \p path to be written, and lays it down when it isn't there or is empty. What is there may be no database
    /// of soundings, or one of another version: validate() and user_version() tell.
    static std::unique_ptr<SoundingDB> openOrCreate(const std::string& path);

    /// Enters a sounding, or renews launch time and place of one that is there and keeps its id. Returns the id. What
    /// goes wrong is printed on standard output, and -1 returned.
    int addSounding(const std::string& fileName, const SndMetaData& metaData, const std::string& soundingType);
    /// The same, and throws what goes wrong.
    int enterSounding(const std::string& fileName, const SndMetaData& metaData, const std::string& soundingType);
    void deleteSounding(const std::string& fileName);
    /// -1 without a sounding of that file.
    int id(const std::string& fileName);

    /// Collects one value of the next level.
    void addLevelData(SOUNDING_FIELD field, double value);
    /// Stores what was collected as the level of the sounding \p id, over one of that type when there is one.
    void addLevel(int id, double pressure, LevelType levelType);
    void deleteLevels(int id);

    std::vector<Sounding> getSoundings();
    Levels getLevels(int id);
    /// The place of launch in degrees. False, and the outputs left alone, when it isn't known.
    bool getLocation(int id, double& lat, double& lon);
    /// Deletes all soundings, and says on standard output how many.
    void clear();
    /// Whether the file is a database of soundings. One that SQLite doesn't know as its own is none.
    bool validate();

    static std::string timestamp(int year, int month, int day, int hour, int minute, int second);

private:
    void initLevels();
    LEVEL_TYPE levelTypeOf(double pressure, LevelType levelType) const;

    std::vector<std::pair<LEVEL_TYPE, double>> _mandatory;
    std::map<LevelType, LEVEL_TYPE> _types;
    std::map<SOUNDING_FIELD, std::string> _fieldNames;
    std::vector<std::pair<SOUNDING_FIELD, double>> _pending;
};
