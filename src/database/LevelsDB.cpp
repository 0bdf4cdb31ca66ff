#include "LevelsDB.h"

#include "Humidity.h"
#include "Levels.h"
#include "SoundingDB.h"

#include <initializer_list>
#include <optional>
#include <utility>

namespace {

using Fields = std::initializer_list<std::pair<LevelFieldId, SoundingDB::SOUNDING_FIELD>>;

void addFields(const Level& level, SoundingDB& db, Fields fields) {
    for (const auto& [from, to] : fields) {
        double value = 0.0;
        if (level.getFieldData(from, value)) {
            db.addLevelData(to, value);
        }
    }
}

void addThermo(const Level& level, SoundingDB& db) {
    double tdry = 0.0;
    double rh = 0.0;
    addFields(level, db, {{LFtdry, SoundingDB::TDRY}});
    if (level.getFieldData(LFtdry, tdry) && level.getFieldData(LFrh, rh)) {
        db.addLevelData(SoundingDB::DP, dewPt(tdry, rh));
    }
}

void addWind(const Level& level, SoundingDB& db) {
    addFields(level, db, {{LFwspd, SoundingDB::WSPD}, {LFwdir, SoundingDB::WDIR}});
}

/// The pressure of a level that has one, and a time.
std::optional<double> pressureOf(const Level& level) {
    double pressure = 0.0;
    return level.has(LFtime) && level.getFieldData(LFpres, pressure) ? std::optional<double>(pressure) : std::nullopt;
}

void addUpperLevel(const Level& level, SoundingDB& db, int id) {
    if (const auto pressure = pressureOf(level)) {
        db.addLevelData(SoundingDB::PRES, *pressure);
        addThermo(level, db);
        addWind(level, db);
        addFields(level, db, {{LFalt, SoundingDB::ALT}});
        db.addLevel(id, *pressure, level.levelType());
    }
}

void addSurface(const Level* thermo, const Level* wind, SoundingDB& db, int id) {
    const auto pressure = thermo != nullptr ? pressureOf(*thermo) : std::nullopt;
    if (!pressure) {
        return;
    }
    db.addLevelData(SoundingDB::PRES, *pressure);
    addThermo(*thermo, db);
    if (wind != nullptr) {
        addWind(*wind, db);
    }
    db.addLevel(id, *pressure, LevelType::SurfaceThermo);
}

} // namespace

void LevelsDB::addLevels(const Levels* levels, SoundingDB* db, const std::string& fileName) {
    SQLiteDB::Transaction whole(*db);
    const int id = db->id(fileName);
    if (id == -1) {
        return;
    }
    db->deleteLevels(id);
    const Level* surfaceThermo = nullptr;
    const Level* surfaceWind = nullptr;
    for (const Level& level : levels->levels()) {
        switch (level.levelType()) {
        case LevelType::SurfaceThermo:
            surfaceThermo = &level;
            break;
        case LevelType::SurfaceWind:
            surfaceWind = &level;
            break;
        case LevelType::Standard:
        case LevelType::TropopauseLevel:
        case LevelType::MaxWind:
        case LevelType::Layer150m:
        case LevelType::DeepLayer:
        case LevelType::MeanBLWind:
            addUpperLevel(level, *db, id);
            break;
        default:
            break;
        }
    }
    addSurface(surfaceThermo, surfaceWind, *db, id);
    whole.commit();
}
