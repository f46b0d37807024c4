"""What the application says without running."""

import os
import subprocess
import unittest

APPLICATION = os.environ["BLANKWELL_APPLICATION"]


class Application(unittest.TestCase):
    def test_output_that_nobody_takes_is_a_failure(self):
        for option in ("--version", "--help"):
            with open("/dev/full", "wb") as full:
                result = subprocess.run([APPLICATION, option], stdout=full, check=False,
                                        stderr=subprocess.PIPE, timeout=60)
            self.assertEqual((result.returncode, result.stderr),
                             (1, b"blankwell-plus: Could not write to standard output.\n"))

    def test_needs_no_display_to_tell_its_version(self):
        result = subprocess.run([APPLICATION, "--version"], capture_output=True, check=True, env={})
        self.assertRegex(result.stdout, rb"^blankwell-plus \d+\.\d+\.\d+\n$")


if __name__ == "__main__":
    unittest.main()
