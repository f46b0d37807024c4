"""Installing into the folders of a user: what is there afterwards, and that all of it goes again."""

import configparser
import os
import pathlib
import shlex
import shutil
import subprocess
import unittest

from blankwell_program import ProgramTestCase

BUILD = pathlib.Path(os.environ["BLANKWELL_BUILD"])
NAME = "app.blankwell.BlankwellPlus"
FILE_MANAGERS = ("dolphin", "thunar", "nemo", "caja", "pcmanfm-qt")
ODD_PLACE = "a 'b' \"100%f\"\n$x\\y"
USERS_ACTIONS = ('<?xml version="1.0" encoding="UTF-8"?>\n<actions>\n<action>\n'
                 '\t<name>Größe &amp; mehr</name>\n\t<unique-id>1-1</unique-id>\n'
                 '\t<command>echo %f</command>\n\t<directories/>\n</action>\n</actions>\n')


def unescaped(value):
    """The value of a key of a desktop entry."""
    return value.replace("\\\\", "\0").replace("\\n", "\n").replace("\0", "\\")


class Installation(ProgramTestCase):
    def setUp(self):
        super().setUp()
        self.home = self.folder.parent
        self.data = self.home / ".local/share"
        # Some file managers, whatever this machine has.
        programs = self.home / "programs"
        programs.mkdir()
        for name in FILE_MANAGERS:
            (programs / name).write_text("#!/bin/sh\n")
            (programs / name).chmod(0o755)
        self.environment["PATH"] = str(programs)
        subprocess.run(["cmake", "--install", BUILD, "--prefix", self.folder],
                       capture_output=True, check=True)
        self.bundle = self.folder / "Blankwell+.app"

    def run_in(self, bundle, *arguments):
        return subprocess.run([bundle / "Contents/Linux/blankwell", *arguments], check=False,
                              capture_output=True, env=self.environment, cwd=self.folder)

    def install(self, *arguments, bundle=None):
        result = self.run_in(bundle or self.bundle, "install", *arguments)
        self.assertEqual((result.returncode, result.stderr), (0, b""))
        return pathlib.Path(result.stdout.decode()[:-1])

    def tree(self):
        """Every file of the home with its contents, but for bundles and the preferences."""
        found = {}
        for path in self.home.rglob("*"):
            relative = path.relative_to(self.home)
            if not any(part.endswith(".app") for part in relative.parts) \
                    and ".plist" not in relative.name and relative.parts[0] != "Applications":
                found[str(relative)] = path.read_bytes() if path.is_file() else None
        return found

    def exec_line(self, file):
        parser = configparser.RawConfigParser(strict=False)
        parser.optionxform = str
        parser.read(file)
        return unescaped(parser.get(parser.sections()[0], "Exec"))

    def test_copies_the_bundle_into_the_applications_of_the_home(self):
        bundle = self.install()
        self.assertEqual(bundle, self.home / "Applications/Blankwell+.app")
        self.assertEqual((bundle / "Contents/Info.plist").read_bytes(),
                         (self.bundle / "Contents/Info.plist").read_bytes())

    def test_makes_the_application_known(self):
        bundle = self.install()
        program = str(bundle / "Contents/Linux/blankwell-plus")
        entry = self.data / f"applications/{NAME}.desktop"
        subprocess.run(["/usr/bin/desktop-file-validate", entry], check=True)
        self.assertEqual(shlex.split(self.exec_line(entry)), [program, "%u"])
        service = self.data / f"dbus-1/services/{NAME}.service"
        self.assertEqual(shlex.split(self.exec_line(service)), [program, "--background"])
        handler = subprocess.run(
            ["/usr/bin/gio", "mime", "x-scheme-handler/blankwellplus"], capture_output=True,
            check=True, text=True,
            env={"HOME": str(self.home), "XDG_CONFIG_HOME": str(self.config), "LC_ALL": "C"})
        self.assertIn(f"{NAME}.desktop", handler.stdout.splitlines()[0])
        for link in ("../bin/blankwell", "man/man1/blankwell.1",
                     f"icons/hicolor/scalable/apps/{NAME}.svg",
                     "bash-completion/completions/blankwell", "zsh/site-functions/_blankwell",
                     "fish/vendor_completions.d/blankwell.fish"):
            self.assertIn(bundle, (self.data / link).resolve().parents, link)
        version = subprocess.run([self.home / ".local/bin/blankwell", "--version"],
                                 env=self.environment, capture_output=True, check=True)
        self.assertRegex(version.stdout, rb"^blankwell \d")

    def test_gives_the_file_managers_their_menus(self):
        self.install()
        listed = self.run_in(self.bundle, "menus").stdout.decode().splitlines()
        self.assertEqual([line.split() for line in listed][1:],
                         [[name, "on"] for name in FILE_MANAGERS])

    def test_again_changes_nothing(self):
        self.install()
        before = self.tree()
        self.install()
        self.install(bundle=self.home / "Applications/Blankwell+.app")
        self.assertEqual(self.tree(), before)

    def test_works_from_any_place(self):
        bundle = self.install("--to", str(self.folder / ODD_PLACE))
        self.assertEqual(bundle, self.folder / ODD_PLACE / "Blankwell+.app")
        entry = self.data / f"applications/{NAME}.desktop"
        subprocess.run(["/usr/bin/desktop-file-validate", entry], check=True)
        self.assertIn("100%%f", entry.read_text())
        # What a menu runs, here as a shell takes it.
        script = self.home / "config/caja/scripts/Create File/Markdown"
        result = subprocess.run([script], cwd=self.folder, capture_output=True, check=False,
                                env={**self.environment,
                                     "CAJA_SCRIPT_CURRENT_URI": f"file://{self.folder}"})
        self.assertEqual((result.returncode, result.stderr), (0, b""))
        self.assertTrue((self.folder / "Untitled.md").exists())

    def test_a_bundle_that_moved_is_mended_where_it_is(self):
        bundle = self.install()
        moved = self.home / "moved"
        moved.mkdir()
        bundle = bundle.rename(moved / "Blankwell+.app")
        self.assertEqual(self.install("--to", str(moved), bundle=bundle), bundle)
        entry = self.data / f"applications/{NAME}.desktop"
        self.assertIn(f'"{moved}/Blankwell+.app/Contents/', entry.read_text())
        self.assertEqual((self.home / ".local/bin/blankwell").resolve(),
                         bundle / "Contents/Linux/blankwell")
        self.assertNotIn("Applications", (self.config / "Thunar/uca.xml").read_text())

    def test_a_bundle_that_moved_is_not_copied_again(self):
        bundle = self.install().rename(self.home / "Blankwell+.app")
        self.assertEqual(self.install(bundle=bundle), bundle)
        self.assertFalse((self.home / "Applications/Blankwell+.app").exists())
        self.assertEqual((self.home / ".local/bin/blankwell").resolve(),
                         bundle / "Contents/Linux/blankwell")

    def test_a_new_bundle_is_copied_though_the_old_one_was_thrown_away(self):
        shutil.rmtree(self.install())
        self.assertEqual(self.install(), self.home / "Applications/Blankwell+.app")

    def test_unregistering_leaves_what_was_there_before(self):
        (self.config / "Thunar").mkdir(parents=True)
        (self.config / "Thunar/uca.xml").write_text(USERS_ACTIONS)
        (self.config / "mimeapps.list").write_text("[Added Associations]\ntext/plain=x.desktop\n")
        before = self.tree()
        self.install()
        self.assertNotEqual(self.tree(), before)
        self.assert_done(self.run_in(self.bundle, "unregister"))
        self.assertEqual(self.tree(), before)
        self.assert_done(self.run_in(self.bundle, "unregister"))

    def test_menus_come_and_go_one_by_one(self):
        self.install()
        with_all = self.tree()
        for name in FILE_MANAGERS:
            self.assert_done(self.run_in(self.bundle, "menus", "off", name))
        off = [line for line in self.run_in(self.bundle, "menus").stdout.decode().splitlines()
               if line.endswith(" off")]
        self.assertEqual(len(off), len(FILE_MANAGERS))
        self.assertFalse([path for path in self.tree()
                          if "actions" in path or "scripts" in path or "uca.xml" in path
                          or "servicemenus" in path])
        # An installation does not bring back what was switched off.
        self.install()
        self.assertFalse((self.config / "Thunar").exists())
        bundle = self.home / "Applications/Blankwell+.app"
        self.assert_done(self.run_in(bundle, "menus", "on", *FILE_MANAGERS))
        self.assertEqual(self.tree(), with_all)

    def test_a_file_of_somebody_else_stays_and_is_told(self):
        theirs = self.home / ".local/bin/blankwell"
        theirs.parent.mkdir(parents=True)
        theirs.write_text("theirs")
        result = self.run_in(self.bundle, "install")
        self.assertEqual(result.returncode, 1)
        self.assertEqual(result.stderr.decode(),
                         f'"{theirs}" was not made by Blankwell+, and stays as it is.\n')
        self.assertEqual(theirs.read_text(), "theirs")
        self.assertTrue((self.data / f"applications/{NAME}.desktop").exists())
        self.assert_done(self.run_in(self.bundle, "unregister"))
        self.assertEqual(theirs.read_text(), "theirs")


if __name__ == "__main__":
    unittest.main()
