"""What the tests through the accessibility bus share: the application as a screen reader knows it.

Run inside of `with-desktop` and `with-account-home`, whose home, display and buses they use.
"""

import json
import os
import pathlib
import plistlib
import signal
import subprocess
import time
import typing
import unittest

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, Gio, GLib  # noqa: E402

APPLICATION = os.environ["BLANKWELL_APPLICATION"]
HOME = pathlib.Path(os.environ["HOME"])
PATIENCE = 20
State = Atspi.StateType

WALKTHROUGH = "Welcome to Blankwell+"
MAIN = "Blankwell+"
HELP = "Blankwell+ Help"
PANEL = "Create File"
EXTENSION = "Blankwell+ Finder Extension"


def eventually(look, patience=PATIENCE):
    """What `look` returns as soon as that is true, or what it returns last."""
    end = time.monotonic() + patience
    while True:
        try:
            seen = look()
        except GLib.Error:  # what was looked at has gone meanwhile
            seen = None
        if seen or time.monotonic() > end:
            return seen
        time.sleep(0.05)


class Place(typing.NamedTuple):
    left: int
    top: int
    right: int
    bottom: int


class Element:
    """Something on the screen, with what is in it."""

    def __init__(self, node):
        self.node = node

    @property
    def name(self):
        return self.node.get_name()

    @property
    def role(self):
        return self.node.get_role_name()

    @property
    def description(self):
        """What is read after the name."""
        return self.node.get_description()

    def has(self, state):
        return self.node.get_state_set().contains(state)

    def children(self):
        self.node.clear_cache()
        found = (self.node.get_child_at_index(i) for i in range(self.node.get_child_count()))
        return [Element(child) for child in found if child is not None]

    def shown(self):
        """All that is shown in it, in the order in which it is read."""
        for child in self.children():
            if child.has(State.VISIBLE):
                yield child
                yield from child.shown()

    def everything(self):
        """All that is in it, shown or not: what menus hold is not, until they open."""
        for child in self.children():
            yield child
            yield from child.everything()

    def read(self):
        """What is read: the role and the name of everything that has one."""
        return [(element.role, element.name) for element in self.shown() if element.name]

    def find(self, role, name):
        """The element, waited for; None where it does not come up."""
        among = self.everything if role == "menu item" else self.shown
        return eventually(lambda: next(
            (element for element in among() if (element.role, element.name) == (role, name)),
            None))

    def place(self):
        """Where it stands on the screen."""
        extents = self.node.get_extents(Atspi.CoordType.SCREEN)
        return Place(extents.x, extents.y, extents.x + extents.width, extents.y + extents.height)

    def act(self):
        """Does what a click would do."""
        if not self.node.do_action(0):
            raise AssertionError(f"{self.role} {self.name} does nothing")


    def focus(self):
        """Gives it the keyboard."""
        if not self.node.grab_focus():
            raise AssertionError(f"{self.role} {self.name} takes no keyboard")

    def write(self, text):
        """Puts `text` in the place of what stands in a text field."""
        if not self.node.set_text_contents(text):
            raise AssertionError(f"{self.role} {self.name} takes no text")


class Heard:
    """What is told of changes to who listens: the kind, and the role and name of where it happens."""

    def __init__(self, *kinds):
        self.changes = []
        self.listener = Atspi.EventListener.new(self.hear)
        for kind in kinds:
            self.listener.register(kind)

    def hear(self, event):
        self.changes.append((event.type, event.source.get_role_name(), event.source.get_name()))

    def __contains__(self, change):
        while GLib.MainContext.default().iteration(False):
            pass
        return change in self.changes


def press_keys(*keys):
    """Presses the keys, or combinations of keys, one after the other; named as xdotool does."""
    subprocess.run(["xdotool", "key", "--clearmodifiers", *keys], check=True)


def run_command(*arguments):
    """What the command line prints."""
    return subprocess.run([os.environ["BLANKWELL_PROGRAM"], *arguments], check=True,
                          capture_output=True, text=True).stdout


class ApplicationTestCase(unittest.TestCase):
    """The real application, started anew for each test with nothing stored."""

    program = APPLICATION

    def setUp(self):
        self.domain = HOME / ".config/BLNKWLPLUS.app.blankwell.BlankwellPlus.plist"
        self.domain.unlink(missing_ok=True)
        # A file manager that shows nothing: the application need not wait for one to start.
        self.bus = Gio.bus_get_sync(Gio.BusType.SESSION)
        self.bus.call_sync(
            "org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", "RequestName",
            GLib.Variant("(su)", ("org.freedesktop.FileManager1", 4)), None, 0, -1)

    def start(self, *arguments):
        environment = {**os.environ, "QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1"}
        self.process = subprocess.Popen([self.program, *arguments], env=environment)
        self.addCleanup(self.stop)

    def stop(self):
        self.process.send_signal(signal.SIGTERM)
        self.assertEqual(self.process.wait(PATIENCE), 0)

    def windows(self):
        return [window for application in Element(Atspi.get_desktop(0)).children()
                if application.node.get_process_id() == self.process.pid
                for window in application.children()]

    def window(self, title):
        """The window titled so, waited for."""
        found = eventually(lambda: next(
            (window for window in self.windows()
             if window.name == title and window.has(State.VISIBLE)), None))
        self.assertIsNotNone(found, f"no window {title}")
        return found

    def element(self, window, role, name):
        found = window.find(role, name)
        self.assertIsNotNone(found, f"no {role} {name}")
        return found

    def all_stored(self):
        """What the preferences domain on the disk holds."""
        return plistlib.loads(self.domain.read_bytes()) if self.domain.exists() else {}

    def stored(self, key):
        return self.all_stored().get(key)

    def stored_shortcut(self, key):
        """The shortcut that the preferences domain holds: key code and modifiers, as Carbon's."""
        value = self.stored(key)
        return value and self.shortcut_of(json.loads(value))

    def stored_file_type_shortcuts(self):
        value = self.stored("fileTypeShortcuts")
        return {} if value is None else {
            file_type: self.shortcut_of(shortcut)
            for file_type, shortcut in json.loads(value).items()}

    @staticmethod
    def shortcut_of(value):
        return (value["keyCode"], value["carbonModifiers"])

    def start_main_window(self):
        """Starts it with the walkthrough completed, and returns the main window."""
        self.domain.parent.mkdir(parents=True, exist_ok=True)
        self.domain.write_bytes(plistlib.dumps({"hasCompletedOnboarding": True}))
        self.start()
        main = self.window(MAIN)
        self.assert_eventually(lambda: main.has(State.ACTIVE), "the main window is not in front")
        return main

    def is_open(self, title):
        """Whether a window titled so is shown now."""
        return any(window.name == title and window.has(State.VISIBLE)
                   for window in self.windows())

    def assert_eventually(self, look, message=None):
        self.assertTrue(eventually(look), message)

    def assert_eventually_equal(self, look, expected):
        eventually(lambda: look() == expected)
        self.assertEqual(look(), expected)
