"""Checks the synthetic example soundings by other routes than the generator took: hand calculations, closed solutions,
an own reading of the files, and a second run."""

import json
import math
import subprocess
import sys
import tempfile
import unittest
from datetime import datetime
from pathlib import Path

EXAMPLES = Path(__file__).resolve().parents[2] / "examples"
WORDS = ("pressure temperature rh direction speed ascent longitude latitude altitude satellites rh1 rh2 - "
         "wind_error gps_altitude").split()
MISSING = dict(zip(WORDS, (9999, 99, 999, 999, 999, 99, 999, 99, 99999, 99, 999, 999, 999, 99, 99999)))
CSV_NAMES = {"Time": "time", "Pressure": "pressure", "Temperature": "temperature", "RH": "rh", "Speed": "speed",
             "Direction": "direction", "Latitude": "latitude", "Longitude": "longitude", "Altitude": "altitude",
             "GpsAlt": "gps_altitude", "Sats": "satellites", "Ascent": "ascent", "RH1": "rh1", "RH2": "rh2"}


class DFile:
    """Reads a D file word by word. Times are seconds from the release that the truth tells."""

    def __init__(self, path, release):
        text = path.read_bytes().decode("ascii")
        self.line_end = "\r\n" if "\r\n" in text else "\n"
        self.lines = text.split(self.line_end)[:-1]
        self.frames = []
        for line in self.lines:
            words = line.split()
            if words[1][0] in "PS" and words[1][1:].isdigit():
                frame = self._values(words)
                frame["time"] = self._seconds(words, release)
                frame["key"] = words[1]
                frame["words"] = len(words)
                self.frames.append(frame)

    @staticmethod
    def _seconds(words, release):
        return (datetime.strptime(words[3] + words[4], "%y%m%d%H%M%S.%f") - release).total_seconds()

    @staticmethod
    def _values(words):
        values = {name: float(word) for name, word in zip(WORDS, words[5:])}
        return {name: None if value == MISSING[name] else value for name, value in values.items()}


class CsvFile:
    def __init__(self, path):
        self.frames = []
        self.keywords = {}
        for line in path.read_text("ascii").splitlines():
            cells = line.split(",")
            if cells[0] == "Fields":
                self.names = [CSV_NAMES[cell] for cell in cells[1:]]
            elif cells[0] == "Data":
                self.frames.append({name: float(cell) if cell else None
                                    for name, cell in zip(self.names, cells[1:], strict=True)})
            else:
                self.keywords[cells[0]] = cells[1].strip('"')


class Example:
    def __init__(self, path):
        self.truth = json.loads(path.read_text("ascii"))
        self.name = self.truth["name"]
        self.path = EXAMPLES / "data" / self.truth["file"]
        self.reader = self.truth["reader"]
        self.profile = [dict(zip(self.truth["profile_columns"], row)) for row in self.truth["profile"]]
        self.down = self.truth["direction"] == "down"
        self.is_csv = self.path.suffix == ".csv"
        release = datetime.fromisoformat(self.truth["release"])
        if self.path.suffix not in ROWS:
            self.file = CsvFile(self.path) if self.is_csv else DFile(self.path, release)
        self.zero = self.truth["launch_after_release"]

    def near(self, time, reach, quantity):
        """Times and values of a quantity around a time of the truth, without the frames that faults touched."""
        touched = {round(fault["time"], 2) for fault in self.truth["faults"]}
        found = []
        for frame in self.file.frames:
            moment = frame["time"] - self.zero
            if abs(moment - time) <= reach and round(moment, 2) not in touched and frame.get(quantity) is not None:
                found.append((moment, frame[quantity]))
        return found

    def frame_at(self, time):
        return next(frame for frame in self.file.frames if abs(frame["time"] - self.zero - time) < 0.01)


# The values in the files of a row for each record, and of the upsonde systems, are compared with the truth by the tests
# of the readers and of the QC. The messages have checks of their own.
ROWS = ".trv", ".zor", ".frd", ".txt"
OTHERS = ".dat", ".mir", ".vst", ".wmo"
EVERY = [Example(path) for path in sorted((EXAMPLES / "truth").glob("*.json"))
         if not json.loads(path.read_text("ascii"))["file"].endswith(OTHERS)]
