"""Checks the examples of the upsonde systems by an own reading of the files, column by column."""

import json
import math
import unittest
from datetime import datetime
from pathlib import Path

EXAMPLES = Path(__file__).resolve().parents[2] / "examples"
NAMES = "pressure temperature rh direction speed ascent longitude latitude altitude satellites".split()
MARKS = dict(zip(NAMES, (9999, 99, 999, 999, 999, 999, 999, 99, 99999, 99)))
FINE = {"pressure": 0.1, "temperature": 0.5, "rh": 3.0, "latitude": 1.5e-5, "longitude": 1.5e-5}


class Example:
    def __init__(self, name):
        self.truth = json.loads((EXAMPLES / "truth" / (name + ".json")).read_text("ascii"))
        self.lines = (EXAMPLES / "data" / self.truth["file"]).read_text("ascii").splitlines()
        self.release = datetime.fromisoformat(self.truth["release"])
        self.keyed = not name.startswith("mirra")
        self.rows = {}
        for line in self.lines:
            words = line.split()
            if self.keyed and words[1][0] == "S" and words[1][1:].isdigit() and words[4].count("?") == 0:
                self.take(self.seconds(words), words[5:])
            elif not self.keyed and words[0][0].isdigit():
                self.take(float(words[0]), words[1:])

    def seconds(self, words):
        return (datetime.strptime(words[3] + words[4], "%y%m%d%H%M%S.%f") - self.release).total_seconds()

    def take(self, time, words):
        values = dict(zip(NAMES, map(float, words)))
        if self.keyed:
            values = {name: value for name, value in values.items() if value != MARKS[name]}
        if self.truth["file"].startswith("vesta") and "pressure" in values:
            values["pressure"] += 0.4 + (-0.25 if "vesta_up" in self.truth["file"] else 0.0)
        self.rows[time] = values


ALL = [Example(path.stem) for path in sorted((EXAMPLES / "truth").glob("*.json"))
       if path.name.startswith(("pelo", "vesta", "mirra"))]


class Upsondes(unittest.TestCase):
    def test_of_each_format_a_clean_and_a_damaged_one(self):
        self.assertEqual([bool(example.truth["faults"]) for example in ALL], [True, False] * 3)
        for example in ALL:
            self.assertIn("ynthetic", "".join(example.lines[:12]))

    def test_rows_follow_the_air(self):
        """The sensors are quick and the noise is small, so most rows at the time of a point of the truth fit it; the
        sonde's lag at 5 m/s is under 0.2 deg C."""
        for example in ALL:
            for profile, zero in (("profile", 0.0), ("descent_profile", example.truth.get("descent", {}).get("burst"))):
                points = [dict(zip(example.truth["profile_columns"], row)) for row in example.truth.get(profile, ())]
                fits = 0
                for point in points:
                    row = example.rows.get(point["t"] + zero, {})
                    fits += all(abs(row.get(name, math.inf) - point[key]) < FINE[name] for name, key in
                                (("pressure", "p"), ("temperature", "T"), ("latitude", "lat"), ("longitude", "lon")))
                with self.subTest(example.truth["name"], profile=profile):
                    self.assertGreaterEqual(fits, 0.9 * len(points))
        self.assertTrue(any("descent_profile" in example.truth for example in ALL))

    def test_burst(self):
        for example in ALL:
            if "descent" in example.truth:
                lowest = min(example.rows, key=lambda time: example.rows[time].get("pressure", 1e9))
                self.assertEqual(lowest, example.truth["descent"]["burst"])
                self.assertEqual(sum(time >= lowest for time in example.rows), example.truth["descent"]["records"])


if __name__ == "__main__":
    unittest.main()
