"""Writes the SpatiaLite file."""
import os
import sqlite3
from contextlib import contextmanager

from . import shapes

SRID = 4326  # WGS 84, longitude and latitude in degrees
WORLD = f"BuildMbr(-180, -90, 180, 90, {SRID})"


@contextmanager
def quiet_errors():
    """Keeps the libraries below SQLite from writing each repaired ring to the error stream."""
    kept = os.dup(2)
    with open(os.devnull, "wb") as nowhere:
        os.dup2(nowhere.fileno(), 2)
    try:
        yield
    finally:
        os.dup2(kept, 2)
        os.close(kept)


class SpatialFile:
    """A new SpatiaLite file. Everything is one transaction; the file is to be written under a temporary name."""

    def __init__(self, path):
        self._db = sqlite3.connect(path, isolation_level=None)
        self._db.enable_load_extension(True)
        self._db.execute("SELECT load_extension('mod_spatialite')")
        self._db.execute("PRAGMA journal_mode = OFF")
        self._db.execute("BEGIN")
        self._db.execute("SELECT InitSpatialMetaData(0, 'WGS84')")
        self._db.execute("CREATE TABLE sources (table_name TEXT PRIMARY KEY, package TEXT, registry TEXT, data TEXT, "
                         "detail TEXT, licence TEXT, note TEXT)")

    def write(self, made):
        """Makes the table, with a spatial index, and returns its numbers of rows and of vertices."""
        layer = made.layer
        columns = "".join(f", {name} {kind}" for name, kind in layer.columns.items())
        self._db.execute(f"CREATE TABLE {layer.table} (id INTEGER PRIMARY KEY{columns})")
        self._db.execute("SELECT AddGeometryColumn(?, 'Geometry', ?, ?, 'XY')", (layer.table, SRID, layer.geometry))
        names = ", ".join([*layer.columns, "Geometry"])
        marks = ", ".join("?" * (len(layer.columns) + 1))
        insert = f"INSERT INTO {layer.table} ({names}) VALUES ({marks})"
        with quiet_errors():
            for feature in made.features:
                values = [feature.attributes.get(name) for name in layer.columns]
                for blob in self._blobs(feature, layer):
                    self._db.execute(insert, (*values, blob))
        self._db.execute("SELECT CreateSpatialIndex(?, 'Geometry')", (layer.table,))
        self._db.execute("INSERT INTO sources VALUES (?, ?, ?, ?, ?, ?, ?)", (layer.table, *self._origin(made)))
        return self._db.execute(f"SELECT count(*), coalesce(sum(ST_NPoints(Geometry)), 0) FROM {layer.table}").fetchone()

    @staticmethod
    def _origin(made):
        package = made.package
        note = "; ".join(made.missing) or None
        if package is None:
            return None, None, None, None, None, note
        version = f" {package.version}" if package.version else ""
        return package.name + version, package.registry, package.data, made.detail, package.licence, note

    def _blobs(self, feature, layer):
        for part in feature.parts:
            if layer.geometry == "POINT":
                yield self._value(f"GeomFromWKB(?, {SRID})", shapes.wkb_point(part))
            elif layer.geometry == "LINESTRING":
                for line in shapes.cut_line(part):
                    yield self._line(shapes.wkb_line(line), layer.tolerance)
            else:
                yield from self._polygons(shapes.polygon_unwrapped(part))

    def _line(self, wkb, tolerance):
        line = f"GeomFromWKB(?, {SRID})"
        return self._value(f"ST_SimplifyPreserveTopology({line}, {tolerance})" if tolerance else line, wkb)

    def _polygons(self, rings):
        """Valid polygons within the world: what reaches over the date line is cut there, what crosses itself is parted."""
        blob = self._value(f"GeomFromWKB(?, {SRID})", shapes.wkb_polygon(rings))
        if self._value("ST_IsValid(?)", blob) != 1:
            blob = self._value("CollectionExtract(MakeValid(?), 3)", blob)
        west, _, east, _ = shapes.box(rings[0])
        for turn in (0, 360, -360) if west < -180 or east > 180 else (0,):
            cut = blob
            if turn or west < -180 or east > 180:
                cut = self._value(f"CollectionExtract(ST_Intersection(ShiftCoords(?, {turn}, 0), {WORLD}), 3)", blob)
            count = self._value("NumGeometries(?)", cut) or 0
            for number in range(1, count + 1):
                yield self._db.execute("SELECT CastToPolygon(GeometryN(?, ?))", (cut, number)).fetchone()[0]

    def _value(self, expression, argument):
        return self._db.execute(f"SELECT {expression}", (argument,)).fetchone()[0]

    def invalid(self, layer):
        """The number of shapes that aren't valid or reach out of the world."""
        return self._db.execute(f"SELECT count(*) FROM {layer.table} WHERE Geometry IS NULL OR ST_IsValid(Geometry) <> 1 OR "
                                "MbrMinX(Geometry) < -180 OR MbrMaxX(Geometry) > 180").fetchone()[0]

    def finish(self):
        """Keeps everything."""
        self._db.execute("COMMIT")
        self._db.execute("ANALYZE")
        self._db.close()

    def close(self):
        self._db.close()