ALL = [example for example in EVERY if example.path.suffix not in ROWS]
DROPS = [example for example in ALL if example.down]
D_FILES = [example for example in ALL if not example.is_csv]


def magnus_virtual_temperature(p, celsius, rh):
    vapour = rh / 100.0 * 6.1094 * math.exp(17.625 * celsius / (celsius + 243.04))
    mixing = 0.622 * vapour / (p - vapour)
    return (celsius + 273.15) * (1.0 + mixing / 0.622) / (1.0 + mixing)


def line_fit(points, at):
    """Value and slope at a time of the straight line through the points."""
    mean_t = sum(t for t, _ in points) / len(points)
    mean_y = sum(y for _, y in points) / len(points)
    slope = sum((t - mean_t) * (y - mean_y) for t, y in points) / sum((t - mean_t) ** 2 for t, _ in points)
    return mean_y + slope * (at - mean_t), slope


def rms(values):
    return math.sqrt(sum(value * value for value in values) / len(values))


def components(direction, speed):
    angle = math.radians(direction)
    return -speed * math.sin(angle), -speed * math.cos(angle)


class Truth(unittest.TestCase):
    def test_all_are_there(self):
        self.assertEqual(len(D_FILES), 7)
        self.assertEqual(sorted(example.path.suffix for example in EVERY if example not in ALL), sorted(ROWS * 2))
        told = [json.loads(path.read_text("ascii")) for path in (EXAMPLES / "truth").iterdir()]
        self.assertEqual(sorted(path.name for path in (EXAMPLES / "data").iterdir()), sorted(t["file"] for t in told))
        self.assertEqual(len({example.path.stem for example in EVERY}), len(EVERY))
        for example in EVERY:
            self.assertIs(example.truth["synthetic"], True)
            self.assertIn(b"ynthetic", example.path.read_bytes())
            self.assertLess((EXAMPLES / "truth" / (example.name + ".json")).stat().st_size, 30000)

    def test_hydrostatic_balance(self):
        for example in EVERY:
            with self.subTest(example.name):
                height = example.profile[0]["z"]
                for low, high in zip(example.profile, example.profile[1:]):
                    mean = 0.5 * sum(magnus_virtual_temperature(p["p"], p["T"], p["RH"]) for p in (low, high))
                    height += 287.05 / 9.80665 * mean * math.log(low["p"] / high["p"])
                    self.assertAlmostEqual(height, high["z"], delta=2.0)

    def test_fall_speed(self):
        for example in DROPS:
            with self.subTest(example.name):
                self.assertEqual(example.truth["chute"], {"area_cm2": 900.0, "mass_g": 320.0, "drag": 0.61})
                layers = [pair for pair in zip(example.profile, example.profile[1:]) if pair[0]["t"] > 12.0]
                self.assertGreater(len(layers), 50)
                for low, high in layers:
                    speed = (low["z"] - high["z"]) / (high["t"] - low["t"])
                    p, t, rh = (0.5 * (low[key] + high[key]) for key in ("p", "T", "RH"))
                    density = p * 100.0 / (287.0 * magnus_virtual_temperature(p, t, rh))
                    terminal = math.sqrt(2 * 0.32 * 9.8 / (density * 0.61 * 0.09))
                    self.assertAlmostEqual(speed / terminal, 1.0, delta=0.006)
        # 1012 mb, 27.6 deg C, 81 %: density 1.159 kg/m3, so the last trade wind layer is passed at 9.93 m/s.
        trade = next(example for example in DROPS if example.name == "D20210801_120003").profile
        self.assertAlmostEqual((trade[-3]["z"] - trade[-2]["z"]) / (trade[-2]["t"] - trade[-3]["t"]), 9.95, delta=0.06)

    def test_drift_follows_wind(self):
        for example in EVERY:
            with self.subTest(example.name):
                east = north = 0.0
                for low, high in zip(example.profile, example.profile[1:]):
                    step = high["t"] - low["t"]
                    east += 0.5 * (low["u"] + high["u"]) * step
                    north += 0.5 * (low["v"] + high["v"]) * step
                first, last = example.profile[0], example.profile[-1]
                latitude = math.radians(0.5 * (first["lat"] + last["lat"]))
                way = math.hypot(east, north)
                self.assertAlmostEqual((last["lat"] - first["lat"]) * 111132.0, north, delta=0.012 * way + 60.0)
                self.assertAlmostEqual((last["lon"] - first["lon"]) * 111320.0 * math.cos(latitude), east,
                                       delta=0.012 * way + 60.0)


