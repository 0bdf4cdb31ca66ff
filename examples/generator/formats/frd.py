"""The FRD format of dropsondes: 21 header lines, two of them empty, then one row for each record."""

from . import rows

COLUMNS = (
    ("time", " %7.2f", 9999.0),
    ("pressure", "  %6.1f", -999.0),
    ("temperature", "   %7.2f", -999.0),
    ("rh", "   %6.1f", -999.0),
    ("altitude", "   %5.0f", -999.0),
    ("direction", "  %4.0f", -999.0),
    ("speed", "  %7.2f", -999.0),
    ("u", "   %7.2f", -999.0),
    ("v", "   %7.2f", -999.0),
    ("satellites", "  %4.0f", -999.0),
    ("ascent", "  %6.1f", -999.0),
    ("altitude", "   %5.0f", -999.0),
    (None, "     %1.0f", 0.0),
    (None, "   %1.0f", 0.0),
    (None, "   %1.0f", 0.0),
    (None, "   %1.0f", 0.0),
    ("latitude", "    %8.3f", -999.0),
    ("longitude", "  %8.3f", -999.0),
)
HEADING = ("IX      t (s)  P (mb)    T (C)    RH (%)  Z (m)   WD    WS (m/s)   U (m/s)   V (m/s)  NS  WZ (m/s)  ZW (m)   "
           "FP  FT  FH  FW    LAT (N)   LON (E)")
DOUBLE, SINGLE = " " + 75 * "=", " " + 75 * "-"


def _header(sounding):
    meta, launch = sounding.metadata, sounding.launch
    date, time = sounding.release.strftime("%y%m%d"), sounding.release.strftime("%H%M%S")
    latitude = "%6.2f %s" % (abs(launch.latitude), "S" if launch.latitude < 0.0 else "N")
    longitude = "%6.2f %s" % (abs(launch.longitude), "W" if launch.longitude < 0.0 else "E")
    dew_point = rows.value(rows.launch_frame(sounding), "dew_point")
    yield DOUBLE
    yield " DROPWINDSONDE PROCESSING RECORD                            Sonde: " + meta.sonde_id
    yield " FRD file, synthetic"
    yield " Aircraft: %-34sDate: %s   Time: %s UTC" % (rows.joined(meta.platform_type, meta.platform_id), date, time)
    yield SINGLE
    yield " Bias corrections:  PR =   0.0 mb  TE =   0.0 C  RH =   0.0 %  PRB =  0.0 mb"
    yield " Filters (LPF):     PTH = "
    yield " Dyn RH correction = "
    yield " Estimated PR used = "
    yield " Dyn T correction  = "
    yield SINGLE
    yield " COMMENT: " + meta.comments
    yield DOUBLE
    yield ""
    yield DOUBLE
    yield " Date: %s   Lat: %s   TA: %6.1f C   PS: %6.1f mb   WD: %5.0f deg" % (
        date, latitude, launch.temperature, launch.pressure, launch.direction)
    yield " Time: %s   Lon: %s   TD: %6.1f C   GA: %6.0f m    WS: %5.1f m/s" % (
        time, longitude, dew_point, launch.gps_altitude, launch.speed)
    yield " SID:  %-25sRH: %6.1f %%   Navaid:   GP" % (meta.sonde_id, launch.rh)
    yield DOUBLE
    yield ""
    yield HEADING


def write(sounding):
    lines = list(_header(sounding))
    for number, frame in enumerate(sounding.frames, 1):
        lines.append(rows.torn(sounding, frame, "%04d" % number + rows.row(frame, COLUMNS)))
    return rows.text(lines)
