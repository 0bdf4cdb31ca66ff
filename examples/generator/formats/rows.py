"""What the formats of one row for each record share.

Option of the sounding: ``torn``, where a row ends early: the number of its characters by the time of the record.
"""

import math

from ..atmosphere import saturation_pressure, wind_components
from ..sounding import Frame


def launch_frame(sounding):
    """The launch observation as the record that goes ahead of all others."""
    return Frame(-1.0, **vars(sounding.launch))


def value(frame, name):
    """A quantity of a record, also those that follow from others; ``None`` when it wasn't measured."""
    if name == "dew_point":
        return _dew_point(frame.temperature, frame.rh)
    if name in ("u", "v"):
        if frame.speed is None or frame.direction is None:
            return None
        return wind_components(frame.direction, frame.speed)["uv".index(name)]
    return getattr(frame, name)


def _dew_point(celsius, rh):
    """By bisection of the saturation pressure."""
    if celsius is None or rh is None:
        return None
    vapour = max(rh, 0.1) / 100.0 * saturation_pressure(celsius)
    low, high = -150.0, 60.0
    while high - low > 1e-4:
        middle = 0.5 * (low + high)
        if saturation_pressure(middle) < vapour:
            low = middle
        else:
            high = middle
    return low


def row(frame, columns):
    """Columns are (quantity, format, mark of a missing value); without a quantity the mark stands in every row."""
    cells = []
    for name, shape, mark in columns:
        found = None if name is None else value(frame, name)
        cells.append(shape % (mark if found is None else found))
    return "".join(cells)


def torn(sounding, frame, line):
    return line[: sounding.options.get("torn", {}).get(frame.time, len(line))]


def with_minutes(degrees, positive, negative):
    """80.4321 degrees west as ``80 25.93'W``."""
    whole = math.floor(abs(degrees))
    return "%d %05.2f'%s" % (whole, (abs(degrees) - whole) * 60.0, negative if degrees < 0.0 else positive)


def launch_time(sounding):
    return sounding.release.strftime("%Y, %m, %d, %H:%M:%S")


def joined(name, detail):
    return name + ", " + detail


def text(lines, line_end="\n"):
    return "".join(line + line_end for line in lines)
