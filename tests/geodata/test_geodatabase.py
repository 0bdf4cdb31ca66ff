"""Checks the maker of the geographic database: arcs decoded and lines cut by hand, and what ends up in the file, read through
the library that the map uses. Nothing here needs a network; the data are made up."""

import json
import sqlite3
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

SCRIPTS = Path(__file__).resolve().parents[2] / "scripts"
sys.path.insert(0, str(SCRIPTS))
sys.dont_write_bytecode = True

from geodatabase import layers, shapes  # noqa: E402
from geodatabase.topojson import Topology  # noqa: E402

TABLES = {"admin_0_countries", "admin_1_states_provinces_lines_shp", "lakes", "rivers_lake_centerlines",
          "geography_regions_points", "geography_regions_elevation_points", "populated_places", "geographic_lines", "coastline"}

# Two squares, ten degrees wide, that share the arc 1; quantised to half degrees from (-10, 0). Made up.
SQUARES = {
    "type": "Topology",
    "bbox": [-10, 0, 10, 10],
    "transform": {"scale": [0.5, 0.5], "translate": [-10, 0]},
    "arcs": [[[20, 0], [-20, 0], [0, 20], [20, 0]], [[20, 20], [0, -20]], [[20, 20], [20, 0], [0, -20], [-20, 0]]],
    "objects": {"countries": {"type": "GeometryCollection", "geometries": [
        {"type": "Polygon", "id": "001", "properties": {"name": "West"}, "arcs": [[0, 1]]},
        {"type": "MultiPolygon", "id": "002", "properties": {"name": "East"}, "arcs": [[[2, -2]]]}]},
        "land": {"type": "GeometryCollection", "geometries": [{"type": "Polygon", "arcs": [[0, 2]]}]}},
}
WEST = [(0, 0), (-10, 0), (-10, 10), (0, 10), (0, 0)]
EAST = [(0, 10), (10, 10), (10, 0), (0, 0), (0, 10)]


class Arcs(unittest.TestCase):
    def test_shared_and_reversed(self):
        west, east = Topology(SQUARES).polygons("countries")
        self.assertEqual(west.parts, [[WEST]])
        self.assertEqual(east.parts, [[EAST]])
        self.assertEqual((west.attributes["name"], east.attributes["id"]), ("West", "002"))

    def test_the_shore_has_no_borders(self):
        land, = Topology(SQUARES).polygons("land")
        self.assertEqual(land.parts, [[[(0, 0), (-10, 0), (-10, 10), (0, 10), (10, 10), (10, 0), (0, 0)]]])


class DateLine(unittest.TestCase):
    def test_a_line_is_cut(self):
        self.assertEqual(shapes.cut_line([(170, 0), (-170, 10)]), [[(170, 0), (180, 5)], [(-180, 5), (-170, 10)]])
        self.assertEqual(shapes.cut_line([(-175, 0), (175, 20), (170, 20)]),
                         [[(-175, 0), (-180, 10)], [(180, 10), (175, 20), (170, 20)]])
        self.assertEqual(shapes.cut_line([(10, 0), (20, 0)]), [[(10, 0), (20, 0)]])

    def test_rings_go_on_beyond_it(self):
        self.assertEqual(shapes.unwrapped_ring([(170, 0), (-170, 0), (-170, 10), (170, 10)]),
                         [(170, 0), (190, 0), (190, 10), (170, 10), (170, 0)])
        polar = shapes.unwrapped_ring([(-90, -70), (0, -75), (90, -70), (180, -72)])
        self.assertIn(-90, [y for _, y in polar])
        self.assertEqual(polar[0], polar[-1])

    def test_the_frame_of_the_map_is_no_shore(self):
        lines = shapes.shore([(170, 0), (180, 0), (180, 10), (170, 10)])
        self.assertEqual(lines, [[(180, 10), (170, 10), (170, 0), (180, 0)]])


def run(*arguments):
    return subprocess.run([sys.executable, str(SCRIPTS / "make-geodatabase"), *map(str, arguments)], capture_output=True,
                          text=True, timeout=120)


class Database(unittest.TestCase):
    def setUp(self):
        self.folder = tempfile.TemporaryDirectory()
        self.root = Path(self.folder.name)
        atlas = self.root / "data" / "world-atlas"
        atlas.mkdir(parents=True)
        (atlas / "countries-50m.json").write_text(json.dumps(SQUARES))

    def tearDown(self):
        self.folder.cleanup()

    def test_nine_tables_with_what_is_there(self):
        made = run("--out", self.root / "out", "--data", self.root / "data", "--offline")
        self.assertEqual(made.returncode, 0, made.stderr)
        self.assertIn("EMPTY", made.stdout)
        path = self.root / "out" / "ne1to50m.sqlite"
        self.assertEqual([entry.name for entry in path.parent.iterdir()], [path.name], "no temporary name is left")
        db = sqlite3.connect(path)
        db.enable_load_extension(True)
        db.execute("SELECT load_extension('mod_spatialite')")
        found = dict(db.execute("SELECT f_table_name, spatial_index_enabled FROM geometry_columns"))
        self.assertEqual(found, {table: 1 for table in TABLES})
        self.assertEqual(db.execute("SELECT Name, ST_Area(Geometry) FROM admin_0_countries ORDER BY Name").fetchall(),
                         [("East", 100.0), ("West", 100.0)])
        length, = db.execute("SELECT sum(ST_Length(Geometry)) FROM coastline").fetchone()
        self.assertAlmostEqual(length, 60.0)
        self.assertEqual(db.execute("SELECT count(*) FROM populated_places").fetchone(), (0,))
        self.assertEqual(db.execute("SELECT count(*) FROM sources").fetchone(), (9,))
        db.close()
        again = run("--out", self.root / "out", "--data", self.root / "data", "--offline")
        self.assertIn("--force", again.stdout)
        self.assertEqual(again.returncode, 0)

    def test_without_land_there_is_none(self):
        made = run("--out", self.root / "out", "--data", self.root / "nothing", "--offline")
        self.assertEqual(made.returncode, 1)
        self.assertIn("no geographic database was made", made.stderr)
        self.assertEqual(list((self.root / "out").iterdir()), [])

    def test_damaged_data_leave_the_old_one(self):
        (self.root / "out").mkdir()
        old = self.root / "out" / "ne1to50m.sqlite"
        old.write_text("the old one")
        (self.root / "data" / "world-atlas" / "countries-50m.json").write_text('{"type": "Topology", "arcs": ')
        made = run("--out", self.root / "out", "--data", self.root / "data", "--offline", "--force")
        self.assertEqual(made.returncode, 1)
        self.assertEqual(old.read_text(), "the old one")
        self.assertEqual(len(list((self.root / "out").iterdir())), 1)


class OwnLists(unittest.TestCase):
    def test_places_lie_on_the_earth(self):
        for name in ("regions.csv", "summits.csv"):
            features = layers._own_points(name)(None)
            self.assertGreater(len(features), 50)
            for feature in features:
                (longitude, latitude), = feature.parts
                self.assertTrue(-180 <= longitude <= 180 and -90 <= latitude <= 90, feature)
                self.assertTrue(feature.attributes["Name"])

    def test_geographic_lines(self):
        lines = {feature.attributes["Name"]: feature.parts[0] for feature in layers._geographic_lines(None)}
        self.assertAlmostEqual(lines["Tropic of Cancer"][0][1], 23.44, places=2)
        self.assertAlmostEqual(lines["Antarctic Circle"][0][1], -66.56, places=2)


if __name__ == "__main__":
    unittest.main()
