"""The free-form interchange format: keyword lines, a ``Fields`` line naming the columns, ``Data`` lines.

Option of the sounding: ``fields``, the record attributes written, in order; "time" comes first.
"""

COLUMNS = {
    "time": ("Time", "sec", "%.1f"),
    "pressure": ("Pressure", "mb", "%.2f"),
    "temperature": ("Temperature", "deg C", "%.2f"),
    "rh": ("RH", "%", "%.2f"),
    "rh1": ("RH1", "%", "%.2f"),
    "rh2": ("RH2", "%", "%.2f"),
    "speed": ("Speed", "m/s", "%.2f"),
    "direction": ("Direction", "deg", "%.2f"),
    "latitude": ("Latitude", "deg", "%.6f"),
    "longitude": ("Longitude", "deg", "%.6f"),
    "altitude": ("Altitude", "m", "%.1f"),
    "gps_altitude": ("GpsAlt", "m", "%.1f"),
    "ascent": ("Ascent", "m/s", "%.2f"),
    "satellites": ("Sats", "count", "%d"),
}
LAUNCH_VALUES = (
    ("Pressure", "pressure", "%.1f", "mb"),
    ("Temperature", "temperature", "%.1f", "deg C"),
    ("RH", "rh", "%.1f", "%"),
    ("Speed", "speed", "%.1f", "m/s"),
    ("Direction", "direction", "%.1f", "deg"),
    ("Latitude", "latitude", "%.4f", "deg"),
    ("Longitude", "longitude", "%.4f", "deg"),
    ("Altitude", "altitude", "%.1f", "m"),
    ("GpsAltitude", "gps_altitude", "%.1f", "m"),
)


def _cell(name, record):
    value = getattr(record, name)
    if value is None:
        return ""
    if name == "direction":
        value = round(value, 2) % 360.0
    return COLUMNS[name][2] % value


def _keyword_lines(sounding):
    meta, release = sounding.metadata, sounding.release
    yield "FileFormat,CSV"
    for keyword, value in (
        ("Year", "%04d" % release.year),
        ("Month", "%02d" % release.month),
        ("Day", "%02d" % release.day),
        ("Hour", "%02d" % release.hour),
        ("Minute", "%02d" % release.minute),
        ("Second", "%02d" % release.second),
    ):
        yield "%s,%s" % (keyword, value)
    for keyword, name, shape, unit in LAUNCH_VALUES:
        value = getattr(sounding.launch, name)
        yield '%s,%s,"units=%s"' % (keyword, "" if value is None else shape % value, unit)
    for keyword, text in (
        ("Ascending", "true" if sounding.ascending else "false"),
        ("Comments", meta.comments),
        ("DataType", meta.data_type),
        ("EquipmentType", sounding.options["equipment_type"]),
        ("PlatformType", meta.platform_type),
        ("PlatformId", meta.platform_id),
        ("Project", meta.project),
        ("Flight", meta.flight),
        ("PtuWindTimeDiff", "%g" % meta.wind_time_offset),
        ("RadiationCorr", "0"),
        ("TrackingType", "08"),
        ("SondeId", meta.sonde_id),
        ("SondeType", sounding.options["sonde_type"]),
        ("SondeModel", meta.sonde_model),
        ("ThermoSensor", meta.sensor),
        ("Operator", meta.operator),
        ("LaunchObsSource", meta.observation_source),
        ("LaunchObsTime", sounding.clock(-2.0).strftime("%H:%M:%S")),
        ("LaunchSite", sounding.options.get("site", "")),
    ):
        yield '%s,"%s"' % (keyword, text)


def write(sounding):
    fields = sounding.options["fields"]
    lines = list(_keyword_lines(sounding))
    lines.append("Fields," + ",".join(COLUMNS[name][0] for name in fields))
    lines.append("Units," + ",".join(COLUMNS[name][1] for name in fields))
    for frame in sounding.frames:
        lines.append("Data," + ",".join(_cell(name, frame) for name in fields))
    return "".join(line + "\n" for line in lines)
