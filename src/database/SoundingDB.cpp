#include "SoundingDB.h"

#include "Level.h"
#include "SQLSchema.h"
#include "SndMetaData.h"
#include "Text.h"

#include <sqlite3.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <filesystem>
#include <iostream>

namespace {

constexpr double kPressureSlack = 0.1; // mb

const char* const kTexts = "filename, launchtime, platform, project, sondeId, comments, BSN, callSign, soundingType";

} // namespace

int soundingsSchemaVersion() {
    int version = 0;
    SQLSchema(soundingsSchema(), false).user_version(version);
    return version;
}

SoundingDB::SoundingDB(const std::string& path, int openFlags, const std::string& schema)
    : SQLiteDB(path, true, openFlags) {
    init();
    exec("pragma foreign_keys = on");
    initLevels();
    if (!schema.empty()) {
        Transaction whole(*this); // another program may be laying it down too
        if (table_names().empty()) {
            exec(schema);
        }
        whole.commit();
    }
    if (sqlite3_db_readonly(handle(), nullptr) == 0 && validate()) {
        // With a write-ahead log a commit needn't wait for the disk: a power cut may cost the last soundings, which can
        // be processed again, but never damages the file. Where no such log is possible SQLite keeps to its journal.
        execWhenFree("pragma journal_mode = wal");
        exec("pragma synchronous = normal");
    }
}

std::unique_ptr<SoundingDB> SoundingDB::openOrCreate(const std::string& path) {
    std::error_code error;
    const bool exists = std::filesystem::exists(path, error);
    const bool filled = exists && std::filesystem::file_size(path, error) != 0;
    return filled ? std::make_unique<SoundingDB>(path, SQLITE_OPEN_READWRITE, "")
                  : std::make_unique<SoundingDB>(path, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, soundingsSchema());
}

void SoundingDB::initLevels() {
    int type = MANDATORY_1000;
    for (const double pressure : kStandardPressures) {
        _mandatory.emplace_back(static_cast<LEVEL_TYPE>(type++), pressure);
    }
    _types = {{LevelType::SurfaceThermo, SURFACE}, {LevelType::Layer150m, LAYER_150M},
              {LevelType::DeepLayer, DEEP_LAYER},  {LevelType::MeanBLWind, MEAN_BL},
              {LevelType::MaxWind, MAX_WIND},      {LevelType::TropopauseLevel, TROPOPAUSE}};
    _fieldNames = {{PRES, "pres_mb"},  {TDRY, "tdry_degc"},   {DP, "dp_degc"},
                   {WSPD, "wspd_mps"}, {WDIR, "wdir_degmet"}, {ALT, "alt_msl"}};
}

std::string SoundingDB::timestamp(int year, int month, int day, int hour, int minute, int second) {
    std::string text = stringFormat("%04d", year);
    const auto append = [&](const char* format, int value) { text += stringFormat(format, value); };
    append("-%02d", month);
    append("-%02d", day);
    append("T%02d", hour);
    append(":%02d", minute);
    append(":%02d", second);
    return text;
}

int SoundingDB::id(const std::string& fileName) {
    prepare("select sounding_id from soundings where filename=?");
    bind(1, fileName);
    const int found = step() ? Integer(0) : -1;
    finalize();
    return found;
}

int SoundingDB::addSounding(const std::string& fileName, const SndMetaData& metaData, const std::string& soundingType) {
    try {
        return enterSounding(fileName, metaData, soundingType);
    } catch (const std::string& error) {
        std::cout << "SoundingDB::" << __func__ << " line " << __LINE__ << ": " << error << std::endl;
        return -1;
    }
}

int SoundingDB::enterSounding(const std::string& fileName, const SndMetaData& metaData,
                              const std::string& soundingType) {
    Transaction whole(*this);
    const std::string launchTime =
        timestamp(metaData.year, metaData.month, metaData.day, metaData.hour, metaData.min, metaData.sec);
    int row = id(fileName);
    if (row == -1) {
        const std::array<std::string, 9> texts{fileName,
                                               launchTime,
                                               metaData.platformType + " " + metaData.platformId,
                                               metaData.project + " " + metaData.flight,
                                               metaData.sondeId,
                                               metaData.comments,
                                               metaData.BSN,
                                               metaData.callSign,
                                               soundingType};
        prepare(std::string("insert into soundings (") + kTexts + ") values (?,?,?,?,?,?,?,?,?)");
        int index = 0;
        for (const std::string& text : texts) {
            bind(++index, text);
        }
        step();
        row = id(fileName);
    } else {
        prepare("update soundings set launchtime=? where sounding_id=?");
        bind(1, launchTime);
        bind(2, row);
        step();
    }
    if (metaData.launchLat.avail(false) && metaData.launchLon.avail(false)) {
        prepare("update soundings set lat_deg=?, lon_deg=? where sounding_id=?");
        bind(1, metaData.launchLat.value());
        bind(2, metaData.launchLon.value());
        bind(3, row);
        step();
    }
    whole.commit();
    return row;
}