class Files(unittest.TestCase):
    """What stands in the files against the truth."""

    def test_times_and_layout(self):
        for example in ALL:
            with self.subTest(example.name):
                times = [frame["time"] for frame in example.file.frames]
                step = {"summer_up_20220705": 1.0, "polar_up_20230117": 10.0}.get(example.name, 0.5)
                gaps = [round(b - a, 3) for a, b in zip(times, times[1:])]
                wide = [gap for gap in gaps if gap != step]
                self.assertEqual(wide, [7.5] if example.name == "D20080910_235612" else [])
        for example in D_FILES:
            version_16 = "VERSION NUMBER: 1.6" in example.file.lines[1]
            self.assertEqual({frame["words"] for frame in example.file.frames}, {20 if version_16 else 17})
            self.assertGreaterEqual(min(map(len, example.file.lines)), 29)
            self.assertEqual({line.split()[0][:-2] for line in example.file.lines},
                             {"ACS-T", "ACS-D"} if "2010" in example.name else {"OMBRA-T", "OMBRA-D"})
        self.assertEqual([example.name for example in D_FILES if example.file.line_end == "\r\n"], ["D20080910_235612"])

    def test_temperature_carries_the_lag(self):
        """The fitted lag and what is left after its correction. The time constants are those of thin and thick
        sensors at these fall speeds, 0.6 to 1.0 s and 2.5 to 4 s."""
        for example in DROPS:
            with self.subTest(example.name):
                slopes, misses = [], []
                for point in example.profile:
                    points = example.near(point["t"], 4.0, "temperature")
                    if 45.0 < point["t"] < example.profile[-1]["t"] - 5.0 and len(points) > 13:
                        value, slope = line_fit(points, point["t"])
                        slopes.append(slope)
                        misses.append(point["T"] - value)
                self.assertGreater(len(slopes), 50)
                lag = sum(s * m for s, m in zip(slopes, misses)) / sum(s * s for s in slopes)
                if example.truth["sensor"]["name"] == "RSS421":
                    self.assertTrue(0.5 < lag < 1.1, lag)
                else:
                    self.assertTrue(2.2 < lag < 4.2, lag)
                self.assertLess(rms([m - lag * s for s, m in zip(slopes, misses)]), 0.15)

    def test_humidity(self):
        """Warm sensors are quick, so below the freezing level the mean of some seconds is near the truth."""
        for example in ALL:
            with self.subTest(example.name):
                misses = []
                for point in example.profile:
                    points = example.near(point["t"], 2.0 if example.down else 10.0, "rh")
                    if point["T"] > 0.0 and points and point["t"] > 30.0:
                        misses.append(sum(v for _, v in points) / len(points) - point["RH"])
                if example.name == "polar_up_20230117":
                    self.assertEqual(misses, [])
                else:
                    self.assertGreater(len(misses), 10)
                    self.assertLess(rms(misses), 1.0)

    def test_dry_bias_in_the_cold(self):
        """At -40 deg C the dry sensor shows 0.773 of the true RH less 2.06 %; other sensors show most of it."""
        example = next(example for example in ALL if example.truth["sensor"]["dry_bias"])
        cold = [point for point in example.profile if -42.0 < point["T"] < -38.0]
        self.assertGreater(len(cold), 2)
        for point in cold:
            points = example.near(point["t"], 2.0, "rh")
            shown = sum(v for _, v in points) / len(points)
            self.assertAlmostEqual(shown, 0.773 * point["RH"] - 2.06, delta=1.5)

    def test_positions_and_heights(self):
        for example in ALL:
            with self.subTest(example.name):
                for point in example.profile:
                    for key, name, reach in (("lat", "latitude", 1.2e-5), ("lon", "longitude", 1.2e-5)):
                        for _, value in example.near(point["t"], 0.01, name):
                            self.assertAlmostEqual(value, point[key], delta=reach)
                    for _, value in example.near(point["t"], 0.01, "gps_altitude"):
                        # Geometric height is greater by z * z / R.
                        self.assertAlmostEqual(value, point["z"] + point["z"] ** 2 / 6.3568e6, delta=6.0)
                    for _, value in example.near(point["t"], 0.01, "altitude"):
                        self.assertAlmostEqual(value, point["z"], delta=30.0)


