"""Reads the shapes of an ESRI shapefile and the rows of the table beside it (ESRI Shapefile Technical Description, 1998)."""
import struct
from pathlib import Path

from .shapes import Feature

POINT, POLYLINE, POLYGON = 1, 3, 5
HEADER = 100  # bytes


def read(path):
    """The features of a file of points, lines or polygons; ValueError when the file isn't whole."""
    try:
        shapes = list(_shapes(Path(path).read_bytes()))
        rows = list(_rows(Path(path).with_suffix(".dbf").read_bytes()))
    except (struct.error, IndexError) as error:
        raise ValueError(f"{path} is damaged: {error}") from error
    if len(shapes) != len(rows):
        raise ValueError(f"{path} has {len(shapes)} shapes and {len(rows)} rows")
    return [Feature(parts, row) for parts, row in zip(shapes, rows) if parts]


def _shapes(data):
    at = HEADER
    while at < len(data):
        words, = struct.unpack_from(">I", data, at + 4)
        kind, = struct.unpack_from("<i", data, at + 8)
        if kind == POINT:
            yield [struct.unpack_from("<2d", data, at + 12)]
        elif kind in (POLYLINE, POLYGON):
            lines = _lines(data, at + 44)
            yield _polygons(lines) if kind == POLYGON else lines
        else:
            yield []
        at += 8 + 2 * words


def _lines(data, at):
    parts, points = struct.unpack_from("<2i", data, at)
    starts = struct.unpack_from(f"<{parts}i", data, at + 8)
    numbers = struct.unpack_from(f"<{2 * points}d", data, at + 8 + 4 * parts)
    pairs = list(zip(numbers[::2], numbers[1::2]))
    return [pairs[start:end] for start, end in zip(starts, (*starts[1:], points))]


def _polygons(rings):
    """An outer ring runs clockwise, its holes follow it and run the other way."""
    polygons = []
    for ring in rings:
        doubled_area = sum(x0 * y1 - x1 * y0 for (x0, y0), (x1, y1) in zip(ring, ring[1:]))
        if doubled_area < 0 or not polygons:
            polygons.append([ring])
        else:
            polygons[-1].append(ring)
    return polygons


def _rows(data):
    count, header, length = struct.unpack_from("<IHH", data, 4)
    columns, at = [], 32
    while data[at] != 0x0D:
        columns.append((data[at:at + 11].split(b"\0")[0].decode("ascii").lower(), chr(data[at + 11]), data[at + 16]))
        at += 32
    for index in range(count):
        at = header + index * length + 1
        row = {}
        for name, kind, width in columns:
            row[name] = _value(data[at:at + width], kind)
            at += width
        yield row


def _value(field, kind):
    try:
        text = field.decode("utf-8")
    except UnicodeDecodeError:
        text = field.decode("cp1252", "replace")
    text = text.strip(" \0")
    if kind in "NF":
        return float(text) if text and text[0] != "*" else None
    return text or None
