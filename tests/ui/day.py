"""An operator's working day with the real program and a real Kermit, as the first chapter of the manual tells it. Usage:
day.py PROGRAM EXAMPLE NEXT_EXAMPLE [FOLDER FOR PICTURES]"""
import os
import pathlib
import re
import shutil
import subprocess
import sys
import time

from hands import FILES, Keyboard, Mouse, first_start
from screen import Program, is_in, look, need_screen, text, wait, xdotool

KERMIT = "/usr/bin/kermit"
RECORDS_AFLOAT = 18
PICTURE = pathlib.Path(sys.argv[4]).resolve() if len(sys.argv) > 4 else None


class Operator:
    """Both hands, and a camera."""

    def __init__(self, program):
        self.program = program
        self.mouse = Mouse(program)
        self.keys = Keyboard(program)

    def keep(self, name):
        if PICTURE:
            time.sleep(1.0)  # for the screen to settle
            subprocess.run(["import", "-window", "root", str(PICTURE / f"{name}.png")], check=True)

    def press(self, *keys):
        self.keys.press(*keys)

    def call(self, keys, title):
        """Presses the keys until this window comes: one that is just getting them may lose the first."""
        for _ in range(10):
            self.press(keys)
            try:
                wait(title, lambda: any(w.get_name() == title for w in self.program.windows()), 5)
                break
            except AssertionError:
                continue
        return self.program.window(title)

    def enter(self, name, words):
        """Clicks a field, and types over what stands there."""
        field = self.program.find("text", name)
        self.mouse.click(field)
        wait(f"{name!r} to have the keys", lambda: is_in(field, "FOCUSED"))
        self.press("ctrl+a")
        xdotool("type", words)
        wait(f"{words!r} in {name!r}", lambda: text(field).strip() == words)
        self.press("Tab")

    def tick(self, name):
        box = self.program.find("check box", name)
        if not is_in(box, "CHECKED"):
            self.mouse.click(box)
        wait(f"{name!r} to be on", lambda: is_in(box, "CHECKED"))

    def choose(self, shown, item):
        """An item of the list that shows this one, or has this name while it shows none."""
        box = self.program.find("combo box", shown)
        self.mouse.click(box)
        self.mouse.click(wait(item, lambda: look(box, "list item", item)))
        wait(f"{item!r} to be chosen", lambda: box.get_name() == item)

    def wait_until_ready(self):
        bar = self.program.find("status bar")
        wait("the run to end", lambda: look(bar, "label", "Ready"))


def begin(program, operator):
    """A first start, of which the file dialog is given up."""
    dialog = first_start(program, operator.mouse)
    operator.press("Escape")
    wait("the file dialog to go", lambda: dialog not in program.windows())


def choose_a_set(program, operator, folder):
    management = operator.call("ctrl+u", "Configuration Management")
    operator.keep("day-configuration")
    operator.mouse.click(look(management, "push button", "Edit"))
    program.window("Options")
    operator.enter("Find an option", "kermit")
    operator.enter("Kermit path", KERMIT)
    operator.keep("day-options")
    operator.enter("Find an option", "save")
    operator.mouse.go_to_tab("Auto Save")
    operator.tick("Save products after each processing")
    operator.enter("Folder", str(folder))
    for name in "BUFR", "Message as text":
        operator.tick(name)
    operator.keep("day-autosave")
    options = program.window("Options")
    operator.mouse.answer(options, "OK")
    wait("the options to go", lambda: options not in program.windows())
    operator.mouse.answer(program.window("Configuration Management"), "OK")
    wait("the management to go", lambda: len(program.windows()) == 1)


def open_drop(program, operator, name):
    operator.call("ctrl+o", FILES)
    operator.keys.open(name, None)


def end_the_drop(program, operator, name):
    """The alert, the last record with wind, and the recompute without an alert."""
    alert = program.window("Processing Alert")
    words = look(alert, "label", None)
    assert "post-splash data" in words.get_name(), words.get_name()
    operator.keep("day-alert")
    operator.mouse.answer(alert, "OK")
    program.window(f"Tarvo V3.4.8 - [{name}]")
    operator.wait_until_ready()
    operator.keys.go_to_tab("Raw")
    last = program.rows("Raw data") - 1 - RECORDS_AFLOAT
    speed = 4
    assert [program.value("Raw data", row, speed) != "" for row in (last, last + 1)] == [True, False]
    end = program.value("Raw data", last, 0)
    operator.keys.go_to_cell("Raw data", last, 0)
    if PICTURE:
        program.popup = None
        operator.press("shift+F10")
        program.menu_entry("Set end of drop time")
        operator.keep("day-end-of-drop")
        operator.press("Escape")
    operator.keys.choose_for_cell("Raw data", last, 0, "Set end of drop time")
    operator.keys.go_to_tab("Main")
    wait("the end of drop", lambda: text(program.find("text", "Override End of Drop Time")) == end)
    operator.mouse.recompute()
    wait("the surface", lambda: abs(float(text(program.find("text", "Reported Surface Pressure")) or 0) - 951.2) < 1.0)
    operator.wait_until_ready()
    operator.keep("day-recomputed")
    assert not [box for box in program.windows() if box.get_name() == "Processing Alert"]


