#include "SpatiaLiteDB.h"

#include <sqlite3.h>

#include <spatialite.h>
#include <spatialite/gaiageo.h>

#include <algorithm>
#include <cctype>
#include <memory>

namespace {

/// Of points in rows of two, three or four numbers; what comes behind x and y isn't used.
template <typename Coordinates>
std::vector<SpatiaLiteDB::Point> pointsOf(const Coordinates& coordinates) {
    const int dimensions = coordinates.DimensionModel == GAIA_XY       ? 2
                           : coordinates.DimensionModel == GAIA_XY_Z_M ? 4
                                                                       : 3;
    std::vector<SpatiaLiteDB::Point> points;
    points.reserve(static_cast<std::size_t>(std::max(coordinates.Points, 0)));
    for (int i = 0; i < coordinates.Points; ++i) {
        const double* at = coordinates.Coords + static_cast<std::ptrdiff_t>(i) * dimensions;
        points.push_back({at[0], at[1], {}});
    }
    return points;
}

} // namespace

SpatiaLiteDB::SpatiaLiteDB(const std::string& path)
    : SQLiteDB(path, true, SQLITE_OPEN_READONLY), _connection(spatialite_alloc_connection()) {
    try {
        init();
        spatialite_init_ex(handle(), _connection, 0);
    } catch (...) {
        spatialite_cleanup_ex(_connection);
        throw;
    }
}

SpatiaLiteDB::~SpatiaLiteDB() {
    close();
    spatialite_cleanup_ex(_connection);
}

gaiaGeomCollStruct* SpatiaLiteDB::Geom(int col) const {
    int length = 0;
    const auto* blob = static_cast<const unsigned char*>(Blob(col, length));
    return blob == nullptr ? nullptr : gaiaFromSpatiaLiteBlobWkb(blob, static_cast<unsigned int>(length));
}

void SpatiaLiteDB::queryGeometry(const std::string& table, const std::string& geometryColumn, double left,
                                 double bottom, double right, double top, const std::string& labelColumn) {
    _points.clear();
    _linestrings.clear();
    _polygons.clear();
    const std::string geometry = quoted(geometryColumn);
    prepare("SELECT " + geometry + (labelColumn.empty() ? "" : "," + quoted(labelColumn)) + " FROM " + quoted(table) +
            " WHERE MbrIntersects(" + geometry + ", BuildMbr(?,?,?,?));");
    int index = 0;
    for (const double edge : {left, bottom, right, top}) {
        bind(++index, edge);
    }
    while (step()) {
        const std::unique_ptr<gaiaGeomColl, void (*)(gaiaGeomCollPtr)> shape(Geom(0), &gaiaFreeGeomColl);
        if (!shape) {
            continue;
        }
        const std::string label = labelColumn.empty() || isNull(1) ? std::string() : Text(1);
        for (const gaiaPoint* each = shape->FirstPoint; each != nullptr; each = each->Next) {
            _points.push_back({each->X, each->Y, label});
        }
        for (const gaiaLinestring* each = shape->FirstLinestring; each != nullptr; each = each->Next) {
            _linestrings.push_back({pointsOf(*each), label});
        }
        for (const gaiaPolygon* each = shape->FirstPolygon; each != nullptr; each = each->Next) {
            Polygon polygon;
            polygon.setExtRing(pointsOf(*each->Exterior));
            for (int hole = 0; hole < each->NumInteriors; ++hole) {
                polygon.addIntRing(pointsOf(each->Interiors[hole]));
            }
            polygon.setLabel(label);
            _polygons.push_back(std::move(polygon));
        }
    }
    finalize();
}

std::vector<std::string> SpatiaLiteDB::geometryTables() {
    std::vector<std::string> tables;
    for (const std::string& table : table_names()) {
        const std::vector<std::string> columns = column_names(table);
        const bool hasGeometry = std::any_of(columns.begin(), columns.end(), [](std::string column) {
            std::transform(column.begin(), column.end(), column.begin(),
                           [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
            return column == "geometry";
        });
        if (hasGeometry) {
            tables.push_back(table);
        }
    }
    return tables;
}

std::string SpatiaLiteDB::libraryVersion() {
    return SQLiteDB::libraryVersion() + ", SpatiaLite version: " + spatialite_version();
}
