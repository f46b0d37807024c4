"""What the tests of the program share: running it in a home of its own."""

import os
import pathlib
import subprocess
import tempfile
import unittest

PROGRAM = os.environ["BLANKWELL_PROGRAM"]
SOURCE = pathlib.Path(os.environ["BLANKWELL_SOURCE"])


class ProgramTestCase(unittest.TestCase):
    """A folder to work in and preferences of its own for each test; no display and no session bus."""

    def setUp(self):
        temporary = tempfile.TemporaryDirectory(prefix="blankwell-")
        self.addCleanup(temporary.cleanup)
        self.folder = pathlib.Path(temporary.name) / "work"
        self.folder.mkdir()
        self.config = pathlib.Path(temporary.name) / "config"
        self.environment = {
            "PATH": os.environ["PATH"],
            "HOME": temporary.name,
            "XDG_CONFIG_HOME": str(self.config),
            "PWD": str(self.folder),
        }

    def run_program(self, *arguments, **options):
        options.setdefault("cwd", self.folder)
        options.setdefault("env", self.environment)
        return subprocess.run([PROGRAM, *arguments], capture_output=True, check=False, timeout=60,
                              **options)

    def assert_done(self, result, output=b""):
        self.assertEqual((result.returncode, result.stdout, result.stderr), (0, output, b""))

    def assert_failed(self, result, status, errors):
        self.assertEqual((result.returncode, result.stdout, result.stderr.decode()),
                         (status, b"", errors))

    def sandboxed(self):
        return {**self.environment, "APP_SANDBOX_CONTAINER_ID": "test"}
