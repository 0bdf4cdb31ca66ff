#include "SpatiaLiteDB.h"
#include "MadeGeography.h"
#include "TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

/// A file with a land that has two lakes, a river and two towns.
std::string makeWorld(const TemporaryFolder& folder) {
    return makeSpatial(
        (folder / "world.sqlite").string(),
        {"create table land (name text)", "create table \"old rivers\" (n integer)", "create table town (name text)",
         "create table notes (geometries text)", "select AddGeometryColumn('land', 'GEOMETRY', 4326, 'POLYGON', 'XY')",
         "select AddGeometryColumn('old rivers', 'geometry', 4326, 'LINESTRING', 'XYZ')",
         "select AddGeometryColumn('town', 'geometry', 4326, 'POINT', 'XY')",
         "insert into land values ('Isle', GeomFromText('POLYGON((0 0, 10 0, 10 10, 0 10, 0 0), (1 1, 2 1, 2 2, 1 "
         "1), (5 5, 6 5, 6 6, 5 5))', 4326))",
         "insert into \"old rivers\" values (1, GeomFromText('LINESTRINGZ(3 1 100, 3 4 50, 4 9 0)', 4326))",
         "insert into town values ('South', GeomFromText('POINT(4 1)', 4326)), (null, GeomFromText('POINT(4 9)', "
         "4326)), ('Nowhere', null)"});
}

std::vector<std::pair<double, double>> coordinates(const std::vector<SpatiaLiteDB::Point>& points) {
    std::vector<std::pair<double, double>> pairs;
    for (const auto& point : points) {
        pairs.emplace_back(point.x, point.y);
    }
    return pairs;
}

} // namespace

TEST(SpatiaLite, readsShapesByTheirBox) {
    const TemporaryFolder folder;
    SpatiaLiteDB db(makeWorld(folder));
    EXPECT_THAT(db.geometryTables(), testing::IsSupersetOf({"land", "old rivers", "town"}));
    EXPECT_THAT(db.geometryTables(), testing::Not(testing::Contains("notes")));
    EXPECT_THAT(db.version(), testing::AllOf(HasSubstr("SQLite version: 3"), HasSubstr(", SpatiaLite version: ")));

    db.queryGeometry("land", "GEOMETRY", -5, -5, 1, 1, "name");
    ASSERT_EQ(db.polygons().size(), 1U);
    const SpatiaLiteDB::Polygon& isle = db.polygons()[0];
    EXPECT_EQ(isle.label(), "Isle");
    EXPECT_EQ(isle.extRing().size(), 5U);
    ASSERT_EQ(isle.intRings().size(), 2U);
    EXPECT_EQ(coordinates(isle.intRings()[0])[0], std::make_pair(1.0, 1.0));
    EXPECT_EQ(coordinates(isle.intRings()[1])[0], std::make_pair(5.0, 5.0));

    db.queryGeometry("old rivers", "geometry", 0, 0, 5, 5);
    EXPECT_THAT(db.polygons(), IsEmpty());
    ASSERT_EQ(db.linestrings().size(), 1U);
    EXPECT_THAT(coordinates(db.linestrings()[0].points),
                ElementsAre(std::make_pair(3.0, 1.0), std::make_pair(3.0, 4.0), std::make_pair(4.0, 9.0)));

    db.queryGeometry("town", "geometry", 0, 0, 10, 5, "name");
    ASSERT_EQ(db.points().size(), 1U);
    EXPECT_EQ(db.points()[0].label, "South");
    db.queryGeometry("town", "geometry", 0, 5, 10, 10, "name");
    ASSERT_EQ(db.points().size(), 1U);
    EXPECT_EQ(db.points()[0].label, "");
    db.queryGeometry("town", "geometry", 20, 20, 30, 30, "name");
    EXPECT_THAT(db.points(), IsEmpty());
    EXPECT_THROW(db.queryGeometry("no such", "geometry", 0, 0, 1, 1), std::string);

    const std::string plain = (folder / "plain.sqlite").string();
    SQLiteDB(plain, false, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE).exec("create table t (n integer)");
    EXPECT_THAT(SpatiaLiteDB(plain).geometryTables(), IsEmpty());
    EXPECT_THROW(SpatiaLiteDB((folder / "none.sqlite").string()), std::string);
}
