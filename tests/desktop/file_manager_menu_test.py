"""The menu "Create File" in real file managers: opened and clicked with the pointer.

Run inside of `with-desktop`, whose home, display and buses they use.
"""

import os
import pathlib
import re
import signal
import subprocess
import time
import unittest

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

from accessible_application import Element, eventually  # noqa: E402

BLANKWELL = os.environ["BLANKWELL_PROGRAM"]
HOME = pathlib.Path(os.environ["HOME"])
FOLDER_NAME = "it's a \"dir\" %41 & #é"
ROLES = ("menu", "menu item")
FOCUSED = Atspi.StateType.FOCUSED
#: A window of Nautilus that no window manager has put into a frame: width, height, place.
MENU_WINDOW = re.compile(r'\("org\.gnome\.Nautilus" "[^"]*"\)  (\d+)x(\d+)\+(\d+)\+(\d+) ')


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


def middle_of(element, height=0.5):
    """Where the element's middle is on the screen, at this share of its height; None where it is
    not."""
    area = element.node.get_extents(Atspi.CoordType.SCREEN)
    if area.width <= 0 or area.height <= 0 or (area.x, area.y) == (0, 0):
        return None
    return area.x + area.width // 2, area.y + int(area.height * height)


def settled(look, patience):
    """What `look` returns once it is the same for a while; None where that does not come to be."""
    seen = since = None
    end = time.monotonic() + patience
    while time.monotonic() < end:
        before, seen = seen, look()
        if seen is None or seen != before:
            since = time.monotonic()
        elif time.monotonic() - since > 0.5:
            return seen
        time.sleep(0.05)
    return None


class Heard:
    """The elements of which changes of their state are told: the last ones that came to be so."""

    def __init__(self, *kinds):
        self.elements = []
        self.listener = Atspi.EventListener.new(self.hear)
        for kind in kinds:
            self.listener.register(kind)

    def hear(self, event):
        element = Element(event.source)
        self.elements = [other for other in self.elements if other.node != event.source]
        if event.detail1:
            self.elements.append(element)

    def now(self, role):
        """Those of the role, the latest last."""
        while GLib.MainContext.default().iteration(False):
            pass
        return [element for element in self.elements if element.role == role]


