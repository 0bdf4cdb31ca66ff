#pragma once

#include "SpatiaLiteDB.h"

#include <memory>

class ConfigSet;
class QWidget;

/// Finds the geographic database of the synoptic map.
namespace GeoDBHelper {

/// Opens the database that the item GeoDBPath names. Where there is none it is the one that is installed with the
/// program, else the user is asked for it, and the new path stored in the configuration. Null, of which a box has told,
/// when it isn't a geographic database.
std::unique_ptr<SpatiaLiteDB> getDB(QWidget* parent, ConfigSet& configSet);

/// Whether it has a table with a geometry; null has none.
bool validDB(SpatiaLiteDB* db);

} // namespace GeoDBHelper
