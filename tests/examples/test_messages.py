"""Checks the levels of the example messages against the air that the sonde went through."""

import json
import math
import unittest
from pathlib import Path

EXAMPLES = Path(__file__).resolve().parents[2] / "examples"

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
