"""The D files of upsonde systems: keyed lines, one for each record.

Options of the sounding: ``system`` (a key of ``SYSTEMS``) and ``site``; of VESTA also ``pressure_offset``, what its file
says that its pressures are too low by (mb), or ``None`` where it says nothing.
"""

from . import ombra

COLUMNS = tuple((name, shape, 999 if name == "ascent" else missing) for name, shape, missing in ombra.COLUMNS)
GPS_COLUMNS = ((None, "{:3d}", 999), (None, "{:3d}", 999), ("gps_altitude", "{:8.2f}", 99999))
SYSTEMS = {"PELO": COLUMNS + GPS_COLUMNS, "VESTA": COLUMNS}
VESTA_PRESSURE_ERROR = 0.4  # mb, of every sonde of the system


class KeyedUpsondeWriter(ombra.OmbraWriter):
    """The layout of an Ombra D file with two blanks ahead of the sonde, which has eight characters."""

    def __init__(self, sounding):
        super().__init__(sounding)
        self._prefix = sounding.options["system"]
        self._columns = SYSTEMS[self._prefix]

    def _lines(self):
        sounding = self._sounding
        yield from self._pelo_header() if self._prefix == "PELO" else self._vesta_header()
        yield self._keyed("T", "LAU ", self._stamp(0.0))
        yield self._keyed("D", "A00 ", self._stamp(0.0), self._values(self._shown(sounding.launch)))
        for frame in sounding.frames:
            yield self._keyed("D", "S%s " % frame.crc, self._stamp(frame.time), self._values(self._shown(frame)))

    def _shown(self, record):
        """What the system writes of a record: VESTA writes a pressure that its reader has to correct."""
        if self._prefix == "PELO" or record.pressure is None:
            return record
        shown = type(record)(**vars(record))
        if hasattr(record, "time"):  # the observation at the ground is none of the sonde's
            shown.pressure -= VESTA_PRESSURE_ERROR + (self._sounding.options["pressure_offset"] or 0.0)
        return shown

    def _observed(self):
        meta = self._sounding.metadata
        return "%s, %s" % (meta.observation_source, self._sounding.clock(-2.0).strftime("%H:%M:%S"))

    def _pelo_header(self):
        meta = self._sounding.metadata
        yield self._comment("Project Name/Mission ID:", "%s, %s" % (meta.project, self._sounding.options["site"]))
        yield self._comment("Data Type/Data Channel:", "%s, Channel %d" % (meta.data_type, meta.channel))
        yield self._comment("Operator Name/Comments:", "%s, %s" % (meta.operator, meta.comments))
        yield self._comment("Pre-launch Obs Data System/Time:", self._observed())
        yield self._comment("Sonde ID/ID$/Type/Sensors:",
                            "%s, 17, %s, %s" % (meta.sonde_id, meta.sonde_model, meta.sensor))

    def _vesta_header(self):
        meta, launch = self._sounding.metadata, self._sounding.launch
        yield self._comment("Project Name/Flight ID:", "%s, %s" % (meta.project, self._sounding.options["site"]))
        yield self._comment("Data Type/Data Channel:", "%s, Channel %d" % (meta.data_type, meta.channel))
        yield self._comment("Operator Name:", meta.operator)
        yield self._comment("Operator Comments:", meta.comments)
        if self._sounding.options["pressure_offset"] is not None:
            yield self._comment("Sonde Dynamic Errors  (P,T,U):", "%.2f, 0.0, 0.0" % self._sounding.options["pressure_offset"])
        yield self._comment("Pre-launch Obs (lon,lat,alt):",
                            "%.4f deg, %.4f deg, %.1f m" % (launch.longitude, launch.latitude, launch.altitude))
        yield self._comment("Pre-launch Obs Data System/Time:", self._observed())
        yield self._comment("Sonde ID/ID$/Built/Ver/Type:",
                            "%s, 17, %s, 2, %s" % (meta.sonde_id, self._built(), meta.sonde_model))
        yield "VESTA-T%02d TOF  %.2f sec from PTU to wind" % (meta.channel, meta.wind_time_offset)


def write(sounding):
    return KeyedUpsondeWriter(sounding).text()
