"""WMO TEMP and TEMP DROP messages as text (FM 35 and FM 37, Manual on Codes, WMO-No. 306, Volume I.1).

The levels of the message are those of the sounding's records, by interpolation in the logarithm of pressure. ``levels`` of
a message are what a reader has to find: rounded as the groups round, with ``None`` for what the message leaves out.

Options of the sounding: ``header``, the lines ahead of the message; ``station``, the block and station number of a TEMP;
``knots``; ``spoil``, a change of the parts, which are lists of lines; ``line_end``.
"""

import math
from collections import namedtuple

from ..atmosphere import wind_components
from . import rows

Level = namedtuple("Level", "kind pressure height temperature dew_point direction speed")
STANDARD = {
    "A": ((1000, "00"), (925, "92"), (850, "85"), (700, "70"), (500, "50"), (400, "40"), (300, "30"), (250, "25"),
          (200, "20"), (150, "15"), (100, "10")),
    "C": ((70, "70"), (50, "50"), (30, "30"), (20, "20"), (10, "10")),
}
DROP, UPSONDE = "XX", "TT"
QUADRANTS = {(True, True): 1, (False, True): 3, (False, False): 5, (True, False): 7}  # (north, east)
TOLERANCE = {"temperature": 1.0, "rh": 15.0, "wind": 5.0}  # a level within this of a straight line isn't significant
KNOTS = 0.5144  # m/s
CABIN_SECONDS = 15.0  # until then the sensors of a dropsonde still tell of the cabin
GAP = 0.02  # of the pressure: nothing is told between records farther apart


def _nearest(value):
    return math.floor(value + 0.5)


def temperature_group(celsius, dew_point):
    """TTTDD and the two values that it holds: the tenths of the temperature are even above zero and odd below it."""
    if celsius is None:
        return "/////", None, None
    tenths = int(round(abs(celsius) * 10.0))
    tenths = tenths - tenths % 2 if celsius >= 0.0 else tenths | 1
    coded = math.copysign(tenths / 10.0, celsius)
    if dew_point is None:
        return "%03d//" % tenths, coded, None
    depression = max(celsius - dew_point, 0.0)
    digits = _nearest(10.0 * depression) if depression <= 5.0 else max(_nearest(depression), 6) + 50
    digits = min(digits, 99)
    return "%03d%02d" % (tenths, digits), coded, coded - (digits / 10.0 if digits <= 50 else digits - 50.0)


