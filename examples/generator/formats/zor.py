"""The ZOR format: fourteen header lines, then one row for each record, the time of day among its columns."""

from . import rows

COLUMNS = (
    ("pressure", " %7.2f", -999.0),
    ("temperature", " %7.2f", -999.0),
    ("dew_point", " %7.2f", -999.0),
    ("rh", " %7.2f", -999.0),
    ("u", " %7.2f", -999.0),
    ("v", " %7.2f", -999.0),
    ("speed", " %7.2f", -999.0),
    ("direction", " %7.2f", -999.0),
    ("ascent", " %7.2f", -999.0),
    ("altitude", " %8.2f", -999.0),
    ("longitude", " %11.6f", -999.0),
    ("latitude", " %11.6f", -999.0),
    ("gps_altitude", " %8.2f", -999.0),
)
HEADING = (
    "  Time   -- UTC  --   Press    Temp   Dewpt    RH     Uwind   Vwind   Wspd     Dir     dZ    GeoPoAlt     Lon   "
    "      Lat      GPSAlt ",
    "   sec   hh mm   ss     mb      C       C       %      m/s     m/s     m/s     deg     m/s       m        deg   "
    "      deg         m   ",
    "-------- -- -- ----- ------- ------- ------- ------- ------- ------- ------- ------- ------- -------- ----------"
    "- ----------- --------",
)


def _header(sounding):
    meta, launch = sounding.metadata, sounding.launch

    def line(label, text):
        return "%-43s%s" % (label, text)

    yield line("Data Type/Direction:", meta.data_type + "/" + ("Ascending" if sounding.ascending else "Descending"))
    yield line("File Format/Version:", "ZOR Sounding Format/1.1")
    yield line("Project Name/Platform:", rows.joined(meta.project, meta.flight) + "/" +
               rows.joined(meta.platform_type, meta.platform_id))
    yield line("Launch Site:", sounding.options.get("site", "synthetic"))
    yield line("Launch Location (lon,lat,alt):", "%s %.6f, %s %.6f, %8.2f" % (
        rows.with_minutes(launch.longitude, "E", "W"), launch.longitude,
        rows.with_minutes(launch.latitude, "N", "S"), launch.latitude, launch.gps_altitude))
    yield line("UTC Launch Time (y,m,d,h,m,s):", rows.launch_time(sounding))
    yield line("Sonde Id/Sonde Type:", meta.sonde_id + "/" + meta.sonde_model)
    yield line("Reference Launch Data Source/Time:", meta.observation_source + "/" +
               sounding.clock(-2.0).strftime("%H:%M:%S"))
    yield line("System Operator/Comments:", meta.operator + "/" + meta.comments)
    yield line("Post Processing Comments:", "none")
    yield "/"
    yield from HEADING


def _row(sounding, frame):
    moment = sounding.clock(frame.time)
    seconds = moment.second + moment.microsecond / 1e6
    return "%8.2f %2d %2d %5.2f" % (frame.time, moment.hour, moment.minute, seconds) + rows.row(frame, COLUMNS)


def write(sounding):
    lines = list(_header(sounding))
    for frame in [rows.launch_frame(sounding)] + sounding.frames:
        lines.append(rows.torn(sounding, frame, _row(sounding, frame)))
    return rows.text(lines)
