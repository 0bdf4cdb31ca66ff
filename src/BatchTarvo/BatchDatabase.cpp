#include "BatchDatabase.h"

#include "EditorControl.h"
#include "LevelsDB.h"
#include "SoundingDB.h"

#include <filesystem>

namespace {

std::unique_ptr<SoundingDB> openUsable(const std::string& path) {
    auto db = SoundingDB::openOrCreate(path);
    if (!db->validate()) {
        throw "this is no sounding database: " + path;
    }
    const int version = db->user_version();
    if (version != soundingsSchemaVersion()) {
        throw "the sounding database has version " + std::to_string(version) + ", not " +
            std::to_string(soundingsSchemaVersion()) + ": " + path;
    }
    return db;
}

} // namespace

std::string BatchDatabase::prepare(const std::string& path) {
    try {
        openUsable(path);
        return {};
    } catch (const std::string& error) {
        return error;
    }
}

std::string BatchDatabase::enter(const std::string& path, const std::string& input, const EditorControl& editor) {
    try {
        const auto db = openUsable(path);
        const std::string name = std::filesystem::canonical(input).string();
        std::string type;
        editor.soundingType(type);
        SQLiteDB::Transaction whole(*db);
        db->enterSounding(name, editor.getSndMetaData(true), type);
        if (editor.levels() != nullptr) {
            LevelsDB::addLevels(editor.levels(), db.get(), name);
        }
        whole.commit();
        return {};
    } catch (const std::string& error) {
        return "The sounding can't be entered in the database: " + error;
    }
}