def correct_a_group(program, operator):
    """The wind at the surface in part A."""
    operator.mouse.go_to_tab("WMO")
    table = "WMO message"
    surface = next((row, column) for row in range(program.rows(table)) for column in range(11)
                   if program.value(table, row, column) == "99951")
    row, column = surface[0] + (surface[1] + 2) // 11, (surface[1] + 2) % 11
    coded = program.value(table, row, column)
    assert re.fullmatch(r"\d{5}", coded), coded
    operator.mouse.click(program.cell(table, row, column))
    operator.mouse.click(program.find("push button", "Modify"))
    program.window("Modify Code Group")
    corrected = coded[:2] + f"{int(coded[2:]) + 4:03}"
    xdotool("type", corrected)  # it takes the place of the old one
    operator.press("Return")
    wait("the corrected group", lambda: program.value(table, row, column) == corrected)
    operator.mouse.click(program.cell(table, 0, 0))  # or the selection hides the colour
    operator.keep("day-group")
    return corrected


def fill_in(program, operator, port):
    operator.mouse.go_to_tab("Comm")
    operator.enter("Agency/Aircraft", "SYN02")
    operator.enter("Mission ID", "0407A")
    operator.enter("Mission Storm System", "CYCLONE")
    operator.enter("Observation Number", "12")
    operator.choose("Environment", "EYEWALL")
    operator.choose("0 (N)", "45 (NE)")
    operator.enter("ATCF Identifier", "AL992023")
    operator.mouse.click(program.find("combo box", "com1"))
    operator.press("Escape", "ctrl+a")
    xdotool("type", str(port))
    operator.press("Tab")


def send(program, operator, received):
    operator.mouse.click(program.find("push button", "Send TEMPDROP message to ARWO"))
    program.find("label", "ARWO message transfer success")
    operator.keep("day-sent")
    return received()


def next_drop(program, operator, name):
    """What concerns the mission is there; what concerns the drop isn't."""
    open_drop(program, operator, name)
    program.window(f"Tarvo V3.4.8 - [{name}]")
    operator.wait_until_ready()
    operator.mouse.go_to_tab("Comm")
    found = {field: text(program.find("text", field)).strip() for field in
             ("Agency/Aircraft", "Mission ID", "Mission Storm System", "Observation Number", "ATCF Identifier")}
    assert found == {"Agency/Aircraft": "SYN02", "Mission ID": "0407A", "Mission Storm System": "CYCLONE",
                     "Observation Number": "", "ATCF Identifier": "AL992023"}, found


def main():
    path, example, following = sys.argv[1:4]
    need_screen("/tmp/operator" if PICTURE else None)
    missing = [tool for tool in ("socat", "rz", KERMIT) if not shutil.which(tool)]
    if missing:
        print("skipped, missing:", *missing)
        sys.exit(77)
    home = pathlib.Path.home()
    for name in example, following:
        shutil.copy(name, home)
    products, other_end = home / "products", home / "station"
    for folder in products, other_end:
        folder.mkdir()
    line = subprocess.Popen(["socat", f"pty,raw,echo=0,link={home}/radio", f"pty,raw,echo=0,link={home}/far"])
    wait("the line", lambda: (home / "far").exists())
    with open(home / "far", "r+b", buffering=0) as far:
        station = subprocess.Popen(["rz", "-b", "-q"], stdin=far, stdout=far, cwd=other_end)
    name = pathlib.Path(example).name

    def received():
        station.wait(60)
        return next(other_end.iterdir()).read_text("ascii")
    try:
        with Program(os.path.abspath(path)) as program:
            operator = Operator(program)
            begin(program, operator)
            choose_a_set(program, operator, products)
            open_drop(program, operator, name)
            end_the_drop(program, operator, name)
            assert sorted(file.name for file in products.iterdir()) == \
                [name.split(".")[0] + ending for ending in ("QC.bfr", "WMO.txt")]
            corrected = correct_a_group(program, operator)
            fill_in(program, operator, home / "radio")
            message = send(program, operator, received)
            assert f" {corrected} " in message, message
            for words in "SYN02 0407A CYCLONE      OB 12", "EYEWALL 045", "AL992023":
                assert words in message, (words, message)
            next_drop(program, operator, pathlib.Path(following).name)
    finally:
        for process in station, line:
            process.kill()
            process.wait()


main()
