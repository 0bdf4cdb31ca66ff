"""The two ways in which a user does things: with the mouse alone, and with the keyboard alone."""
import time

from screen import Atspi, children, is_in, look, place, still_place, text, wait, xdotool

FILES = "Tarvo - Open Sounding File"


class Mouse:
    """Clicks, drags and the wheel; no key is pressed."""

    def __init__(self, program):
        self.program = program

    def click(self, thing, button=1, times=1):
        at = still_place(thing)
        xdotool("mousemove", at.x + at.width // 2, at.y + at.height // 2, "click", "--repeat", times, button)

    def answer(self, box, button):
        self.click(look(box, "push button", button))

    def choose_in_menu_of(self, thing, entry):
        self.program.popup = None
        self.click(thing, button=3)
        self.click(self.program.menu_entry(entry))

    def ask_for_files(self):
        self.click(self.program.find("push button", "Open"))

    def open(self, name, file_type):
        dialog = self.program.window(FILES)
        self.choose_type(dialog, file_type)
        self.click(self.program.find("table cell", name), times=2)

    def choose_type(self, dialog, file_type):
        def box():
            return next((b for b in all_of(dialog, "combo box") if "(" in b.get_name()), None)
        if box().get_name() == file_type:
            return
        self.click(box())
        self.click(self.program.find("list item", file_type))
        wait(file_type, lambda: box().get_name() == file_type)

    def go_to_tab(self, name):
        self.click(self.program.find("page tab", name))

    def go_to_cell(self, table, row, column):
        around = place(self.program.find("table", table).get_parent())
        middle = around.y + around.height // 2
        xdotool("mousemove", around.x + around.width // 2, middle)
        while True:
            at = place(self.program.cell(table, row, column))
            if abs(at.y - middle) < around.height // 3:
                break
            xdotool("click", "--repeat", max(1, abs(at.y - middle) // (4 * at.height)), "--delay", 3,
                    5 if at.y > middle else 4)
            wait("the grid to move", lambda: place(self.program.cell(table, row, column)).y != at.y)
        self.click(self.program.cell(table, row, column))

    def choose_for_cell(self, table, row, column, entry):
        self.choose_in_menu_of(self.program.cell(table, row, column), entry)

    def select_character(self, edit, index):
        at = Atspi.Text.get_character_extents(edit, index, Atspi.CoordType.SCREEN)
        y = at.y + at.height // 2
        xdotool("mousemove", at.x, y, "mousedown", 1, "mousemove", at.x + at.width, y, "mouseup", 1)
        wait("a selected character", lambda: Atspi.Text.get_n_selections(edit) == 1)
        return at

    def override_pressure(self):
        """484 out of 480 without a key: its first digit is copied over its third."""
        reported = self.program.find("text", "Reported Launch Pressure")
        override = self.program.find("text", "Override Launch Pressure")
        self.choose_in_menu_of(reported, "Select All")
        self.choose_in_menu_of(reported, "Copy")
        self.choose_in_menu_of(override, "Paste")
        wait("the copied pressure", lambda: text(override) == text(reported))
        for edit, index, entry in (reported, 0, "Copy"), (override, 2, "Paste"):
            self.select_character(edit, index)
            self.choose_in_menu_of(edit, entry)

    def recompute(self):
        self.click(self.program.find("push button", "RECOMPUTE"))

    def save(self, title, file_type):
        self.click(self.program.find("push button", "Save"))
        dialog = self.program.window(title)
        self.choose_type(dialog, file_type)
        self.answer(dialog, "Save")

    def quit(self):
        self.program.popup = None
        self.click(self.program.find("menu item", "File"))
        self.click(self.program.menu_entry("Quit"))


class Keyboard:
    """Keys; the mouse lies in a corner."""

    def __init__(self, program):
        self.program = program
        xdotool("mousemove", 1279, 899)

    @staticmethod
    def press(*keys):
        xdotool("key", "--clearmodifiers", *keys)

    def leave_menu_bar(self):
        """A window that was busy may have seen Alt alone of Alt with a letter, which opens the menu bar."""
        focus = self.program.focus
        if focus and focus.get_role_name() == "menu item":
            self.press("Escape")

    def press_with_alt(self, letter):
        self.leave_menu_bar()
        self.press("alt+" + letter)

    def wait_for_focus(self, role, name):
        wait(f"{role} {name!r} to have the keys", lambda: self.has_focus(role, name))

    def has_focus(self, role, name):
        """By the last event, or by what the windows say: an event can be lost."""
        focus = self.program.focus
        if focus and focus.get_role_name() == role and name in focus.get_name():
            return True
        found = (look(window, role, name) for window in self.program.windows() if is_in(window, "ACTIVE"))
        return any(thing and is_in(thing, "FOCUSED") for thing in found)

    def type(self, name, words):
        self.wait_for_focus("text", name)
        xdotool("type", words)
        edit = self.program.find("text", name)
        wait(f"{words!r} to stand in {name!r}", lambda: text(edit) == words)

    def go_to(self, key, role, name):
        """Presses a key until it has led to this."""
        for _ in range(60):
            if self.has_focus(role, name):
                return
            self.leave_menu_bar()
            before = self.program.focus
            self.press(key)
            try:
                wait("the focus to move", lambda: self.program.focus != before, 4)
            except AssertionError:
                continue
        raise AssertionError(f"{key} doesn't lead to {role} {name!r}")

    def answer(self, box, button):
        self.press("alt+" + button[0].lower() if button != "OK" else "Return")

    def ask_for_files(self):
        self.press("ctrl+o")

    def open(self, name, _):
        self.program.window(FILES)
        self.type("File name:", name)
        self.press("Return")

    def go_to_tab(self, name):
        """Presses the tab's letter, and again when a program that was still busy didn't take it."""
        shown = {"Main": ("push button", "RECOMPUTE"), "Raw": ("table", "Raw data"), "QC": ("table", "QC data")}[name]
        for _ in range(5):
            self.press_with_alt(name[0].lower())
            try:
                wait(f"the tab {name}", lambda: any(look(window, *shown) for window in self.program.windows()), 4)
                return
            except AssertionError:
                continue
        raise AssertionError(f"the tab {name} doesn't open")

    def go_to_cell(self, table, row, column):
        self.go_to("Tab", "table", table)
        rows = self.program.rows(table)
        way = ["ctrl+Home"] + ["Down"] * row if row < rows // 2 else ["ctrl+End"] + ["Up"] * (rows - 1 - row)
        self.press(*way, "Home", *["Right"] * column)
        wait("the cell to have the keys", lambda: is_in(self.program.cell(table, row, column), "FOCUSED"))

    def choose_for_cell(self, table, row, column, entry):
        self.program.popup = None
        self.press("shift+F10")
        chosen = self.program.menu_entry(entry)
        entries = [item.get_name() for item in children(self.program.popup) if item.get_role_name() == "menu item"]
        self.press(*["Down"] * (entries.index(entry) + 1))
        wait(f"{entry!r} to have the keys", lambda: is_in(chosen, "FOCUSED"))
        self.press("Return")

    def override_pressure(self):
        pressed = [0.0]

        def focused():  # a program that is still busy takes no order
            if time.monotonic() > pressed[0] + 5.0:
                pressed[0] = time.monotonic()
                self.press_with_alt("p")
            return self.has_focus("text", "Override Launch Pressure")
        wait("the launch pressure to have the keys", focused)
        self.type("Override Launch Pressure", "484.0")

    def recompute(self):
        self.go_to("Tab", "push button", "RECOMPUTE")
        self.press("space")

    def save(self, title, file_type):
        self.press("ctrl+s")
        dialog = self.program.window(title)
        self.wait_for_focus("text", "File name:")
        self.press("alt+t")
        self.press(file_type[0].lower())
        wait(file_type, lambda: look(dialog, "combo box", file_type))
        self.press("Return")

    def quit(self):
        self.press("ctrl+q")


def first_start(program, hand):
    """Answers the boxes of a first start and its question for a database. The file dialog comes next of itself."""
    for title in ["Tarvo File Open"] + 4 * ["Tarvo File Update"] + \
            ["Tarvo - Browse for Sounding Database", "Tarvo Sounding Database Create"]:
        box = program.window(title)
        hand.answer(box, "OK")
        wait(title + " to go", lambda: box not in program.windows())
    return program.window(FILES)


def all_of(thing, role):
    return [child for child in children(thing) if child.get_role_name() == role]