void SoundingDB::deleteSounding(const std::string& fileName) {
    const int row = id(fileName);
    std::cout << "Delete sounding " << fileName << std::endl;
    prepare("delete from soundings where sounding_id=?");
    bind(1, row);
    step();
    finalize();
}

void SoundingDB::addLevelData(SOUNDING_FIELD field, double value) {
    _pending.emplace_back(field, value);
}

SoundingDB::LEVEL_TYPE SoundingDB::levelTypeOf(double pressure, LevelType levelType) const {
    if (levelType != LevelType::Standard) {
        const auto found = _types.find(levelType);
        return found == _types.end() ? SURFACE : found->second;
    }
    const auto found = std::find_if(_mandatory.begin(), _mandatory.end(), [&](const auto& each) {
        return std::abs(each.second - pressure) <= kPressureSlack;
    });
    return found == _mandatory.end() ? SURFACE : found->first;
}

void SoundingDB::addLevel(int id, double pressure, LevelType levelType) {
    const std::vector<std::pair<SOUNDING_FIELD, double>> values = std::move(_pending);
    _pending.clear();
    const int type = levelTypeOf(pressure, levelType);
    prepare("select count(*) from levels where sounding_id=? and type=?");
    bind(1, id);
    bind(2, type);
    const bool exists = step() && Integer(0) > 0;
    if (exists && values.empty()) {
        finalize();
        return;
    }
    std::string names;
    std::string marks;
    std::string pairs;
    for (const auto& [field, value] : values) {
        const std::string& name = _fieldNames.at(field);
        names += name + ", ";
        marks += "?, ";
        pairs += (pairs.empty() ? "" : ", ") + name + "=?";
    }
    prepare(exists ? "update levels set " + pairs + " where sounding_id=? and type=?"
                   : "insert into levels (" + names + "sounding_id, type) values (" + marks + "?, ?)");
    int index = 0;
    for (const auto& [field, value] : values) {
        bind(++index, value);
    }
    bind(++index, id);
    bind(++index, type);
    step();
    finalize();
}

void SoundingDB::deleteLevels(int id) {
    prepare("delete from levels where sounding_id=?");
    bind(1, id);
    step();
    finalize();
}

SoundingDB::Sounding::Sounding(int wanted, SoundingDB& db) : id(wanted) {
    db.prepare("select count(*) from soundings where sounding_id=?");
    db.bind(1, id);
    if (!db.step() || db.Integer(0) == 0) {
        throw "SoundingDB: no sounding " + std::to_string(id) + " in " + db.dbPath();
    }
    db.prepare(std::string("select ") + kTexts + " from soundings where sounding_id=?");
    db.bind(1, id);
    db.step();
    read(db, 0);
    db.finalize();
}

SoundingDB::Sounding::Sounding(const SoundingDB& db) : id(db.Integer(0)) {
    read(db, 1);
}

void SoundingDB::Sounding::read(const SoundingDB& db, int firstText) {
    for (std::string* text :
         {&filename, &launchTime, &platform, &project, &sondeId, &comments, &BSN, &callSign, &soundingType}) {
        *text = db.Text(firstText++);
    }
}

std::vector<SoundingDB::Sounding> SoundingDB::getSoundings() {
    std::vector<Sounding> soundings;
    prepare(std::string("select sounding_id, ") + kTexts + " from soundings order by sounding_id");
    while (step()) {
        soundings.push_back(Sounding(*this));
    }
    finalize();
    return soundings;
}

SoundingDB::Levels SoundingDB::getLevels(int id) {
    std::string names;
    for (const auto& [field, name] : _fieldNames) {
        names += ", " + name;
    }
    Levels levels;
    prepare("select type" + names + " from levels where sounding_id=? order by type");
    bind(1, id);
    while (step()) {
        StoredLevel level{static_cast<LEVEL_TYPE>(Integer(0)), {}};
        int col = 0;
        for (const auto& [field, name] : _fieldNames) {
            if (!isNull(++col)) {
                level.fields.emplace_back(field, Float(col));
            }
        }
        levels.push_back(std::move(level));
    }
    finalize();
    return levels;
}

bool SoundingDB::getLocation(int id, double& lat, double& lon) {
    prepare("select lat_deg, lon_deg from soundings where sounding_id=?");
    bind(1, id);
    const bool known = step() && !isNull(0) && !isNull(1);
    if (known) {
        lat = Float(0);
        lon = Float(1);
    }
    finalize();
    return known;
}

void SoundingDB::clear() {
    Transaction whole(*this);
    prepare("select count(*) from soundings");
    step();
    std::cout << "Deleting all " << Integer(0) << " rows in soundings table." << std::endl;
    finalize();
    exec("delete from soundings;");
    whole.commit();
}

bool SoundingDB::validate() {
    try {
        const std::vector<std::string> names = table_names();
        return std::find(names.begin(), names.end(), "soundings") != names.end();
    } catch (const std::string&) {
        if (sqlite3_errcode(handle()) != SQLITE_NOTADB) {
            throw;
        }
        return false;
    }
}
