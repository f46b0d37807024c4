"""`blankwell uninstall` as a user runs it: what it asks, what it ends, and from where it works.

Run by `as-user`, whose bundle, home, display and buses it uses.
"""

import fcntl
import os
import pathlib
import pty
import select
import signal
import subprocess
import time
import unittest

from accessible_application import HOME, PATIENCE, ApplicationTestCase
from home_tree import tree

BUNDLE = pathlib.Path(os.environ["BLANKWELL_BUNDLE"])
NAME = "app.blankwell.BlankwellPlus"
QUESTION = """Uninstall Blankwell+?
This will move Blankwell+ to the Trash, remove saved Blankwell+ settings, and restart Finder so the Finder \
extension is unloaded.

Files you created with Blankwell+ will not be removed.

Uninstall? [y/N] """


class Terminal:
    """A command with a terminal of its own."""

    def __init__(self, *command):
        self.process, self.end = pty.fork()
        if self.process == 0:
            os.execv(command[0], command)
        self.shown = ""

    def read_until(self, text):
        """Whether `text` comes up; of a terminal that closes, whether it has come up."""
        end = time.monotonic() + PATIENCE
        while text not in self.shown and time.monotonic() < end:
            if select.select([self.end], [], [], 0.1)[0]:
                try:
                    self.shown += os.read(self.end, 4096).decode().replace("\r\n", "\n")
                except OSError:  # the other side is closed
                    break
        return text in self.shown

    def answer(self, line):
        """Types `line` and returns the exit status."""
        os.write(self.end, line.encode() + b"\n")
        self.read_until("\0")
        os.close(self.end)
        return os.waitstatus_to_exitcode(os.waitpid(self.process, 0)[1])


class UninstallCommand(ApplicationTestCase):
    def setUp(self):
        super().setUp()
        self.before = tree()
        self.install()

    def install(self, *arguments):
        done = subprocess.run([BUNDLE / "Contents/Linux/blankwell", "install", *arguments],
                              check=True, capture_output=True)
        self.bundle = pathlib.Path(os.fsdecode(done.stdout)[:-1])
        self.program = self.bundle / "Contents/Linux/blankwell-plus"
        self.command = self.bundle / "Contents/Linux/blankwell"

    def uninstall(self, *arguments):
        done = subprocess.run([self.command, "uninstall", *arguments], check=False, text=True,
                              stdin=subprocess.DEVNULL, capture_output=True)
        self.assertEqual(done.stdout, "")
        return done.returncode, done.stderr

    def is_in_use(self):
        """Whether a process runs from the bundle."""
        folder = os.open(self.bundle, os.O_RDONLY)
        try:
            fcntl.flock(folder, fcntl.LOCK_EX | fcntl.LOCK_NB)
        except BlockingIOError:
            return True
        finally:
            os.close(folder)
        return False

    def test_asks_in_the_terminal_and_takes_only_a_yes(self):
        installed = tree()
        for answer in ("n", ""):
            terminal = Terminal(self.command, "uninstall")
            self.assertTrue(terminal.read_until("[y/N] "), terminal.shown)
            self.assertEqual(terminal.shown, QUESTION)
            self.assertEqual(terminal.answer(answer), 1)
            self.assertTrue(terminal.shown.endswith("\nNothing was removed.\n"), terminal.shown)
            self.assertEqual(tree(), installed)
        terminal = Terminal(self.command, "uninstall")
        self.assertTrue(terminal.read_until("[y/N] "))
        self.assertEqual(terminal.answer("y"), 0)
        self.assertEqual(tree(), self.before)

    def test_without_a_terminal_it_refuses(self):
        installed = tree()
        status, errors = self.uninstall()
        self.assertEqual(status, 1)
        self.assertIn("'blankwell uninstall --yes' removes it unasked.", errors)
        self.assertEqual(tree(), installed)

    def test_ends_the_running_application_first(self):
        self.start_main_window()
        self.assertEqual(self.uninstall("--yes"), (0, ""))
        self.assertEqual(self.process.wait(PATIENCE), 0)
        self.assertEqual(tree(), self.before)

    def test_removes_nothing_while_the_application_does_not_end(self):
        self.start_main_window()
        self.process.send_signal(signal.SIGSTOP)
        installed = tree()
        try:
            status, errors = self.uninstall("--yes")
        finally:
            self.process.send_signal(signal.SIGCONT)
        self.assertEqual(status, 1)
        self.assertTrue(errors.startswith("Could not uninstall Blankwell+\n"
                                          "Blankwell+ is running and does not quit.\n"), errors)
        self.assertEqual(tree(), installed)

    def test_tells_of_an_application_in_another_session(self):
        environment = {**os.environ, "DBUS_SESSION_BUS_ADDRESS": "unix:path=/nowhere"}
        other = subprocess.Popen([self.program, "--background"], env=environment,
                                 stderr=subprocess.DEVNULL)
        self.addCleanup(other.wait, PATIENCE)
        self.addCleanup(other.terminate)
        self.assert_eventually(self.is_in_use, "it does not run")
        status, errors = self.uninstall("--yes")
        self.assertEqual(status, 1)
        self.assertIn("Blankwell+ runs in another session.", errors)
        self.assertTrue(self.program.exists())

    def test_logs_what_it_does(self):
        status, errors = self.uninstall("--yes", "--verbose")
        self.assertEqual(status, 0)
        lines = [line.partition("[Uninstaller] ")[2] for line in errors.splitlines()
                 if "[Uninstaller]" in line]
        self.assertEqual(lines, [f"Starting uninstall for {self.bundle}",
                                 f"Moved Blankwell+ to Trash at {self.bundle}"])


class OddPlace(UninstallCommand):
    """A bundle in a folder whose name is hard to hand on."""

    PLACE = "a 'b' \"c\" 100%f\n$x\\y"

    def install(self):
        super().install("--to", HOME / self.PLACE)

    def test_is_started_by_the_bus_and_its_menus_create(self):
        bus = ["gdbus", "call", "--session", "--dest"]
        subprocess.run([*bus, "org.freedesktop.DBus", "--object-path", "/org/freedesktop/DBus",
                        "--method", "org.freedesktop.DBus.ReloadConfig"], check=True,
                       capture_output=True)
        folder = HOME / "work"
        folder.mkdir()
        script = HOME / ".config/caja/scripts/Create File/Markdown"
        environment = {**os.environ, "CAJA_SCRIPT_CURRENT_URI": folder.as_uri()}
        subprocess.run([script], cwd=folder, env=environment, check=True)
        self.assert_eventually((folder / "Untitled.md").exists, "the menu creates nothing")
        owner = subprocess.run([*bus, "org.freedesktop.DBus", "--object-path",
                                "/org/freedesktop/DBus", "--method",
                                "org.freedesktop.DBus.GetConnectionUnixProcessID", NAME],
                               check=True, capture_output=True, text=True).stdout
        process = owner.split()[1].rstrip(",)")
        self.assertEqual(pathlib.Path(f"/proc/{process}/exe").readlink(), self.program)
        self.assertEqual(self.uninstall("--yes"), (0, ""))
        self.assertEqual(tree(), {**self.before, "work": None, "work/Untitled.md": b""})


if __name__ == "__main__":
    unittest.main()
