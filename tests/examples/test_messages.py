"""Checks the example messages: groups coded by hand, and the levels against the air that the sonde went through."""

import json
import math
import sys
import unittest
from pathlib import Path

EXAMPLES = Path(__file__).resolve().parents[2] / "examples"
sys.path.insert(0, str(EXAMPLES))
sys.dont_write_bytecode = True

from generator.formats import wmo  # noqa: E402


class Example:
    def __init__(self, path):
        self.truth = json.loads(path.read_text("ascii"))
        self.text = (EXAMPLES / "data" / self.truth["file"]).read_bytes().decode("ascii")
        self.levels = [dict(zip(self.truth["coded_columns"], row)) for row in self.truth["coded"]]
        self.air = sorted((dict(zip(self.truth["profile_columns"], row)) for row in self.truth["profile"]),
                          key=lambda point: -point["p"])

    def between(self, pressure, quantity):
        for low, high in zip(self.air, self.air[1:]):
            if low["p"] >= pressure >= high["p"]:
                part = math.log(low["p"] / pressure) / math.log(low["p"] / high["p"])
                return low[quantity] + part * (high[quantity] - low[quantity])
        return None


ALL = [Example(path) for path in sorted((EXAMPLES / "truth").glob("temp*.json"))]


class Groups(unittest.TestCase):
    def test_temperature(self):
        """Odd tenths are below zero; the depression in tenths up to 5.0 and in whole degrees above it."""
        for celsius, dew_point, group, coded in ((12.2, 7.2, "12250", (12.2, 7.2)), (12.3, 12.3, "12200", (12.2, 12.2)),
                                                 (-12.2, -16.3, "12341", (-12.3, -16.4)),
                                                 (-0.04, -6.0, "00156", (-0.1, -6.1)),
                                                 (30.0, -0.2, "30080", (30.0, 0.0)), (5.0, None, "050//", (5.0, None)),
                                                 (None, None, "/////", (None, None))):
            with self.subTest(celsius=celsius, dew_point=dew_point):
                found = wmo.temperature_group(celsius, dew_point)
                self.assertEqual(found[0], group)
                for value, expected in zip(found[1:], coded):
                    self.assertEqual(value is None, expected is None)
                    self.assertTrue(value is None or abs(value - expected) < 1e-9)

    def test_wind(self):
        for direction, speed, knots, group in ((270.0, 35.4, False, "27035"), (274.0, 35.0, False, "27535"),
                                               (1.0, 10.0, False, "36010"), (358.0, 112.0, False, "36112"),
                                               (3.0, 4.0, False, "00504"), (90.0, 0.3, False, "00000"),
                                               (180.0, 18.0, True, "18035"), (None, None, False, "/////")):
            with self.subTest(direction=direction, speed=speed):
                self.assertEqual(wmo.wind_group(direction, speed, knots)[0], group)

    def test_height(self):
        for height, pressure, digits in ((109.4, 1000, "109"), (-63.0, 1000, "563"), (1524.0, 850, "524"),
                                         (3012.0, 700, "012"), (5895.0, 500, "590"), (10645.0, 250, "065"),
                                         (None, 500, "///")):
            self.assertEqual(wmo.height_digits(height, pressure)[0], digits)

    def test_marsden_square(self):
        """From the chart of the table: 1 lies west of Greenwich and north of the equator, 300 south of it."""
        for latitude, longitude, square in ((5.0, -5.0, 1), (5.0, 5.0, 36), (25.0, -85.0, 81), (-5.0, -5.0, 300),
                                            (-35.0, 150.0, 428), (85.0, -5.0, 901)):
            self.assertEqual(wmo._marsden_square(latitude, longitude), square)


class Messages(unittest.TestCase):
    def test_a_clean_one_of_each_type_and_a_damaged_one(self):
        self.assertEqual([(example.text.split()[3][:2], bool(example.truth["faults"])) for example in ALL[:2]],
                         [("TT", False), ("XX", False)])
        self.assertIn("XXAA", ALL[2].text)
        self.assertEqual(ALL[2].text.count("\r\r\n"), ALL[2].text.count("\n"))
        self.assertTrue(ALL[2].truth["faults"])

    def test_levels_fit_the_air(self):
        """Half of a unit of the groups beside the noise of the sensors: 0.2 deg C, 5 degrees and 1 m/s, 10 m."""
        for example in ALL:
            compared = 0
            for level in example.levels:
                air = {name: example.between(level["p"], name) for name in ("z", "T", "u", "v")}
                if air["T"] is None:
                    continue
                with self.subTest(example.truth["name"], level=level):
                    if level["T"] is not None:
                        self.assertLess(abs(level["T"] - air["T"]), 0.7)
                        compared += 1
                    if level["speed"] is not None:
                        angle = math.radians(level["direction"])
                        off = math.hypot(-level["speed"] * math.sin(angle) - air["u"],
                                         -level["speed"] * math.cos(angle) - air["v"])
                        self.assertLess(off, 1.5 + 0.05 * level["speed"])
                    if level["z"] is not None:
                        self.assertLess(abs(level["z"] - air["z"]), 6.0 + 0.004 * air["z"])
            self.assertGreater(compared, 4)

    def test_special_levels(self):
        """The tropopause of the summer plain lies where its stratosphere begins, at 11,900 m; its jet at 10,800 m."""
        levels = {level["type"]: level for level in ALL[0].levels}
        self.assertAlmostEqual(ALL[0].between(levels["tropopause"]["p"], "z"), 11900.0, delta=800.0)
        self.assertAlmostEqual(ALL[0].between(levels["maxwind"]["p"], "z"), 10800.0, delta=800.0)


if __name__ == "__main__":
    unittest.main()