class PlantedFaults(unittest.TestCase):
    def test_values(self):
        """Each wrong value stands in the file, far off its neighbours, and the clean one would have fitted in."""
        fits = {"pressure": 0.6, "temperature": 0.3, "rh": 2.0, "rh1": 2.5, "rh2": 2.5, "speed": 1.2, "direction": 6.0,
                "latitude": 2e-5, "longitude": 2e-5, "gps_altitude": 8.0, "altitude": 3.0, "ascent": 0.8,
                "wind_error": 0.5, "satellites": 1.0}
        seen = set()
        for example in D_FILES:
            for fault in example.truth["faults"]:
                if fault["kind"] not in ("spike", "crc_damage"):
                    continue
                name, time = fault["quantity"], fault["time"]
                with self.subTest(example.name, time=time, quantity=name):
                    self.assertAlmostEqual(example.frame_at(time)[name], fault["faulty"], delta=0.011)
                    around = [value for _, value in example.near(time, 1.01, name)]
                    mean = sum(around) / len(around)
                    self.assertLess(abs(fault["clean"] - mean), fits[name])
                    self.assertGreater(abs(fault["faulty"] - mean), 3.0 * fits[name])
                    if fault["kind"] == "spike":
                        seen.add(name)
                        self.assertEqual(example.frame_at(time)["key"], "S00")
        self.assertEqual(seen, set(fits))

    def test_gap(self):
        cyclone = next(example for example in ALL if example.name == "D20080910_235612")
        (gap,) = cyclone.truth["faults"]
        self.assertEqual((gap["kind"], gap["records"]), ("gap", 14))
        self.assertEqual([f for f in cyclone.file.frames if gap["time"] <= f["time"] < gap["end"]], [])

    def test_floating(self):
        """951.2 mb at the sea, from where the pressure falls by more than 1 mb within 15 s, and GPS is gone."""
        floating = next(example for example in ALL if example.name == "D20230829_184207")
        (afloat,) = floating.truth["faults"]
        frames = floating.file.frames
        wet = [frame for frame in frames if frame["time"] >= afloat["time"]]
        self.assertEqual((len(wet), wet[-1]["time"]), (18, afloat["end"]))
        self.assertEqual([frame["speed"] is None for frame in frames[-20:]], 2 * [False] + 18 * [True])
        self.assertLess(wet[-1]["pressure"], max(frame["pressure"] for frame in frames[-30:]) - 1.0)
        self.assertAlmostEqual(frames[-19]["pressure"], 951.2, delta=1.0)

    def test_missing_cells(self):
        polar = next(example for example in ALL if example.name == "polar_up_20230117")
        expected = {(frame["time"], name) for fault in polar.truth["faults"] for frame in polar.file.frames
                    for name in fault["quantities"] if fault["time"] <= frame["time"] < fault["end"]}
        found = {(frame["time"], name) for frame in polar.file.frames for name, v in frame.items() if v is None}
        self.assertEqual(found, expected)
        self.assertGreater(len(found), 20)


class SecondRun(unittest.TestCase):
    def test_same_bytes(self):
        with tempfile.TemporaryDirectory() as folder:
            program = EXAMPLES / "generator" / "generate.py"
            subprocess.run([sys.executable, "-B", str(program), "--out", folder], check=True)
            for kind in ("data", "truth"):
                made = {path.name: path.read_bytes() for path in (Path(folder) / kind).iterdir()}
                kept = {path.name: path.read_bytes() for path in (EXAMPLES / kind).iterdir()}
                self.assertEqual(made.keys(), kept.keys())
                for name in made:
                    self.assertTrue(made[name] == kept[name], name + " differs from a new run")


if __name__ == "__main__":
    unittest.main()
