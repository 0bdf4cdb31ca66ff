#!/usr/bin/python3
"""Writes the synthetic example soundings: generate.py [--out DIR] [NAME...]"""

import argparse
import sys
from pathlib import Path

if __package__ in (None, ""):
    sys.path.insert(0, str(Path(__file__).resolve().parents[1]))

from generator import catalogue, upsondes

EXAMPLES = {**catalogue.EXAMPLES, **upsondes.EXAMPLES}


def main(arguments=None):
    parser = argparse.ArgumentParser(description="Write the synthetic example soundings and their known truth.")
    parser.add_argument("--out", type=Path, default=Path(__file__).resolve().parents[1],
                        help="folder that gets data/ and truth/ (default: the examples folder)")
    parser.add_argument("names", metavar="NAME", nargs="*", help="examples to write (default: all)")
    chosen = parser.parse_args(arguments)
    unknown = [name for name in chosen.names if name not in EXAMPLES]
    if unknown:
        parser.error("no such example: %s; there are %s" % (", ".join(unknown), ", ".join(EXAMPLES)))
    for folder in ("data", "truth"):
        (chosen.out / folder).mkdir(parents=True, exist_ok=True)
    for name in chosen.names or EXAMPLES:
        example = EXAMPLES[name]()
        (chosen.out / "data" / example.file_name).write_bytes(example.content.encode("ascii"))
        (chosen.out / "truth" / (name + ".json")).write_bytes(example.truth.encode("ascii"))


if __name__ == "__main__":
    main()