def wind_group(direction, speed, knots=False):
    """dddff with the units of five degrees in the hundreds of the speed, and the two values that it holds."""
    if direction is None:
        return "/////", None, None
    whole = _nearest(speed / KNOTS if knots else speed)
    fives = _nearest(direction / 5.0) % 72
    if whole == 0:
        return "00000", 0.0, 0.0
    fives = fives or 72
    group = "%02d%03d" % (fives // 2, whole + 500 * (fives % 2))
    return group, 5.0 * fives, whole * KNOTS if knots else float(whole)


def height_digits(height, pressure):
    """Metres up to 500 mb, and tens of metres from there on; below sea level 500 is added to the figure."""
    if height is None:
        return "///", None
    if pressure > 500:
        whole = _nearest(height)
        return "%03d" % (500 - whole if whole < 0 else whole % 1000), float(whole)
    tens = _nearest(height / 10.0)
    return "%03d" % (tens % 1000), 10.0 * tens


class _Profile:
    """Records with a pressure, from the surface up, and what they say at any pressure between them."""

    def __init__(self, sounding):
        frames = [frame for frame in sounding.frames if frame.pressure is not None]
        if sounding.ascending:
            frames = [rows.launch_frame(sounding)] + frames
        else:
            frames = [frame for frame in frames if frame.time >= CABIN_SECONDS]
        self.frames = []
        for frame in sorted(frames, key=lambda frame: -frame.pressure):
            if not self.frames or frame.pressure < self.frames[-1].pressure - 0.05:
                self.frames.append(frame)
        self.surface, self.top = self.frames[0], self.frames[-1]

    def at(self, pressure, quantity):
        known = [frame for frame in self.frames if rows.value(frame, quantity) is not None]
        for below, above in zip(known, known[1:]):
            if below.pressure >= pressure >= above.pressure and below.pressure - above.pressure < GAP * pressure:
                part = math.log(below.pressure / pressure) / math.log(below.pressure / above.pressure)
                low, high = rows.value(below, quantity), rows.value(above, quantity)
                return low + part * (high - low)
        return None

    def level(self, kind, pressure):
        temperature, rh = self.at(pressure, "temperature"), self.at(pressure, "rh")
        dew_point = rows.value(rows.Frame(0.0, temperature=temperature, rh=rh), "dew_point")
        u, v = self.at(pressure, "u"), self.at(pressure, "v")
        direction = speed = None
        if u is not None:
            direction, speed = math.degrees(math.atan2(-u, -v)) % 360.0, math.hypot(u, v)
        return Level(kind, pressure, self.at(pressure, "altitude"), temperature, dew_point, direction, speed)

    def under_ground(self, pressure):
        """Height of a standard level below the surface, hydrostatic with the temperature of the surface."""
        kelvin = self.surface.temperature + 273.15
        height = self.surface.altitude - 29.27 * kelvin * math.log(pressure / self.surface.pressure)
        return Level("mandatory", pressure, height, None, None, None, None)

    def significant(self, quantities):
        """The ends and, between them, again and again the record farthest off the straight line of its neighbours."""
        known = [frame for frame in self.frames if all(rows.value(frame, name) is not None for name, _ in quantities)]
        chosen, open_parts = {0, len(known) - 1}, [(0, len(known) - 1)]
        while open_parts:
            first, last = open_parts.pop()
            worst, at = 1.0, None
            span = math.log(known[first].pressure / known[last].pressure)
            for index in range(first + 1, last):
                part = math.log(known[first].pressure / known[index].pressure) / span
                for name, tolerance in quantities:
                    low, high = rows.value(known[first], name), rows.value(known[last], name)
                    off = abs(rows.value(known[index], name) - low - part * (high - low)) / tolerance
                    if off > worst:
                        worst, at = off, index
            if at is not None:
                chosen.add(at)
                open_parts += [(first, at), (at, last)]
        return [known[index].pressure for index in sorted(chosen)]


class Message:
    """``text`` of the message and the ``levels`` that a reader has to find in it, in its order."""

    def __init__(self, sounding):
        self.levels = []
        self._sounding, self._profile = sounding, _Profile(sounding)
        self._drop, self._knots = not sounding.ascending, sounding.options.get("knots", False)
        parts = self._part("A") + self._part("B")
        if self._profile.top.pressure < 100.0:
            parts += self._part("C") + self._part("D")
        parts = sounding.options.get("spoil", lambda lines: lines)(parts)
        self.text = rows.text(sounding.options.get("header", []) + parts, sounding.options.get("line_end", "\n"))

    def _part(self, part):
        groups = self._standard(part) if part in "AC" else self._significant(part)
        system = "31313 09608 8" + self._sounding.release.strftime("%H%M")
        remarks = self._remarks() if self._drop else []
        lines = [" ".join(groups[at:at + 10]) for at in range(0, len(groups), 10)]
        return [self._start(part)] + lines + [system] + remarks + ["="]

    def _start(self, part):
        release, launch = self._sounding.release, self._sounding.launch
        hour = (release.hour + (release.minute >= 30)) % 24
        limit = {"A": "1", "B": "8", "C": "1", "D": "/"}[part]  # winds up to 100 mb in part A, and up to 10 mb in part C
        words = [(DROP if self._drop else UPSONDE) + 2 * part,
                 "%02d%02d%s" % (release.day + (50 if self._knots else 0), hour, limit)]
        if not self._drop:
            return " ".join(words + [self._sounding.options["station"]])
        latitude, longitude = launch.latitude, launch.longitude
        ten_degrees = "%d%d" % (_units(latitude), _units(longitude))
        return " ".join(words + ["99%03d" % _nearest(abs(latitude) * 10.0), "%d%04d" % (
            QUADRANTS[latitude >= 0.0, longitude >= 0.0], _nearest(abs(longitude) * 10.0)),
                                 "%03d%s" % (_marsden_square(latitude, longitude), ten_degrees)])

    def _standard(self, part):
        groups, profile = [], self._profile
        if part == "A":
            surface = profile.level("surface", profile.surface.pressure)
            groups += self._groups(surface, "99%03d" % (_nearest(surface.pressure) % 1000), _nearest(surface.pressure))
        for pressure, indicator in STANDARD[part]:
            if pressure < profile.top.pressure:
                break
            buried = pressure > profile.surface.pressure
            level = profile.under_ground(pressure) if buried else profile.level("mandatory", pressure)
            digits, height = height_digits(level.height, pressure)
            groups += self._groups(level._replace(height=height), indicator + digits, pressure)
        return groups + self._tropopause(part) + self._strongest_wind(part)

    def _groups(self, level, first, pressure, wind_only=False, temperature_only=False):
        """The groups of a level; what they hold goes to the levels of the message."""
        temperature, *air = temperature_group(level.temperature, level.dew_point)
        wind, *moving = wind_group(level.direction, level.speed, self._knots)
        if wind_only:
            temperature, air = None, (None, None)
        if temperature_only:
            wind, moving = None, (None, None)
        height = level.height if level.kind == "mandatory" else None
        self.levels.append(Level(level.kind, float(pressure), height, *air, *moving))
        return [group for group in (first, temperature, wind) if group is not None]

    def _in_part(self, part, pressure):
        return (pressure >= 100.0) == (part in "AB")

    def _pressure_digits(self, part, pressure):
        """Whole millibars up to 100 mb, tenths above that level: the figure and the value that it holds."""
        if part in "AB":
            return "%03d" % (_nearest(pressure) % 1000), float(_nearest(pressure))
        tenths = min(_nearest(10.0 * pressure), 999)
        return "%03d" % tenths, tenths / 10.0

    def _special(self, part, kind, first, pressure, wind_only=False):
        digits, coded = self._pressure_digits(part, pressure)
        return self._groups(self._profile.level(kind, pressure), first + digits, coded, wind_only)

    def _tropopause(self, part):
        """The lowest level above 500 mb from which on the air cools by 2 K/km or less on the average over 2 km."""
        frames = [frame for frame in self._profile.frames
                  if frame.pressure <= 500.0 and None not in (frame.temperature, frame.altitude)]
        for at, frame in enumerate(frames):
            above = [other for other in frames[at + 1:] if 200.0 < other.altitude - frame.altitude <= 2000.0]
            whole = frames[-1].altitude - frame.altitude >= 2000.0
            if whole and all(frame.temperature - other.temperature <= 0.002 * (other.altitude - frame.altitude)
                             for other in above):
                return self._special(part, "tropopause", "88", frame.pressure) if self._in_part(
                    part, frame.pressure) else ["88999"]
        return ["88999"]

    def _strongest_wind(self, part):
        """The strongest wind above 500 mb, over 30 m/s, that isn't at the top."""
        frames = [frame for frame in self._profile.frames if frame.pressure <= 500.0 and frame.speed is not None]
        strongest = max(frames, key=lambda frame: frame.speed, default=None)
        if strongest is None or strongest.speed <= 30.0 or strongest is frames[-1] or not self._in_part(
                part, strongest.pressure):
            return ["77999"]
        return self._special(part, "maxwind", "77", strongest.pressure, wind_only=True)

    def _significant(self, part):
        groups = []
        for quantities, wind_only in (((("temperature", TOLERANCE["temperature"]), ("rh", TOLERANCE["rh"])), False),
                                      ((("u", TOLERANCE["wind"]), ("v", TOLERANCE["wind"])), True)):
            if wind_only:
                groups.append("21212")
            chosen = [pressure for pressure in self._profile.significant(quantities) if self._in_part(part, pressure)]
            for count, pressure in enumerate(chosen):
                number = 0 if count == 0 and part == "B" else (count - (part == "B")) % 9 + 1
                digits, coded = self._pressure_digits(part, pressure)
                groups += self._groups(self._profile.level("significant", pressure), "%d%d%s" % (number, number, digits),
                                       coded, wind_only, not wind_only)
        return groups

    def _remarks(self):
        """Release, splash and the last wind's height: they repeat in each part, and a reader takes the first."""
        sounding, last = self._sounding, self._sounding.frames[-1]
        winds = [frame for frame in sounding.frames if None not in (frame.speed, frame.altitude)]
        low = [frame for frame in winds if frame.altitude <= 500.0]
        direction = math.degrees(math.atan2(*(-sum(wind_components(frame.direction, frame.speed)[axis] for frame in low)
                                              for axis in (0, 1)))) % 360.0
        speed = math.hypot(*(sum(wind_components(frame.direction, frame.speed)[axis] for frame in low)
                             for axis in (0, 1))) / len(low)
        mean, *_ = wind_group(direction, speed, self._knots)
        return ["61616 TARVO SYNTHETIC OB 01",
                "62626 REL %s %s SPG %s %s" % (_position(sounding.launch), sounding.clock(0.0).strftime("%H%M%S"),
                                               _position(last), sounding.clock(last.time).strftime("%H%M%S")),
                "MBL WND %s LST WND %03d" % (mean, _nearest(winds[-1].altitude))]


def _units(degrees):
    return int(abs(degrees)) % 10


def _marsden_square(latitude, longitude):
    """Squares of ten degrees, eastward numbers fall (Manual on Codes, Volume I.1, table 2590)."""
    column = int(-longitude // 10) if longitude < 0.0 else 35 - int(longitude // 10)
    row = int(abs(latitude) // 10)
    if row == 8 and latitude >= 0.0:
        return 901 + column
    return 36 * row + column + (1 if latitude >= 0.0 else 300)


def _position(place):
    return "%04d%s%05d%s" % (_nearest(abs(place.latitude) * 100.0), "NS"[place.latitude < 0.0],
                             _nearest(abs(place.longitude) * 100.0), "EW"[place.longitude < 0.0])


def write(sounding):
    return Message(sounding).text
