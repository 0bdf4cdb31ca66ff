"""The D file of the Ombra dropsonde system: keyed lines, one for each telemetry frame.

Options of the sounding: ``identifier`` ("OMBRA" or the older "ACS"), ``version`` ("1.4" or "1.6"), ``header`` (the
style of the comment lines: "new", "old" or "plain") and ``line_end``.
"""

# Column formats of a frame and the number that stands for a missing value.
COLUMNS = (
    ("pressure", "{:7.2f}", 9999),
    ("temperature", "{:6.2f}", 99),
    ("rh", "{:6.2f}", 999),
    ("direction", "{:6.2f}", 999),
    ("speed", "{:6.2f}", 999),
    ("ascent", "{:6.2f}", 99),
    ("longitude", "{:11.6f}", 999),
    ("latitude", "{:10.6f}", 99),
    ("altitude", "{:8.2f}", 99999),
    ("satellites", "{:2d}", 99),
    ("rh1", "{:6.2f}", 999),
    ("rh2", "{:6.2f}", 999),
)
NEWER_COLUMNS = (
    (None, "{:3d}", 999),
    ("wind_error", "{:5.2f}", 99),
    ("gps_altitude", "{:8.2f}", 99999),
)
HEADER_WIDTH = 38


class OmbraWriter:
    def __init__(self, sounding):
        self._sounding = sounding
        self._prefix = sounding.options.get("identifier", "OMBRA")
        self._version = sounding.options.get("version", "1.6")
        self._columns = COLUMNS + (NEWER_COLUMNS if float(self._version) >= 1.6 else ())

    def text(self):
        end = self._sounding.options.get("line_end", "\n")
        return "".join(line + end for line in self._lines())

    def _lines(self):
        sounding = self._sounding
        yield from self._header()
        signalled = sounding.launch_signal is None
        for frame in sounding.frames:
            if not signalled and frame.time >= sounding.launch_signal:
                signalled = True
                yield self._keyed("T", "LAU", self._stamp(sounding.launch_signal))
                yield self._keyed("D", "A00", self._stamp(sounding.launch_signal), self._values(sounding.launch))
            key = ("S" if frame.in_flight else "P") + frame.crc
            yield self._keyed("D", key, self._stamp(frame.time), self._values(frame))
        yield from self._trailer()

    def _keyed(self, line, key, *words):
        channel = "%s-%s%02d" % (self._prefix, line, self._sounding.metadata.channel)
        return " ".join((channel, key, self._sounding.metadata.sonde_id) + words)

    def _stamp(self, seconds):
        clock = self._sounding.clock(seconds)
        return clock.strftime("%y%m%d %H%M%S.") + "%02d" % (clock.microsecond // 10000)

    def _values(self, record):
        words = []
        for name, shape, missing in self._columns:
            value = getattr(record, name, None) if name else None
            if value is None:
                value = missing
            elif name == "direction":
                value = round(value, 2) % 360.0
            words.append(shape.format(value))
        return " ".join(words)

    def _comment(self, title, value):
        channel = "%s-T%02d COM " % (self._prefix, self._sounding.metadata.channel)
        return channel + title.ljust(HEADER_WIDTH) + " " + value

    def _header(self):
        meta = self._sounding.metadata
        style = self._sounding.options.get("header", "new")
        observed = "%s, %s" % (meta.observation_source, self._sounding.clock(-2.0).strftime("%H:%M:%S"))
        offset = "PTU leads wind by %.2f sec" % meta.wind_time_offset
        yield self._comment("", "-" * 40)
        yield self._comment("FORMAT VERSION NUMBER: " + self._version, "").rstrip()
        yield self._comment("Data Type/Data Channel:", "%s, Channel %d" % (meta.data_type, meta.channel))
        if style == "new":
            yield self._comment("Project Name/Mission ID:", "%s, %s" % (meta.project, meta.flight))
            yield self._comment("Aircraft Type/ID:", "%s, %s" % (meta.platform_type, meta.platform_id))
            yield self._comment("Operator Name/Comments:", "%s, %s" % (meta.operator, meta.comments))
            yield self._comment("Standard Comments:", "no observation of real air")
            yield self._comment(
                "Sonde ID/Type/Rev/Built/Sensors:",
                "%s, RD, Rev %s, %s, %s" % (meta.sonde_id, meta.revision, self._built(), meta.sensor),
            )
            yield self._comment("Sonde Freq/Batt/Firmware:", "403.50 MHz, 6.4 V, 2.07, 21")
        else:
            yield self._comment("Project Name/Flight ID:", "%s, %s" % (meta.project, meta.flight))
            yield self._comment("Aircraft Type/ID:", "%s, %s" % (meta.platform_type, meta.platform_id))
            yield self._comment("Operator Name:", meta.operator)
            yield self._comment("Operator Comments:", meta.comments)
            if style == "old":
                yield self._comment(
                    "Sonde ID/ID$/Built/Rev/Model:",
                    "%s, 17, %s, %s, %s" % (meta.sonde_id, self._built(), meta.revision, meta.sonde_model),
                )
            else:
                yield self._comment("Sonde Type/ID/Version Code:", "%s, %s, 3" % (meta.sonde_model, meta.sonde_id))
            yield self._comment("Sonde Freq/Batt/Tune/Sensor:", "402.00 MHz, 7.1 V, 0.0, %s" % meta.sensor)
        yield self._comment("Sonde Dynamic Errors:", "0.0, 0.0, 0.0")
        yield self._comment("Pre-launch Obs Data System/Time:", observed)
        yield self._comment("Met/Wind Offset (s):", offset)

    def _built(self):
        return "%d0115" % self._sounding.release.year

    def _trailer(self):
        if self._sounding.launch_signal is None:
            launched = "0000-00-00, 00:00:00"
        else:
            launched = self._sounding.clock(self._sounding.launch_signal).strftime("%Y-%m-%d, %H:%M:%S")
        yield self._comment("Launch Time (y,m,d,h,m,s):", launched)
        yield self._comment("", "-" * 40)


def write(sounding):
    return OmbraWriter(sounding).text()
