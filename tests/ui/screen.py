"""The program on an X screen of its own: seen as a screen reader sees it, worked by real clicks and real keys."""
import os
import shutil
import subprocess
import sys
import tempfile
import time

try:
    import gi
    gi.require_version("Atspi", "2.0")
    from gi.repository import Atspi, Gio, GLib
except (ImportError, ValueError):
    Atspi = None

LIMIT = 120.0  # seconds that anything may take, also on a slow machine


def need_screen(name_of_home=None):
    """Goes on in a run of the script that has a screen, a session bus and a home of its own, which pictures may show."""
    tools = "Xvfb", "xvfb-run", "xauth", "xdotool", "openbox", "dbus-run-session"
    missing = [tool for tool in tools if not shutil.which(tool)]
    if missing or Atspi is None or not os.path.exists("/usr/share/dbus-1/services/org.a11y.Bus.service"):
        print("skipped, missing:", *missing or ["the accessibility bus or its bindings"])
        sys.exit(77)
    if "TARVO_ON_SCREEN" in os.environ:
        return
    with tempfile.TemporaryDirectory() as home:
        if name_of_home:
            os.symlink(home, name_of_home)
            home = name_of_home
        environment = dict(os.environ, TARVO_ON_SCREEN="1", HOME=home, XDG_RUNTIME_DIR=home, QT_QPA_PLATFORM="xcb",
                           QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1")
        environment.pop("XDG_CONFIG_HOME", None)
        try:
            run = subprocess.run(["xvfb-run", "-a", "-s", "-screen 0 1280x900x24", "dbus-run-session", "--",
                                  sys.executable, *sys.argv], env=environment)
        finally:
            if name_of_home:
                os.unlink(name_of_home)
        sys.exit(run.returncode)


def wait(what, condition, limit=LIMIT):
    """What the condition gives, as soon as that is true."""
    end = time.monotonic() + limit
    while True:
        while GLib.MainContext.default().iteration(False):
            pass
        try:
            result = condition()
            if result:
                return result
        except GLib.GError:  # it has gone while we looked
            pass
        if time.monotonic() > end:
            raise AssertionError(f"waited in vain for {what}")
        time.sleep(0.05)


def is_in(thing, *states):
    have = thing.get_state_set()
    return all(have.contains(getattr(Atspi.StateType, state)) for state in states)


def children(thing):
    for i in range(thing.get_child_count()):
        child = thing.get_child_at_index(i)
        if child:
            yield child


def look(thing, role, name=None):
    """The first such thing in sight, or None. What stands in grids is had by row and column."""
    if thing.get_role_name() == role and name in (None, thing.get_name()):
        return thing
    for child in children(thing) if thing.get_role_name() != "table" else ():
        found = look(child, role, name) if is_in(child, "SHOWING") else None
        if found:
            return found
    return None


def text(thing):
    return Atspi.Text.get_text(thing, 0, -1)


def place(thing):
    return Atspi.Component.get_extents(thing, Atspi.CoordType.SCREEN)


def still_place(thing):
    """Where a thing stands that may just be appearing."""
    seen = []

    def settled():
        now = place(thing)
        seen.append((now.x, now.y, now.width, now.height))
        return now.width > 0 and len(seen) > 2 and seen[-1] == seen[-2] == seen[-3] and now
    return wait(f"{thing.get_name()} at its place", settled)


def xdotool(*arguments):
    subprocess.run(["xdotool", *map(str, arguments)], check=True)


def accessibility_bus():
    """The address of the bus that the program makes itself known on. Starts that bus and its registry."""
    session = Gio.bus_get_sync(Gio.BusType.SESSION)
    address, = session.call_sync("org.a11y.Bus", "/org/a11y/bus", "org.a11y.Bus", "GetAddress", None,
                                 GLib.VariantType("(s)"), Gio.DBusCallFlags.NONE, int(LIMIT * 1000)).unpack()
    desktop = Atspi.get_desktop(0)
    desktop.set_cache_mask(Atspi.Cache.NONE)  # or who comes while we look may stay unseen
    desktop.get_child_count()
    return address, desktop


class Program:
    """A run of the program. Ends with it."""

    def __init__(self, path):
        self.focus = self.popup = None
        self.messages = []  # of the status bar
        self._manager = subprocess.Popen(["openbox"], stderr=subprocess.DEVNULL)
        wait("the window manager", lambda: subprocess.run(["xdotool", "get_desktop"],
                                                          capture_output=True).returncode == 0)
        address, desktop = accessibility_bus()
        environment = dict(os.environ, AT_SPI_BUS_ADDRESS=address)
        # Only then the events: the program would not make itself known where they are wanted before it starts.
        self._application = self._start(path, environment, desktop)
        self._application.set_cache_mask(Atspi.Cache.NONE)
        self._listener = Atspi.EventListener.new(self._on_event)
        for event in "object:state-changed:focused", "object:state-changed:showing", \
                "object:property-change:accessible-name":
            self._listener.register(event)

    def _start(self, path, environment, desktop):
        """The program as the bus knows it. Now and then the bus misses one that starts; the next is seen."""
        def known():
            assert self.process.poll() is None, f"the program ended with {self.process.returncode}"
            return next((a for a in children(desktop) if a.get_process_id() == self.process.pid), None)
        for attempt in range(3):
            self.process = subprocess.Popen([path], env=environment)
            try:
                return wait("the program", known, LIMIT / 3)
            except AssertionError:
                if attempt == 2 or self.process.poll() is not None:
                    raise
                self.process.kill()
                self.process.wait()

    def _on_event(self, event):
        try:
            if event.type.startswith("object:property-change"):
                self.messages.append(event.source.get_name())
            elif event.detail1 and event.type.endswith("focused"):
                self.focus = event.source
            elif event.detail1 and event.source.get_role_name() == "popup menu":
                self.popup = event.source
        except GLib.GError:
            pass

    def __enter__(self):
        return self

    def __exit__(self, kind, *_):
        if kind and self.process.poll() is None:
            for window in self.windows():
                print("in sight:", window.get_role_name(), window.get_name(), is_in(window, "ACTIVE"))
            try:
                print("focus:", self.focus and self.focus.get_role_name(), self.focus and self.focus.get_name())
            except GLib.GError:
                print("focus: gone")
        for process in self.process, self._manager:
            process.kill()
            process.wait()

    def windows(self):
        return [window for window in children(self._application) if is_in(window, "SHOWING")]

    def window(self, title):
        """The window that has the keys, once its title is this."""
        return wait(f"the window {title!r}", lambda: next(
            (w for w in self.windows() if w.get_name() == title and is_in(w, "ACTIVE")), None))

    def find(self, role, name=None):
        return wait(f"{role} {name!r}", lambda: next(
            (found for w in self.windows() for found in [look(w, role, name)] if found), None))

    def cell(self, table, row, column):
        return Atspi.Table.get_accessible_at(self.find("table", table), row, column)

    def rows(self, table):
        return Atspi.Table.get_n_rows(self.find("table", table))

    def value(self, table, row, column):
        return self.cell(table, row, column).get_name()

    def menu_entry(self, name):
        def entry():
            unseen = [window for window in self.windows() if window.get_role_name() == "popup menu"]
            for menu in [self.popup] if self.popup else unseen:
                for item in children(menu):
                    if item.get_name().split("\t")[0] == name and is_in(item, "SHOWING"):
                        self.popup = menu
                        return item
            return None
        return wait(f"menu entry {name!r}", entry)
