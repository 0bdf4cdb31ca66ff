#pragma once

#include "SQLiteDB.h"

#include <string>
#include <vector>

struct gaiaGeomCollStruct;

/// A file of coastlines, countries and places, which is read by bounding box and never written. Coordinates are
/// degrees, x east and y north. Errors are thrown as std::string.
class SpatiaLiteDB : public SQLiteDB {
public:
    struct Point {
        double x;
        double y;
        std::string label;
    };
    using PointList = std::vector<Point>;
    struct Linestring {
        std::vector<Point> points;
        std::string label;
    };
    using LinestringList = std::vector<Linestring>;
    using Ring = std::vector<Point>;
    class Polygon {
    public:
        const Ring& extRing() const { return _extRing; }
        void setExtRing(Ring ring) { _extRing = std::move(ring); }
        /// The holes, in the order of the file.
        const std::vector<Ring>& intRings() const { return _intRings; }
        void addIntRing(Ring ring) { _intRings.push_back(std::move(ring)); }
        const std::string& label() const { return _label; }
        void setLabel(const std::string& label) { _label = label; }

    private:
        Ring _extRing;
        std::vector<Ring> _intRings;
        std::string _label;
    };
    using PolygonList = std::vector<Polygon>;

    explicit SpatiaLiteDB(const std::string& path);
    ~SpatiaLiteDB() override;

    /// Fills the three lists with what meets the box, in whole. Without a \p labelColumn there are no labels.
    void queryGeometry(const std::string& table, const std::string& geometryColumn, double left, double bottom,
                       double right, double top, const std::string& labelColumn = {});
    /// The tables that have a geometry.
    std::vector<std::string> geometryTables();

    /// What the last query found.
    const PointList& points() const { return _points; }
    const LinestringList& linestrings() const { return _linestrings; }
    const PolygonList& polygons() const { return _polygons; }

    std::string version() const override { return libraryVersion(); }
    /// The same without a file.
    static std::string libraryVersion();

private:
    gaiaGeomCollStruct* Geom(int col) const;

    void* _connection;
    PointList _points;
    LinestringList _linestrings;
    PolygonList _polygons;
};
