"""The whole life of an installation, as a user without rights has it: installed, used, updated, used
again, and removed. What is left then are the user's files and the Trash.

Run by `as-user`, whose bundle, home, display and buses it uses.
"""

import os
import pathlib
import plistlib
import shutil
import subprocess
import sys
import tempfile
import unittest

from gi.repository import GLib

from accessible_application import HOME, MAIN, PATIENCE, ApplicationTestCase
from home_tree import TRASH, tree

BUNDLE = pathlib.Path(os.environ["BLANKWELL_BUNDLE"])
SCRIPTS = pathlib.Path(os.environ["BLANKWELL_SCRIPTS"])
SERVER = pathlib.Path(__file__).parent.parent / "support/https_server.py"
INSTALLED = HOME / "Applications/Blankwell+.app"
COMMAND = HOME / ".local/bin/blankwell"
NAME = "app.blankwell.BlankwellPlus"
UPDATES = "Software Update"


def openssl(*arguments):
    return subprocess.run(["openssl", *arguments], check=True, capture_output=True).stdout


class Maker:
    """Who makes Blankwell+: a key, a web server, and releases on it."""

    def __init__(self, folder):
        self.folder = folder
        self.site = folder / "site"
        self.site.mkdir()
        self.key = folder / "key.pem"
        openssl("genpkey", "-algorithm", "ed25519", "-out", self.key)
        der = openssl("pkey", "-in", self.key, "-pubout", "-outform", "DER")
        encoded = subprocess.run(["base64"], input=der[-32:], check=True, capture_output=True)
        self.public_key = encoded.stdout.decode().strip()
        self.server = subprocess.Popen([sys.executable, "-B", SERVER, self.site], text=True,
                                       stdin=subprocess.PIPE, stdout=subprocess.PIPE)
        self.address = f"https://127.0.0.1:{self.server.stdout.readline().split()[0]}/file"

    def close(self):
        self.server.stdin.close()
        self.server.wait(PATIENCE)
        self.server.stdout.close()

    def make(self, version):
        """A bundle of this version, which takes updates from here."""
        bundle = self.folder / version / "Blankwell+.app"
        shutil.copytree(BUNDLE, bundle, symlinks=True)
        info = bundle / "Contents/Info.plist"
        entries = {**plistlib.loads(info.read_bytes()), "CFBundleVersion": version,
                   "CFBundleShortVersionString": version, "SUPublicEDKey": self.public_key,
                   "SUFeedURL": f"{self.address}/appcast.xml"}
        info.write_bytes(plistlib.dumps(entries))
        return bundle

    def release(self, version):
        subprocess.run([SCRIPTS / "release", self.make(version), self.key, self.address, self.site],
                       check=True, capture_output=True)


class Life(ApplicationTestCase):
    program = INSTALLED / "Contents/Linux/blankwell-plus"

    def setUp(self):
        super().setUp()
        self.mine = HOME / "mine"
        self.mine.mkdir()
        self.before = tree()
        work = tempfile.TemporaryDirectory()
        self.addCleanup(work.cleanup)
        self.maker = Maker(pathlib.Path(work.name))
        self.addCleanup(self.maker.close)
        os.environ["SSL_CERT_FILE"] = str(self.maker.site / "authority.pem")

    def version(self):
        return plistlib.loads((INSTALLED / "Contents/Info.plist").read_bytes())["CFBundleVersion"]

    def is_reachable(self):
        """Whether the process, and no other, has the application's name on the bus."""
        owner, = self.bus.call_sync(
            "org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus",
            "GetConnectionUnixProcessID", GLib.Variant("(s)", (NAME,)), None, 0, -1)
        return owner == self.process.pid

    def create(self, name):
        self.assert_eventually(self.is_reachable, "the application is not on the bus")
        subprocess.run([COMMAND, "open", "md", self.mine], check=True)
        self.assert_eventually((self.mine / name).exists, f"the application creates no {name}")

    def press(self, title):
        """A button of the window in which updates are shown."""
        self.element(self.window(UPDATES), "push button", title).act()

    def runs_from(self, bundle):
        return pathlib.Path(f"/proc/{self.process.pid}/exe").resolve().is_relative_to(bundle)

    def test_leaves_the_users_files_and_the_trash(self):
        bundle = self.maker.make("100")
        self.maker.release("101")
        subprocess.run([bundle / "Contents/Linux/blankwell", "install"], check=True,
                       capture_output=True)
        subprocess.run([COMMAND, "autostart", "on"], check=True)
        main = self.start_main_window()
        self.create("Untitled.md")

        self.element(main, "menu item", "Check for Updates...").act()
        self.press("Install Update")
        self.press("Relaunch Now")
        self.assert_eventually(lambda: self.runs_from(INSTALLED), "the old version runs on")
        self.assertEqual(self.version(), "101")
        self.window(MAIN)
        self.create("Untitled 2.md")

        removed = subprocess.run([COMMAND, "uninstall", "--yes"], check=False, text=True,
                                 capture_output=True)
        self.assertEqual((removed.returncode, removed.stdout, removed.stderr), (0, "", ""))
        self.assertEqual(self.process.wait(PATIENCE), 0)
        trashed = TRASH / "files/Blankwell+.app/Contents/Info.plist"
        self.assertEqual(plistlib.loads(trashed.read_bytes())["CFBundleVersion"], "101")
        self.assertEqual(tree(), {**self.before, "mine/Untitled.md": b"", "mine/Untitled 2.md": b""})


if __name__ == "__main__":
    unittest.main()
