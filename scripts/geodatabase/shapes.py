"""Shapes in degrees of longitude and latitude: what is cut before it goes into a table, and their binary form.

A point is a pair (longitude, latitude), a line a list of points, a polygon a list of closed rings of which the first is
the outer one.
"""
import struct
from dataclasses import dataclass, field

EDGE_SLACK = 0.01  # degrees; the southern edge of Antarctica stands at -89.999 in some data
WKB_LITTLE_ENDIAN, WKB_POINT, WKB_LINE, WKB_POLYGON = 1, 1, 2, 3


@dataclass
class Feature:
    """One thing of the map: points, lines and polygons of one kind, with its attributes by column name."""
    parts: list
    attributes: dict = field(default_factory=dict)


def closed(ring):
    return ring if ring[0] == ring[-1] else ring + [ring[0]]


def unwrapped(line):
    """The line with longitudes that go on beyond 180 degrees where it crosses the date line: no step is longer than 180."""
    turned, turns = [], 0
    for index, (x, y) in enumerate(line):
        if index:
            step = x - line[index - 1][0]
            turns -= (step > 180) - (step < -180)
        turned.append((x + 360 * turns, y))
    return turned


def unwrapped_ring(ring):
    """The same of a ring. One that goes once round the earth has a pole inside and is closed over that pole."""
    turned = unwrapped(closed(ring))
    if abs(turned[-1][0] - turned[0][0]) > 180:
        pole = 90 if sum(y for _, y in ring) > 0 else -90
        turned += [(turned[-1][0], pole), (turned[0][0], pole), turned[0]]
    return turned


def polygon_unwrapped(polygon):
    """The rings of a polygon, each unwrapped, the holes brought to the side of the date line that the outer ring is on."""
    outer, *holes = [unwrapped_ring(ring) for ring in polygon]
    west, east = min(x for x, _ in outer), max(x for x, _ in outer)
    placed = [outer]
    for hole in holes:
        shift = next((turn for turn in (0, 360, -360)
                      if west <= min(x for x, _ in hole) + turn and max(x for x, _ in hole) + turn <= east), 0)
        placed.append([(x + shift, y) for x, y in hole])
    return placed


def cut_line(line):
    """The pieces of a line, cut where it crosses the date line and within -180..180."""
    pieces, piece = [], []
    for (x0, y0), (x1, y1) in zip(line, line[1:]):
        piece = piece or [(x0, y0)]
        if abs(x1 - x0) > 180:
            side = 180 if x0 > x1 else -180
            beyond = x1 + 2 * side
            height = y0 if beyond == x0 else y0 + (y1 - y0) * (side - x0) / (beyond - x0)
            pieces.append(piece + [(side, height)])
            piece = [(-side, height)]
        piece.append((x1, y1))
    pieces.append(piece)
    return [kept for kept in (without_repeats(piece) for piece in pieces) if len(kept) > 1]


def without_repeats(line):
    return [point for index, point in enumerate(line) if not index or point != line[index - 1]]


def on_frame(a, b):
    """Whether the way from a to b is an edge of the map and no shore: along the date line or the South Pole."""
    return (abs(a[0]) > 180 - EDGE_SLACK and a[0] * b[0] > 0 and abs(b[0]) > 180 - EDGE_SLACK) or \
        max(a[1], b[1]) < -90 + EDGE_SLACK


def shore(ring):
    """The lines of a ring without its edges along the frame of the map."""
    ring = without_repeats(closed(ring))
    edges = list(zip(ring, ring[1:]))
    start = next((index + 1 for index, edge in enumerate(edges) if on_frame(*edge)), 0)
    lines, line = [], []
    for a, b in edges[start:] + edges[:start]:
        if on_frame(a, b):
            lines.append(line)
            line = []
        else:
            line = line or [a]
            line.append(b)
    return [each for each in lines + [line] if each]


def joined(lines):
    """The lines, with those put together that meet where no third one ends; a loop stays where it was cut."""
    ends = {}
    for index, line in enumerate(lines):
        for point in (line[0], line[-1]):
            ends.setdefault(point, []).append(index)
    lines, whole = dict(enumerate(lines)), {}
    for point, meeting in ends.items():
        if len(meeting) != 2:
            continue
        first, second = (_current(index, whole) for index in meeting)
        if first == second:
            continue
        a, b = lines[first], lines.pop(second)
        a = a if a[-1] == point else a[::-1]
        b = b if b[0] == point else b[::-1]
        lines[first] = a + b[1:]
        whole[second] = first
    return list(lines.values())


def _current(index, whole):
    while index in whole:
        index = whole[index]
    return index


def pieces(line, longest):
    """The line in pieces of up to \"longest\" points that share their ends, so that a box finds what is near it."""
    return [line[start:start + longest] for start in range(0, len(line) - 1, longest - 1)]


def box(points):
    """West, south, east, north."""
    return (min(x for x, _ in points), min(y for _, y in points), max(x for x, _ in points), max(y for _, y in points))


def _coordinates(points):
    return struct.pack(f"<I{2 * len(points)}d", len(points), *(number for point in points for number in point))


def wkb_point(point):
    return struct.pack("<BI2d", WKB_LITTLE_ENDIAN, WKB_POINT, *point)


def wkb_line(line):
    return struct.pack("<BI", WKB_LITTLE_ENDIAN, WKB_LINE) + _coordinates(line)


def wkb_polygon(rings):
    head = struct.pack("<BII", WKB_LITTLE_ENDIAN, WKB_POLYGON, len(rings))
    return head + b"".join(_coordinates(closed(ring)) for ring in rings)
