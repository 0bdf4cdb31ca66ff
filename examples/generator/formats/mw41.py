"""The text export of the MW41 system: pairs of key and value, an empty line, and a table with commas.

Options of the sounding: ``extra_column``, whether there is one that no reader knows, and ``line_end``.
"""

from . import rows

COLUMNS = (
    ("Elapsed time", "time", "s", "%.1f"),
    ("HeightMSL", "altitude", "m", "%.1f"),
    ("P", "pressure", "hPa", "%.2f"),
    ("Temp", "temperature", "deg C", "%.2f"),
    ("RH", "rh", "%", "%.1f"),
    ("Dewp", "dew_point", "deg C", "%.2f"),
    ("Dir", "direction", "deg", "%.1f"),
    ("Speed", "speed", "m/s", "%.2f"),
    ("AscRate", "ascent", "m/s", "%.2f"),
    ("Lat", "latitude", "deg", "%.5f"),
    ("Lon", "longitude", "deg", "%.5f"),
    ("GpsHeightMSL", "gps_altitude", "m", "%.1f"),
)
MISSING = 99999.0
EXTRA = ("Battery voltage", None, "V", "%.1f")


def _header(sounding):
    meta, launch = sounding.metadata, sounding.launch
    yield "FLEDT\tmetadata"
    for key, text in (
        ("Station name", sounding.options["site"]),
        ("System trademark and model", "Synthetic 41"),
        ("Operator", meta.operator),
        ("Key without value", ""),
        ("Sonde type", meta.sonde_model),
        ("Sonde serial number", meta.sonde_id),
        ("Balloon release date and time", sounding.release.strftime("%Y-%m-%dT%H:%M:%S")),
        ("Release point latitude", "%.5f %s" % (abs(launch.latitude), "S" if launch.latitude < 0.0 else "N")),
        ("Release point longitude", "%.5f %s" % (abs(launch.longitude), "W" if launch.longitude < 0.0 else "E")),
        ("Release point height from sea level", "%.1f m" % launch.altitude),
        ("Surface pressure", "%.1f hPa" % launch.pressure),
        ("Surface temperature", "%.1f" % launch.temperature),
        ("Surface relative humidity", "%.1f %%" % launch.rh),
        ("Surface wind speed", "%.1f m/s" % launch.speed),
        ("Surface wind direction", "%.1f" % launch.direction),
        ("Comments", meta.comments),
        ("Reason for termination", "Balloon burst"),
    ):
        yield key + "\t" + text
    yield ""


def write(sounding):
    columns = COLUMNS + ((EXTRA,) if sounding.options.get("extra_column") else ())
    lines = list(_header(sounding))
    lines.append(",".join(column[0] for column in columns))
    lines.append(",".join(column[2] for column in columns))
    table = [(name, shape + ",", MISSING) for _, name, _, shape in columns]
    for frame in sounding.frames:
        lines.append(rows.torn(sounding, frame, rows.row(frame, table)[:-1]))
    return rows.text(lines, sounding.options.get("line_end", "\n"))
