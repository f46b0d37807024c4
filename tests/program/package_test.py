"""What is given to users: the archive and the Debian package."""

import os
import pathlib
import shutil
import subprocess
import tempfile
import unittest

BUILD = pathlib.Path(os.environ["BLANKWELL_BUILD"])
SOURCE = pathlib.Path(os.environ["BLANKWELL_SOURCE"])
NAME = "app.blankwell.BlankwellPlus"


#: What is tested is not how small they get.
FAST = {"ZSTD_CLEVEL": "1", "DPKG_DEB_COMPRESSOR_TYPE": "gzip", "DPKG_DEB_COMPRESSOR_LEVEL": "1"}


def run(*command):
    return subprocess.run(command, capture_output=True, check=True, text=True,
                          env={**os.environ, **FAST}).stdout


class Packages(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        temporary = tempfile.TemporaryDirectory(prefix="blankwell-")
        cls.addClassCleanup(temporary.cleanup)
        cls.folder = pathlib.Path(temporary.name)
        made = run(SOURCE / "scripts/package", "--build", BUILD, cls.folder / "made")
        cls.bundle, cls.archive, cls.package = map(pathlib.Path, made.splitlines())
        cls.root = cls.folder / "root"
        run("dpkg-deb", "--raw-extract", cls.package, cls.root)

    def test_hold_a_working_bundle_that_whoever_validates_them_accepts(self):
        with self.subTest("archive"):
            run("tar", "--extract", "--zstd", "--file", self.archive, "--directory", self.folder)
            unpacked = self.folder / "Blankwell+.app"
            self.assertEqual({str(path.relative_to(unpacked)) for path in unpacked.rglob("*")},
                             {str(path.relative_to(self.bundle))
                              for path in self.bundle.rglob("*")})
            self.assertRegex(run(unpacked / "Contents/Linux/blankwell", "--version"),
                             r"^blankwell \d")
            names = run("tar", "--list", "--verbose", "--zstd", "--file", self.archive)
            self.assertTrue(all(" 0/0 " in line for line in names.splitlines()))
        with self.subTest("programs on the path"):
            for name in ("blankwell", "blankwell-plus"):
                self.assertRegex(run(self.root / "usr/bin" / name, "--version"), rf"^{name} \d")
        share = self.root / "usr/share"
        with self.subTest("desktop entry"):
            entry = share / f"applications/{NAME}.desktop"
            run("desktop-file-validate", entry)
            self.assertIn("\nExec=/usr/bin/blankwell-plus %u\n", entry.read_text())
        with self.subTest("D-Bus service"):
            self.assertIn("\nExec=/usr/bin/blankwell-plus --background\n",
                          (share / f"dbus-1/services/{NAME}.service").read_text())
        with self.subTest("AppStream"):
            run("appstreamcli", "validate", "--no-net", share / f"metainfo/{NAME}.metainfo.xml")
        with self.subTest("fields"):
            self.assertEqual(run("dpkg-deb", "--field", self.package, "Package").strip(),
                             "blankwell-plus")
            depends = run("dpkg-deb", "--field", self.package, "Depends")
            for library in ("libc6", "libqt6widgets6", "libpugixml1v5", "libplist3"):
                self.assertRegex(depends, rf"\b{library} \(>= \d")
            self.assertNotIn("extension", depends)
        with self.subTest("extensions of file managers"):
            for manager, version in (("nautilus", "4"), ("nemo", "3.0"), ("caja", "2.0")):
                found = list(self.root.glob(f"usr/lib/*/{manager}/extensions-{version}/"
                                            f"libblankwell-plus-{manager}.so"))
                self.assertEqual(len(found), 1, manager)
        with self.subTest("files"):
            subprocess.run(["md5sum", "--check", "--quiet", "DEBIAN/md5sums"], check=True,
                           cwd=self.root)
            listed = [line.split(maxsplit=5) for line in
                      run("dpkg-deb", "--contents", self.package).splitlines()]
            for mode, owner, *_, name in listed:
                self.assertEqual(owner, "root/root", name)
                self.assertRegex(mode, "^(drwxr-xr-x|-rw-r--r--|-rwxr-xr-x|lrwxrwxrwx)$", name)
                self.assertRegex(name, r"^\./(usr/|$)")
        with self.subTest("installed and removed"):
            self.install_and_remove()

    def install_and_remove(self):
        """In a folder that has the records of the system's packages, so that those count which the
        package depends on. What is told of them there is that their lists of files are missing."""
        system = self.folder / "system"
        records = system / "var/lib/dpkg"
        for folder in ("info", "updates", "triggers"):
            (records / folder).mkdir(parents=True)
        shutil.copy("/var/lib/dpkg/status", records)
        dpkg = ("unshare", "--map-root-user", "dpkg", "--root", system, "--log=/dev/null",
                "--force-bad-path")
        run(*dpkg, "--install", self.package)
        programs = system / "usr/bin"
        self.assertRegex(run(programs / "blankwell", "--version"), r"^blankwell \d")
        self.assertRegex(run(programs / "blankwell-plus", "--version"), r"^blankwell-plus \d")
        self.assertEqual(run(*dpkg, "--verify", "blankwell-plus"), "")
        run(*dpkg, "--purge", "blankwell-plus")
        self.assertEqual(os.listdir(system), ["var"])


if __name__ == "__main__":
    unittest.main()
