"""Faults planted in the records of a flight, each of them written down.

Times count from release, and each fault goes to the record nearest to its time. Every note names the quantity with its
clean and its faulty value; ``None`` is a missing value.
"""

import math

from .sounding import Frame

PTU = ("pressure", "temperature", "rh", "rh1", "rh2")
GPS = ("direction", "speed", "longitude", "latitude", "gps_altitude")
WINDS_ONLY_MISSING = PTU + ("longitude", "latitude", "altitude")


def _rounded(quantity, value):
    if value is None:
        return None
    return round(value, 6 if quantity in ("longitude", "latitude") else 2)


class Faults:
    def __init__(self, frames):
        self._frames = frames
        self.notes = []

    def _nearest(self, time):
        return min(self._frames, key=lambda frame: abs(frame.time - time))

    def _change(self, frame, kind, quantity, value):
        clean = getattr(frame, quantity)
        setattr(frame, quantity, value)
        self.notes.append(
            {
                "time": frame.time,
                "kind": kind,
                "quantity": quantity,
                "clean": _rounded(quantity, clean),
                "faulty": _rounded(quantity, value),
            }
        )

    def spike(self, time, quantity, change=None, value=None):
        """A wrong value with a good checksum: ``change`` away from the clean one, or ``value`` outright."""
        frame = self._nearest(time)
        if value is None:
            value = getattr(frame, quantity) + change
            if quantity == "direction":
                value %= 360.0
        self._change(frame, "spike", quantity, value)

    def bad_crc(self, time, crc, **changes):
        """A record with a bad checksum, whose values may be damaged or may look well."""
        frame = self._nearest(time)
        frame.crc = crc
        self.notes.append({"time": frame.time, "kind": "crc", "crc": crc})
        for quantity, change in changes.items():
            self._change(frame, "crc_damage", quantity, getattr(frame, quantity) + change)

    def winds_only(self, time):
        """A record of which only the wind part came through; its other checksum is bad for want of data."""
        frame = self._nearest(time)
        frame.crc = "10"
        for quantity in WINDS_ONLY_MISSING:
            setattr(frame, quantity, None)
        self.notes.append({"time": frame.time, "kind": "winds_only", "crc": "10"})

    def blank(self, start, end, *quantities):
        """Values that are missing from ``start`` up to, not including, ``end``."""
        for frame in self._frames:
            if start <= frame.time < end:
                for quantity in quantities:
                    setattr(frame, quantity, None)
        self.notes.append({"time": start, "end": end, "kind": "missing", "quantities": list(quantities)})

    def afloat(self, seconds, rng):
        """The sonde goes on reporting from the water: waves in the pressure, no air for its sensors, and no GPS."""
        last = self._frames[-1]
        for index in range(1, int(2 * seconds) + 1):
            frame = Frame(last.time + 0.5 * index, satellites=0)
            frame.pressure = last.pressure + 0.9 * math.sin(index / 3.0) - 0.12 * index + rng.gauss(0.0, 0.1)
            frame.temperature = last.temperature + 0.8 + rng.gauss(0.0, 0.05)
            frame.rh = frame.rh1 = frame.rh2 = 100.0
            self._frames.append(frame)
        self.notes.append({"time": last.time + 0.5, "end": self._frames[-1].time, "kind": "afloat"})

    def gap(self, start, end):
        """Records lost from ``start`` up to, not including, ``end``."""
        lost = [frame for frame in self._frames if start <= frame.time < end]
        self._frames[:] = [frame for frame in self._frames if not start <= frame.time < end]
        self.notes.append({"time": start, "end": end, "kind": "gap", "records": len(lost)})