class FileManagerMenu:
    """What every file manager has to do; a class below says which."""

    manager = ""
    #: The titles to go through, from the menu to the item.
    way = ("Create File", "Markdown")
    #: Where the only icon of the folder is, which no file manager tells, and where nothing is.
    icon = (230, 190)
    empty_spot = (600, 420)
    #: What only the menu of the icon has: before the folder is read, there is none.
    icon_item = "Open"

    def setUp(self):
        self.folder = HOME / FOLDER_NAME
        self.inner = self.folder / "inner"
        self.inner.mkdir(parents=True)
        self.prepare()
        subprocess.run([BLANKWELL, "menus", "on", self.manager], check=True)

    def prepare(self):
        """What the file manager needs beforehand."""

    def start(self, *arguments, is_accessible=True):
        """Starts the file manager with the arguments; with the folder where there are none."""
        environment = {**os.environ}
        if is_accessible:
            environment["QT_LINUX_ACCESSIBILITY_ALWAYS_ON"] = "1"
            del environment["NO_AT_BRIDGE"], environment["GTK_A11Y"]
        self.heard = Heard("object:state-changed:showing", "object:state-changed:focused")
        self.process = subprocess.Popen([self.manager, *(arguments or [self.folder])], env=environment,
                                        stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        self.addCleanup(self.stop)
        windows = eventually(lambda: windows_titled("it's a"))
        self.assertTrue(windows, "no window")
        self.window = windows[-1]
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

    def items(self):
        """The items of the menus that are open."""
        return [element for element in self.elements() if element.role in ROLES]

    def shown(self, title):
        """The middle of the menu item that is called so."""
        return next((middle_of(element) for element in self.items()
                     if element.name == title and middle_of(element)), None)

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

    def open_menu(self, place, *titles, beside=None):
        """Opens the menu at `place`, again while the window is not ready or does not have the item
        `beside` in it, and returns the place of one of the titles in it."""
        for _ in range(5):
            self.click(place, 3)
            found = self.item(*titles)
            names = [element.name for element in self.items()]
            if found and (beside is None or beside in names):
                return found
            xdotool("key", "Escape")
            time.sleep(0.5)
        self.fail(f"no menu with {titles}")

    def choose(self, place, beside=None):
        """Opens the menu at `place` and clicks the way through it."""
        self.click(self.open_menu(place, self.way[0], beside=beside))
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
        self.choose(self.icon, self.icon_item)
        self.assert_appears(self.inner / "Untitled.md")
        self.assertFalse((self.folder / "Untitled.md").exists())

    def test_has_no_menu_once_that_is_off(self):
        subprocess.run([BLANKWELL, "menus", "off", self.manager], check=True)
        self.start()
        self.open_menu(self.empty_spot, "Properties", "Properties...", "Folder Properties")
        titles = [element.name for element in self.items()]
        self.assertEqual([title for title in titles if title.startswith("Create File")], [])
        self.assertNotIn(self.way[-1], titles)


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


class QtMenu(FileManagerMenu):
    """Menus of Qt belong to no window, but they say that they come up. The icon is known, too."""

    icon_item = None
    icon_role = ""
    #: How far down in its cell it can be clicked.
    icon_height = 0.5

    @property
    def icon(self):
        """Where it is once it moves no more."""
        place = settled(lambda: next(
            (middle_of(element, self.icon_height) for element in self.elements()
             if (element.name, element.role) == ("inner", self.icon_role)), None), 20)
        self.assertIsNotNone(place, "no icon")
        return place

    def items(self):
        return [item for menu in self.heard.now("popup menu") for item in menu.children()
                if item.role in ROLES]


class DolphinMenu(QtMenu, unittest.TestCase):
    manager = "dolphin"
    icon_role = "table cell"
    icon_height = 0.88  # its name: without a theme there is no picture


class PcmanfmQtMenu(QtMenu, unittest.TestCase):
    manager = "pcmanfm-qt"
    icon_role = "list item"


class NautilusMenu(FileManagerMenu, unittest.TestCase):
    """Nautilus does not tell where something is on the screen, but which item has the pointer."""

    manager = "nautilus"
    icon = (358, 150)
    #: How far apart the places are at which an item is looked for: less than its height.
    step = 10

    def items(self):
        """Of the whole menu that the last item with the pointer or the keyboard belongs to."""
        focused = self.heard.now("menu item")
        if not focused:
            return []
        top = focused[-1]
        for _ in range(3):
            top = Element(top.node.get_parent())
        return [element for element in top.everything() if element.role in ROLES]

    def menu_area(self):
        """The place and size of the window of the menu, which is above all others."""
        tree = subprocess.run(["xwininfo", "-root", "-children"], capture_output=True, check=True,
                              text=True).stdout
        for found in MENU_WINDOW.finditer(tree):
            width, height, x, y = map(int, found.groups())
            if width > 1:
                return x, y, width, height
        return None

    def has_pointer(self, titles):
        focused = self.heard.now("menu item")
        return bool(focused) and focused[-1].name in titles and focused[-1].has(FOCUSED)

    def item(self, *titles):
        """Goes down the menu with the pointer until one of the items has it, more than once where
        the menu still changes."""
        for _ in range(3):
            x, y, width, height = eventually(self.menu_area, 4) or (0, 0, 0, 0)
            for place in range(y, y + height, self.step):
                xdotool("mousemove", "--sync", x + width // 2, place)
                if eventually(lambda: self.has_pointer(titles), 0.2):
                    return x + width // 2, place
        return None


if __name__ == "__main__":
    unittest.main()
