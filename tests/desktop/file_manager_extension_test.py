"""The extensions of Nautilus, Nemo and Caja: their menu, and the folder that they tell of each window.

Run inside of `with-extensions` and `with-desktop`, whose mounts, home, display and buses they use.
"""

import pathlib
import subprocess
import unittest

from accessible_application import eventually, press_keys
from file_manager_menu_test import BLANKWELL, HOME, CajaMenu, NautilusMenu, NemoMenu


class FileManagerExtension:
    """What every extension has to do, besides what a menu has to."""

    way = ("Create File", "Markdown")

    def test_makes_the_only_menu(self):
        self.assertTrue((HOME / ".local/share/blankwell-plus/menus" / self.manager).exists())
        for place in (".local/share/nautilus-python", ".local/share/nemo/actions",
                      ".config/caja/scripts/Create File"):
            self.assertFalse((HOME / place).exists(), place)
        self.start()
        self.open_menu(self.empty_spot, "Create File")
        self.assertEqual([element.name for element in self.items()
                          if element.name.startswith("Create File")], ["Create File"])


class FrontFolder:
    """What extensions do that tell the folder of each window."""

    def created_in(self):
        """The folder in which a file is created in front; None where that is not known yet."""
        done = subprocess.run([BLANKWELL, "create", "md", "--front"], capture_output=True,
                              check=False, text=True)
        return pathlib.Path(done.stdout.strip()).parent if done.returncode == 0 else None

    def assert_front(self, folder):
        eventually(lambda: self.created_in() == folder)
        self.assertEqual(self.created_in(), folder)

    def test_tells_the_folder_in_front(self):
        self.start(is_accessible=False)  # nobody but the extension tells
        self.assert_front(self.folder)
        press_keys("alt+Up")
        self.assert_front(HOME)

    def test_tells_the_tab_in_front(self):
        other = HOME / "it's a second one"
        other.mkdir()
        self.start("--tabs", self.folder, other, is_accessible=False)
        eventually(lambda: self.created_in() in (self.folder, other))
        first = self.created_in()
        self.assertIsNotNone(first, "no folder in front")
        second = {self.folder: other, other: self.folder}[first]
        self.turn_to(second, "ctrl+Page_Down", "ctrl+Page_Up")
        self.turn_to(first, "ctrl+Page_Down", "ctrl+Page_Up")

    def turn_to(self, folder, *ways):
        """Turns to the folder by one of the keys, again while it is not open yet."""
        for _ in range(10):
            for keys in ways:
                press_keys(keys)
                if eventually(lambda: self.created_in() == folder, 2):
                    return
        self.fail(f"{folder} is not in front")

    def test_tells_the_half_in_front(self):
        self.start(is_accessible=False)  # nobody but the extension tells
        self.assert_front(self.folder)
        press_keys("F3")
        press_keys("alt+Up")
        # Either of the halves went up.
        for folder in (HOME, self.folder, HOME):
            self.turn_to(folder, "F6")


class NautilusExtension(FileManagerExtension, NautilusMenu, unittest.TestCase):
    pass


class NemoExtension(FileManagerExtension, FrontFolder, NemoMenu, unittest.TestCase):
    pass


class CajaExtension(FileManagerExtension, FrontFolder, CajaMenu, unittest.TestCase):
    pass


if __name__ == "__main__":
    unittest.main()
