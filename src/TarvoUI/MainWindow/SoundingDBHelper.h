#pragma once

#include "SoundingDB.h"

#include <memory>

class ConfigSet;
class QWidget;

/// Finds, makes, checks and upgrades the database of soundings.
namespace SoundingDBHelper {

/// Opens the database that the item SoundingDBPath names. Where there is none the user is asked for one; a file that is
/// something else is left alone, and one of another version is set aside under a name with that version. Boxes tell of
/// all that. A new path is stored in the configuration. Throws a std::string when there is no database in the end.
std::unique_ptr<SoundingDB> getDB(QWidget* parent, ConfigSet& configSet);

} // namespace SoundingDBHelper
