"""The application removes itself from where it was installed, as a user asks for it.

Run inside of `with-desktop` and `with-account-home`, whose home, display and buses they use.
"""

import os
import pathlib
import subprocess
import unittest

from accessible_application import HOME, PATIENCE, ApplicationTestCase

BUILD = os.environ["BLANKWELL_BUILD"]
NAME = "app.blankwell.BlankwellPlus"
TRASH = HOME / ".local/share/Trash"


def kept():
    """What stands in the home, but for the Trash and what may always be thrown away."""
    passing = {TRASH, HOME / ".cache", HOME / ".config/dconf", HOME / ".local/share/gvfs-metadata"}
    return {path.relative_to(HOME) for path in HOME.rglob("*")
            if path.is_file() and not passing.intersection(path.parents)}


class Uninstalling(ApplicationTestCase):
    def setUp(self):
        super().setUp()
        self.before = kept()
        place = HOME / 'my "apps"'
        subprocess.run(["cmake", "--install", BUILD, "--prefix", place],
                       capture_output=True, check=True)
        self.bundle = place / "Blankwell+.app"
        self.program = self.bundle / "Contents/Linux/blankwell-plus"

    def run_command(self, *arguments):
        subprocess.run([self.bundle / "Contents/Linux/blankwell", *arguments], check=True,
                       capture_output=True)

    def press(self, window, title):
        self.element(window, "push button", title).act()

    def test_leaves_nothing_but_the_users_files_and_the_trash(self):
        self.run_command("autostart", "on")
        mine = HOME / "mine"
        mine.mkdir()
        self.run_command("create", "md", mine)
        main = self.start_main_window()
        entry = HOME / f".local/share/applications/{NAME}.desktop"
        self.assert_eventually(entry.exists, "the application does not register itself")
        self.press(main, "Uninstall...")
        self.press(self.window("Uninstall Blankwell+?"), "Uninstall")
        self.assertEqual(self.process.wait(PATIENCE), 0)
        self.assertFalse(self.bundle.exists())
        self.assertTrue((TRASH / "files/Blankwell+.app/Contents/Info.plist").exists())
        self.assertEqual(kept(), self.before | {pathlib.Path("mine/Untitled.md")})

    def test_keeps_everything_where_there_is_no_trash(self):
        main = self.start_main_window()
        TRASH.parent.mkdir(parents=True, exist_ok=True)
        TRASH.write_text("in the way")
        self.addCleanup(TRASH.unlink)
        self.press(main, "Uninstall...")
        self.press(self.window("Uninstall Blankwell+?"), "Uninstall")
        alert = self.window("Could not uninstall Blankwell+")
        reasons = next(name for role, name in alert.read()
                       if name.startswith("Blankwell+ could not be moved to the Trash."))
        lines = [line.partition(":")[0] for line in reasons.splitlines()[2:5]]
        self.assertEqual(lines, ["FileManager", "NSWorkspace", "Finder"])
        self.press(alert, "OK")
        self.assertTrue(self.program.exists())
        self.assertTrue(self.stored("hasCompletedOnboarding"))


if __name__ == "__main__":
    unittest.main()
