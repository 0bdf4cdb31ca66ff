#pragma once

#include "SQLiteDB.h"

#include <sqlite3.h>

#include <spatialite.h>

#include <string>

/// A file with tables for maps, made by these statements.
inline std::string makeSpatial(const std::string& path, std::initializer_list<const char*> statements) {
    void* connection = spatialite_alloc_connection();
    {
        SQLiteDB db(path, false, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE);
        spatialite_init_ex(db.handle(), connection, 0);
        db.exec("select InitSpatialMetaData(1)");
        for (const char* sql : statements) {
            db.exec(sql);
        }
    }
    spatialite_cleanup_ex(connection);
    return path;
}

/// A small geographic database with some of the tables of the map: a country round the origin with a lake, its coast,
/// and two places. Made up.
inline std::string makeGeography(const std::string& path) {
    return makeSpatial(
        path,
        {"create table admin_0_countries (Name text)", "create table coastline (Name text)",
         "create table populated_places (Name text)",
         "select AddGeometryColumn('admin_0_countries', 'Geometry', 4326, 'POLYGON', 'XY')",
         "select AddGeometryColumn('coastline', 'Geometry', 4326, 'LINESTRING', 'XY')",
         "select AddGeometryColumn('populated_places', 'Geometry', 4326, 'POINT', 'XY')",
         "insert into admin_0_countries values ('Isle', GeomFromText('POLYGON((-40 -20, 40 -20, 40 20, -40 20, -40 "
         "-20))', 4326))",
         "insert into coastline values ('Isle', GeomFromText('LINESTRING(-40 -20, 40 -20, 40 20, -40 20, -40 -20)', "
         "4326))",
         "insert into populated_places values ('Northport', GeomFromText('POINT(0 15)', 4326)), ('Southport', "
         "GeomFromText('POINT(0 -15)', 4326))"});
}
