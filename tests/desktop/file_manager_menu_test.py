"""The menu "Create File" in real file managers: opened and clicked with the pointer.

Run inside of `with-desktop`, whose home, display and buses they use.
"""

import os
import pathlib
import signal
import subprocess
import time
import unittest

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi  # noqa: E402

from accessible_application import Element, eventually  # noqa: E402

BLANKWELL = os.environ["BLANKWELL_PROGRAM"]
HOME = pathlib.Path(os.environ["HOME"])
FOLDER_NAME = "it's a \"dir\" %41 & #é"
ROLES = ("menu", "menu item")


def xdotool(*arguments):
    return subprocess.run(["xdotool", *map(str, arguments)], capture_output=True, check=True,
                          text=True, timeout=20).stdout.split()


def windows_titled(title):
    found = subprocess.run(["xdotool", "search", "--onlyvisible", "--name", title],
                           capture_output=True, check=False, text=True)
    return found.stdout.split()


def showing(element):
    for child in element.children():
        if child.has(Atspi.StateType.SHOWING):
            yield child
            yield from showing(child)


class FileManagerMenu:
    """What every file manager has to do; a class below says which."""

    manager = ""
    #: The titles to go through, from the menu to the item.
    way = ("Create File", "Markdown")
    #: Where the only icon of the folder is, which no file manager tells, and where nothing is.
    icon = (230, 190)
    empty_spot = (600, 420)

    def setUp(self):
        self.folder = HOME / FOLDER_NAME
        self.inner = self.folder / "inner"
        self.inner.mkdir(parents=True)
        self.prepare()
        subprocess.run([BLANKWELL, "menus", "on", self.manager], check=True)

    def prepare(self):
        """What the file manager needs beforehand."""

    def start(self):
        environment = {**os.environ, "QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1"}
        del environment["NO_AT_BRIDGE"], environment["GTK_A11Y"]
        self.process = subprocess.Popen([self.manager, str(self.folder)], env=environment,
                                        stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        self.addCleanup(self.stop)
        self.assertTrue(eventually(lambda: windows_titled("it's a")), "no window")
        self.window = windows_titled("it's a")[-1]
        xdotool("windowactivate", "--sync", self.window)
        xdotool("windowsize", self.window, 900, 600)
        xdotool("windowmove", self.window, 20, 20)

    def stop(self):
        self.process.send_signal(signal.SIGTERM)
        try:
            self.process.wait(10)
        except subprocess.TimeoutExpired:
            self.process.kill()
            self.process.wait(10)

    def elements(self):
        """All that the file manager shows."""
        for application in Element(Atspi.get_desktop(0)).children():
            if application.node.get_process_id() == self.process.pid:
                for window in application.children():
                    yield window
                    yield from showing(window)

    def shown(self, title):
        """The middle of the menu item that is called so."""
        for element in self.elements():
            if element.name == title and element.role in ROLES:
                area = element.node.get_extents(Atspi.CoordType.SCREEN)
                if area.width > 0 and area.height > 0 and (area.x, area.y) != (0, 0):
                    return area.x + area.width // 2, area.y + area.height // 2
        return None

    def item(self, *titles):
        """The place of the menu item with one of the titles, once it moves no more; None where it
        does not come up."""
        place = None
        end = time.monotonic() + 4
        while time.monotonic() < end:
            before, place = place, next(filter(None, map(self.shown, titles)), None)
            if place is not None and place == before:
                return place
            time.sleep(0.1)
        return None

    def click(self, place, button=1):
        xdotool("mousemove", *place)
        time.sleep(0.2)
        xdotool("click", button)

    def open_menu(self, place, *titles):
        """Opens the menu at `place`, again while the window is not ready, and returns the place of
        one of the titles in it."""
        for _ in range(5):
            self.click(place, 3)
            found = self.item(*titles)
            if found:
                return found
            xdotool("key", "Escape")
            time.sleep(0.5)
        self.fail(f"no menu with {titles}")

    def choose(self, place):
        """Opens the menu at `place` and clicks the way through it."""
        self.click(self.open_menu(place, self.way[0]))
        for title in self.way[1:]:
            found = self.item(title)
            self.assertIsNotNone(found, f"no item {title}")
            self.click(found)

    def assert_appears(self, file):
        self.assertTrue(eventually(file.exists), f"no {file}")
        self.assertEqual(file.read_bytes(), b"")

    def test_creates_in_the_folder_of_the_window(self):
        self.start()
        self.choose(self.empty_spot)
        self.assert_appears(self.folder / "Untitled.md")

    def test_creates_in_a_folder_that_is_pointed_at(self):
        self.start()
        self.choose(self.icon)
        self.assert_appears(self.inner / "Untitled.md")
        self.assertFalse((self.folder / "Untitled.md").exists())

    def test_has_no_menu_once_that_is_off(self):
        subprocess.run([BLANKWELL, "menus", "off", self.manager], check=True)
        self.start()
        self.open_menu(self.empty_spot, "Properties", "Properties...", "Folder Properties")
        self.assertIsNone(self.shown(self.way[-1]))
        self.assertIsNone(self.shown("Create File"))


class ThunarMenu(FileManagerMenu, unittest.TestCase):
    manager = "thunar"


class NemoMenu(FileManagerMenu, unittest.TestCase):
    manager = "nemo"
    way = ("Create File: Markdown",)
    icon = (266, 160)

    def prepare(self):
        subprocess.run(["gsettings", "set", "org.nemo.preferences", "treat-root-as-normal", "true"],
                       check=True)


class CajaMenu(FileManagerMenu, unittest.TestCase):
    manager = "caja"
    way = ("Scripts", "Create File", "Markdown")
    icon = (268, 180)


if __name__ == "__main__":
    unittest.main()
