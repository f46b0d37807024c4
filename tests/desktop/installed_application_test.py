"""The application started from its bundle: it makes itself known, and its menus follow the settings.

Run inside of `with-desktop`, whose home, display and buses they use.
"""

import os
import pathlib
import plistlib
import signal
import subprocess
import unittest

from accessible_application import eventually

BUILD = os.environ["BLANKWELL_BUILD"]
HOME = pathlib.Path(os.environ["HOME"])
NAME = "app.blankwell.BlankwellPlus"


class InstalledApplication(unittest.TestCase):
    def setUp(self):
        self.place = HOME / "any place"
        subprocess.run(["cmake", "--install", BUILD, "--prefix", self.place],
                       capture_output=True, check=True)
        self.entry = HOME / f".local/share/applications/{NAME}.desktop"
        self.scripts = HOME / ".config/caja/scripts/Create File"

    def start(self):
        program = self.place / "Blankwell+.app/Contents/Linux/blankwell-plus"
        process = subprocess.Popen([program, "--background"], stderr=subprocess.DEVNULL)
        self.addCleanup(self.stop, process)
        return process

    def stop(self, process):
        process.send_signal(signal.SIGTERM)
        process.wait(20)

    def menu(self):
        return sorted(os.listdir(self.scripts)) if self.scripts.exists() else []

    def test_mends_a_missing_registration_also_after_a_move(self):
        first = self.start()
        self.assertTrue(eventually(lambda: len(self.menu()) == 16))
        self.assertIn(f'Exec="{self.place}/', self.entry.read_text())
        self.stop(first)
        self.place = self.place.rename(HOME / "moved")
        self.start()
        self.assertTrue(eventually(lambda: f'Exec="{self.place}/' in self.entry.read_text()))

    def test_its_menus_follow_the_settings(self):
        self.start()
        self.assertTrue(eventually(lambda: len(self.menu()) == 16))
        domain = HOME / f".config/BLNKWLPLUS.{NAME}.plist"
        stored = plistlib.loads(domain.read_bytes()) if domain.exists() else {}
        changed = domain.with_suffix(".changed")
        changed.write_bytes(plistlib.dumps({**stored, "enabledFileTypeIDs": ["md", "txt"]}))
        changed.rename(domain)
        self.assertTrue(eventually(lambda: self.menu() == ["Markdown", "Text"]))


if __name__ == "__main__":
    unittest.main()
