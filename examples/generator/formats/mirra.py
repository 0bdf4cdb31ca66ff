"""The files of the MIRRA upsonde system: fifteen header lines, a row of the launch observation, a row for each record.

There is no mark for a missing value. Option of the sounding: ``site``.
"""

LABEL_WIDTH = 35
COLUMNS = (
    ("time", "{:7.1f}"),
    ("pressure", "{:7.2f}"),
    ("temperature", "{:7.2f}"),
    ("rh", "{:6.2f}"),
    ("direction", "{:6.2f}"),
    ("speed", "{:6.2f}"),
    ("ascent", "{:6.2f}"),
    ("longitude", "{:11.6f}"),
    ("latitude", "{:10.6f}"),
    ("altitude", "{:8.1f}"),
    ("satellites", "{:3d}"),
)
NOT_OBSERVED = {"time": -1.0, "ascent": 0.0, "satellites": 0}  # at the ground


def _row(record):
    cells = []
    for name, shape in COLUMNS:
        value = getattr(record, name, None)
        value = NOT_OBSERVED[name] if value is None else value
        cells.append(shape.format(round(value, 2) % 360.0 if name == "direction" else value))
    return " ".join(cells)


def _header(sounding):
    meta, release, launch = sounding.metadata, sounding.release, sounding.launch
    for label, value in (
        ("Data Type:", "MIRRA, " + meta.data_type),
        ("Project Name/Mission ID:", "%s, %s" % (meta.project, meta.flight)),
        ("Launch Site Type/Site ID:", "Fixed, " + sounding.options["site"]),
        ("Launch Location (lon,lat,alt):", "%.5f, %.5f, %.1f" % (launch.longitude, launch.latitude, launch.altitude)),
        ("GMT Launch Time (y,m,d,h,m,s):", release.strftime("%Y, %m, %d, %H:%M:%S")),
        ("Sonde Type/ID/Sensor ID/Tx Freq:", "Mirra %s %s 1680, 7" % (meta.sonde_model, meta.sonde_id)),
        ("Met Processor/Smoothing:", "none"),
        ("Winds Type/Processor/Smoothing:", "GPS"),
        ("Pre-Launch Obs Data System/time:", "%s %s" % (meta.observation_source, release.strftime("%H:%M"))),
        ("System Operator/Comments:", "%s, %s" % (meta.operator, meta.comments)),
    ):
        yield label.ljust(LABEL_WIDTH) + value
    yield "/"
    yield "/"
    names = ("Time", "Press", "Temp", "RH", "Dir", "Spd", "dZ", "Lon", "Lat", "Alt", "Sat")
    units = ("sec", "mb", "C", "%", "deg", "m/s", "m/s", "deg", "deg", "m", "")
    widths = [len(shape.format(0)) for _, shape in COLUMNS]
    yield " ".join(name.rjust(width) for name, width in zip(names, widths))
    yield " ".join(unit.rjust(width) for unit, width in zip(units, widths)).rstrip()
    yield " ".join("-" * width for width in widths)


def write(sounding):
    lines = list(_header(sounding)) + [_row(sounding.launch)] + [_row(frame) for frame in sounding.frames]
    return "".join(line + "\n" for line in lines)
