"""The TROVE format: fifteen header lines, then one row for each record.

Option of the sounding: ``layout``, "named" for that of other systems, which name the format and run upward in time, or
"product" for that of Tarvo's product, which doesn't, and in which a dropsonde runs backward.
"""

from . import rows

COLUMNS = (
    ("time", "%6.1f", 99999.0),
    ("pressure", " %6.1f", 9999.0),
    ("temperature", " %5.1f", 999.0),
    ("dew_point", " %5.1f", 999.0),
    ("rh", " %5.1f", 999.0),
    ("u", " %6.1f", 999.0),
    ("v", " %6.1f", 999.0),
    ("speed", " %5.1f", 999.0),
    ("direction", " %5.1f", 999.0),
    ("ascent", " %5.1f", 99.0),
    ("longitude", " %8.3f", 999.0),
    ("latitude", " %7.3f", 999.0),
    (None, " %5.1f", 999.0),
    (None, " %5.1f", 999.0),
    ("altitude", " %7.1f", 99999.0),
) + 6 * ((None, " %4.1f", 99.0),)
HEADING = (
    " Time  Press  Temp  Dewpt  RH    Uwind  Vwind  Wspd  Dir   dZ      Lon     Lat    Rng   Az     Alt    Qp   Qt "
    "  Qh   Qu   Qv   Quv",
    "  sec    mb     C     C     %     m/s    m/s   m/s   deg   m/s     deg     deg     km   deg     m     mb   C  "
    "  %    m/s  m/s  m/s",
    "------ ------ ----- ----- ----- ------ ------ ----- ----- ----- -------- ------- ----- ----- ------- ---- ----"
    " ---- ---- ---- ----",
)


def _header(sounding, named):
    meta, launch = sounding.metadata, sounding.launch

    def line(label, text):
        return "%-35s%s" % (label, text)

    yield line("Data Type:", meta.data_type + (" TROVE" if named else ""))
    yield line("Project ID:", rows.joined(meta.project, meta.flight))
    yield line("Launch Site Type/Site ID:", rows.joined(meta.platform_type, meta.platform_id))
    yield line("Launch Location (lon,lat,alt):", "%s, %s, %.5f %.5f %.0f" % (
        rows.with_minutes(launch.longitude, "E", "W"), rows.with_minutes(launch.latitude, "N", "S"),
        launch.longitude, launch.latitude, launch.altitude))
    yield line("GMT Launch Time (y,m,d,h,m,s):", rows.launch_time(sounding))
    if named:
        yield line("Sonde Id/Type/Sensors: /", "%s %s %s" % (meta.sensor, meta.sonde_model, meta.sonde_id))
    else:
        yield line("Sonde Id:", meta.sonde_id)
    yield "/"
    yield "/"
    yield line("Reference Launch Data Source:", meta.observation_source) if named else "/"
    yield line("System Operator/Comments:", meta.operator + "," + meta.comments)
    yield line("Post Processing Comments:", "none")
    yield "/"
    yield from HEADING


def write(sounding):
    named = sounding.options["layout"] == "named"
    frames = [rows.launch_frame(sounding)] + sounding.frames
    if not named and not sounding.ascending:
        frames.reverse()
    lines = list(_header(sounding, named))
    lines += [rows.torn(sounding, frame, rows.row(frame, COLUMNS)) for frame in frames]
    return rows.text(lines)
