"""The bundle as it is installed: what is in it, and that it works wherever it stands."""

import os
import pathlib
import plistlib
import subprocess
import unittest

from blankwell_program import SOURCE, ProgramTestCase

BUILD = pathlib.Path(os.environ["BLANKWELL_BUILD"])
ODD_NAMES = ("a b", "quotes \"'`", "$(touch x) \\ %u", "new\nline", "#;&é+")


class Bundle(ProgramTestCase):
    def setUp(self):
        super().setUp()
        self.bundle = self.folder / "Blankwell+.app"
        subprocess.run(["cmake", "--install", BUILD, "--prefix", self.folder],
                       capture_output=True, check=True)

    def run_command(self, bundle, *arguments):
        return subprocess.run([bundle / "Contents/Linux/blankwell", *arguments], check=False,
                              capture_output=True, env=self.environment, cwd=self.folder)

    def test_is_all_that_is_installed(self):
        self.assertEqual(os.listdir(self.folder), ["Blankwell+.app"])
        self.assertEqual(os.listdir(self.bundle), ["Contents"])
        files = {str(path.relative_to(self.bundle / "Contents"))
                 for path in self.bundle.rglob("*") if path.is_file()}
        self.assertEqual(files, {
            "Info.plist",
            "Linux/blankwell", "Linux/blankwell-plus",
            "Linux/libblankwell-installation.so",
            "Linux/libblankwell-services.so", "Linux/libblankwell-session-bus.so",
            "Linux/libblankwell-uninstaller.so", "Linux/libblankwell-updates.so",
            "Resources/blank.docx", "Resources/blank.pptx", "Resources/blank.xlsx",
            "Resources/completions/_blankwell", "Resources/completions/blankwell.bash",
            "Resources/completions/blankwell.fish",
            "Resources/desktop/app.blankwell.BlankwellPlus.desktop.in",
            "Resources/desktop/app.blankwell.BlankwellPlus.service.in",
            "Resources/icons/app.blankwell.BlankwellPlus.svg",
            "Resources/man/blankwell.1",
        })

    def test_tells_its_identifier_and_versions(self):
        info = plistlib.loads((self.bundle / "Contents/Info.plist").read_bytes())
        self.assertEqual(info["CFBundleIdentifier"], "app.blankwell.BlankwellPlus")
        self.assertRegex(info["CFBundleShortVersionString"], r"^\d+\.\d+\.\d+$")
        self.assertRegex(info["CFBundleVersion"], r"^\d+$")
        version = self.run_command(self.bundle, "--version").stdout.decode()
        self.assertEqual(version, f"blankwell {info['CFBundleShortVersionString']}\n")

    def test_works_wherever_it_is_moved(self):
        (self.folder / "target").mkdir()
        bundle = self.bundle
        for name in ODD_NAMES:
            place = self.folder / name
            place.mkdir()
            bundle = bundle.rename(place / "Blankwell+.app")
            created = self.run_command(bundle, "create", "docx", "target")
            self.assertEqual((created.returncode, created.stderr), (0, b""), name)
            self.assertEqual(pathlib.Path(created.stdout.decode()[:-1]).read_bytes(),
                             (SOURCE / "resources/templates/blank.docx").read_bytes())
            # By way of a module.
            autostart = self.run_command(bundle, "autostart")
            self.assertEqual((autostart.stdout, autostart.stderr), (b"off\n", b""), name)


if __name__ == "__main__":
    unittest.main()
