"""The three ways to the Trash, each forced to fail in turn: the next one is used, and where all fail
nothing is lost.

Run by `as-user`, whose bundle, home and bus it uses. The desktop's portal and the file manager are
played here.
"""

import os
import pathlib
import subprocess
import time
import unittest
import urllib.parse

import gi

gi.require_version("Gio", "2.0")
from gi.repository import Gio, GLib  # noqa: E402

from home_tree import HOME, TRASH, tree  # noqa: E402

BUNDLE = pathlib.Path(os.environ["BLANKWELL_BUNDLE"])
COMMAND = HOME / ".local/bin/blankwell"
INSTALLED = HOME / "Applications/Blankwell+.app"
PATIENCE = 60

PORTAL = """<node><interface name="org.freedesktop.portal.Trash">
<method name="TrashFile"><arg type="h" direction="in"/><arg type="u" direction="out"/></method>
</interface></node>"""
FILE_MANAGER = """<node><interface name="org.gnome.Nautilus.FileOperations2">
<method name="TrashURIs"><arg type="as" direction="in"/><arg type="a{sv}" direction="in"/></method>
</interface></node>"""


class Service:
    """A program on the bus with one method, which notes what it is asked to remove."""

    def __init__(self, bus, name, path, interface, answer):
        self.asked = []
        self.answer = answer
        self.bus = bus
        node = Gio.DBusNodeInfo.new_for_xml(interface)
        self.registration = bus.register_object(path, node.interfaces[0], self.handle, None, None)
        self.owner = Gio.bus_own_name_on_connection(bus, name, Gio.BusNameOwnerFlags.NONE, None, None)

    def close(self):
        self.bus.unregister_object(self.registration)
        Gio.bus_unown_name(self.owner)

    def handle(self, _bus, _sender, _path, _interface, method, parameters, invocation):
        if method == "TrashFile":
            descriptors = invocation.get_message().get_unix_fd_list()
            item = os.readlink(f"/proc/self/fd/{descriptors.peek_fds()[parameters[0]]}")
        else:
            item = urllib.parse.unquote(parameters[0][0].removeprefix("file://"))
        self.asked.append(pathlib.Path(item))
        invocation.return_value(self.answer(pathlib.Path(item)))


class TrashWays(unittest.TestCase):
    def setUp(self):
        subprocess.run([BUNDLE / "Contents/Linux/blankwell", "install"], check=True,
                       capture_output=True)
        subprocess.run([COMMAND, "autostart", "on"], check=True)
        (HOME / "mine.md").write_text("mine")
        self.elsewhere = HOME / "taken"
        self.elsewhere.mkdir()
        bus = Gio.bus_get_sync(Gio.BusType.SESSION)
        self.portal = Service(bus, "org.freedesktop.portal.Desktop", "/org/freedesktop/portal/desktop",
                              PORTAL, lambda item: GLib.Variant("(u)", (0,)))
        self.addCleanup(self.portal.close)
        self.file_manager = Service(bus, "org.gnome.Nautilus", "/org/gnome/Nautilus/FileOperations2",
                                    FILE_MANAGER, lambda item: None)
        self.addCleanup(self.file_manager.close)

    def let_take(self, service, value=None):
        def take(item):
            item.rename(self.elsewhere / item.name)
            return value
        service.answer = take

    def break_file_services(self):
        TRASH.write_text("in the way")

    def uninstall(self):
        """The exit status and the errors, after all questions to the services were answered."""
        process = subprocess.Popen([COMMAND, "uninstall", "--yes"], text=True,
                                   stdout=subprocess.PIPE, stderr=subprocess.PIPE)
        end = time.monotonic() + PATIENCE
        while process.poll() is None and time.monotonic() < end:
            GLib.MainContext.default().iteration(False)
            time.sleep(0.01)
        process.kill()
        output, errors = process.communicate()
        self.assertEqual(output, "")
        return process.returncode, errors

    def assert_removed(self, bundle):
        self.assertTrue((bundle / "Contents/Info.plist").exists())
        self.assertFalse(INSTALLED.exists())
        self.assertFalse(COMMAND.is_symlink())
        self.assertEqual([path for path in (HOME / ".config").rglob("*") if path.suffix == ".plist"], [])
        self.assertEqual((HOME / "mine.md").read_text(), "mine")

    def test_the_file_services_take_it_and_nobody_else_is_asked(self):
        self.assertEqual(self.uninstall(), (0, ""))
        self.assert_removed(TRASH / "files/Blankwell+.app")
        self.assertEqual((self.portal.asked, self.file_manager.asked), ([], []))

    def test_the_portal_takes_it_where_the_file_services_cannot(self):
        self.break_file_services()
        self.let_take(self.portal, GLib.Variant("(u)", (1,)))
        self.assertEqual(self.uninstall(), (0, ""))
        self.assert_removed(self.elsewhere / "Blankwell+.app")
        self.assertEqual((self.portal.asked, self.file_manager.asked), ([INSTALLED], []))

    def test_the_file_manager_takes_it_where_the_portal_refuses(self):
        self.break_file_services()
        self.let_take(self.file_manager)
        self.assertEqual(self.uninstall(), (0, ""))
        self.assert_removed(self.elsewhere / "Blankwell+.app")
        self.assertEqual((self.portal.asked, self.file_manager.asked), ([INSTALLED], [INSTALLED]))

    def test_a_portal_that_only_says_so_is_not_believed(self):
        self.break_file_services()
        self.portal.answer = lambda item: GLib.Variant("(u)", (1,))
        self.let_take(self.file_manager)
        self.assertEqual(self.uninstall(), (0, ""))
        self.assert_removed(self.elsewhere / "Blankwell+.app")

    def test_where_nobody_takes_it_nothing_is_lost_and_it_can_be_tried_again(self):
        self.break_file_services()
        before = tree()
        status, errors = self.uninstall()
        self.assertEqual(status, 1)
        lines = errors.splitlines()
        self.assertEqual(lines[:3], ["Could not uninstall Blankwell+",
                                     "Blankwell+ could not be moved to the Trash.", ""])
        self.assertRegex(lines[3], "^FileManager: .")
        self.assertRegex(lines[4], r"^NSWorkspace: macOS could not move Blankwell\+ to the Trash: .")
        self.assertEqual(lines[5:], [
            "Finder: macOS finished the Trash request, but Blankwell+ is still at "
            f"{INSTALLED}.", "",
            "Quit Blankwell+, move the app to the Trash manually, then restart Finder to unload the "
            "Finder extension."])
        self.assertEqual(tree(), before)
        TRASH.unlink()
        self.assertEqual(self.uninstall(), (0, ""))
        self.assert_removed(TRASH / "files/Blankwell+.app")

    def test_a_folder_that_may_not_be_changed_keeps_the_bundle(self):
        INSTALLED.parent.chmod(0o500)
        self.addCleanup(INSTALLED.parent.chmod, 0o700)
        before = tree()
        status, errors = self.uninstall()
        self.assertEqual(status, 1)
        self.assertIn("You may not remove this copy of Blankwell+.", errors)
        self.assertEqual(tree(), before)


if __name__ == "__main__":
    unittest.main()
