"""A new user's ways through the real program. Usage: desktop.py start|mouse|keyboard PROGRAM EXAMPLE"""
import math
import os
import pathlib
import shutil
import sys

from hands import Keyboard, Mouse, first_start
from screen import Program, children, is_in, look, need_screen, text, wait

NAME = "D20210914_043120.2"
SAVED = "D20210914_043120QC.csv"
TITLE = "Tarvo V3.4.8"
TABS = ["Main", "Raw", "QC", "XY Graph", "Skew-T", "Levels", "WMO", "Comm", "Summary"]
TDRY = 2  # column of the grids
SAMPLE = 60  # row of the sample that is ignored
FROM_END = 40  # row of the end of drop, from the last one


def check_window(program, name):
    """Title, tabs and status bar show a sounding."""
    program.window(f"{TITLE} - [{name}]")
    tabs = [tab.get_name() for tab in children(program.find("page tab list")) if tab.get_role_name() == "page tab"]
    assert tabs == TABS, tabs
    bar = program.find("status bar")
    wait("the run to end", lambda: look(bar, "label", "Ready"))
    settings = pathlib.Path("~/.config/Tarvo/TarvoQt.ini").expanduser()
    wait("a recent file", lambda: name in settings.read_text())  # the last act; no order is taken before it
    assert f"File '{name}' loaded." in program.messages, program.messages
    folder = os.path.expanduser("~/.config/Tarvo")
    for role, label in ("label", "ACTIVE CONFIG: editsonde "), ("label", f"CONFIG DIR: {folder} "), \
            ("image", "Tarvo is in QC processing mode"):
        assert look(bar, role, label), label


def time_of(program, table, row):
    return float(program.value(table, row, 0))


def row_at(program, table, time):
    """The row of the same or the next later time, by halving."""
    low, high = 0, program.rows(table)
    while low < high:
        middle = (low + high) // 2
        low, high = (middle + 1, high) if time_of(program, table, middle) < time else (low, middle)
    return low


def number(program, name):
    return float(text(program.find("text", name)) or "nan")


def launch_altitude(program):
    return number(program, "Launch Altitude, Upward")


def fall(program, surface):
    """The fall of the launch altitude, m: 484 mb instead of 480 at some 265 K, and less air below at some 302 K."""
    air = 265.0 * math.log(484.0 / 480.0) + 302.0 * math.log(surface / number(program, "Reported Surface Pressure"))
    return 29.27 * air


def check_data(program, table, sample_time, end):
    """The sample is out, its neighbours are in, only the surface follows the end, and the launch is overridden."""
    row = row_at(program, table, sample_time)
    assert [program.value(table, r, TDRY) != "" for r in (row - 1, row, row + 1)] == [True, False, True], row
    assert end <= time_of(program, table, program.rows(table) - 1) < end + 1.0
    assert program.value(table, 0, 1) == "484.0"


def whole_way(program, hand):
    """Ignores a sample, sets the end of drop, overrides the launch pressure, saves, and opens what was saved."""
    altitude, surface = launch_altitude(program), number(program, "Reported Surface Pressure")
    hand.go_to_tab("Raw")
    sample_time = time_of(program, "Raw data", SAMPLE)
    attributes = 13
    assert program.value("Raw data", SAMPLE, attributes) == ""
    hand.go_to_cell("Raw data", SAMPLE, TDRY)
    hand.choose_for_cell("Raw data", SAMPLE, TDRY, "Set Ignore Attribute")
    wait("the mark of the row", lambda: program.value("Raw data", SAMPLE, attributes) == "Ig ")
    assert program.cell("Raw data", SAMPLE, TDRY).get_description() == "Ignored in QC"

    last = program.rows("Raw data") - FROM_END
    end = program.value("Raw data", last, 0)
    hand.go_to_cell("Raw data", last, 0)
    hand.choose_for_cell("Raw data", last, 0, "Set end of drop time")

    hand.go_to_tab("Main")
    wait("the end of drop", lambda: text(program.find("text", "Override End of Drop Time")) == end)
    hand.override_pressure()
    wait("the override", lambda: text(program.find("text", "Override Launch Pressure")) == "484.0")
    hand.recompute()
    wait("the new launch altitude", lambda: abs(fall(program, surface) - altitude + launch_altitude(program)) < 6.0)

    hand.go_to_tab("QC")
    check_data(program, "QC data", sample_time, float(end))
    hand.save("Tarvo - Save QC", "Comma Separated (*.csv)")
    wait("the saved file", lambda: os.path.exists(os.path.expanduser("~/" + SAVED)))
    hand.ask_for_files()
    hand.open(SAVED, "All D files (D*)")
    check_window(program, SAVED)
    hand.go_to_tab("Raw")
    check_data(program, "Raw data", sample_time, float(end))


def leave(program, hand):
    """Whatever is asked is answered with No."""
    hand.quit()
    asked = []

    def ended():
        if program.process.poll() is not None:
            return True
        for box in program.windows():
            if box.get_role_name() == "alert" and is_in(box, "ACTIVE") and box not in asked:
                asked.append(box)
                hand.answer(box, "No")
        return False
    wait("the end of the program", ended)
    assert program.process.returncode == 0, program.process.returncode


def main():
    way, path, example = sys.argv[1:]
    need_screen()
    shutil.copy(example, os.path.expanduser("~"))
    with Program(os.path.abspath(path)) as program:
        hand = Mouse(program) if way == "mouse" else Keyboard(program)
        first_start(program, hand)
        assert TITLE in [window.get_name() for window in program.windows()]
        hand.open(NAME, "OMBRA D files (D*.?)")
        check_window(program, NAME)
        if way != "start":
            whole_way(program, hand)
        leave(program, hand)


main()
