"""Every text of every window with its role, in the order in which a screen reader comes to it."""

import os
import pathlib
import subprocess
import unittest

from accessible_application import (EXTENSION, HELP, HOME, MAIN, PANEL, WALKTHROUGH,
                                    ApplicationTestCase)


def written(window):
    """The lines that `windows/` has for a window: role and name."""
    text = (pathlib.Path(__file__).parent / "windows" / f"{window}.txt").read_text()
    return text.format(home=HOME, version=os.environ["BLANKWELL_VERSION"]).splitlines()


def read(window):
    return [f"{role}: {name}" for role, name in window.read()]


class WindowTexts(ApplicationTestCase):
    maxDiff = None

    def assert_reads(self, window, expected):
        self.assert_eventually_equal(lambda: read(window), written(expected))

    def test_of_the_panel(self):
        self.start("--action=quick-create")
        panel = self.window(PANEL)
        self.assertEqual(panel.role, "dialog")
        self.assert_reads(panel, "panel")

    def test_of_the_panel_where_nothing_is_found(self):
        self.start("--action=quick-create")
        panel = self.window(PANEL)
        self.element(panel, "text", "Search file types").write("zzz")
        self.assert_reads(panel, "panel-without-types")

    def test_of_the_main_window(self):
        main = self.start_main_window()
        self.assertEqual(main.role, "frame")
        self.element(main, "push button", "Direct File Shortcuts").act()
        self.assert_reads(main, "main-window")

    def test_of_the_walkthrough(self):
        self.start()
        sheet = self.window(WALKTHROUGH)
        self.assertEqual(sheet.role, "dialog")
        self.assert_reads(sheet, "walkthrough-1")
        for page in (2, 3, 4):
            self.element(sheet, "push button", "Next").act()
            self.assert_reads(sheet, f"walkthrough-{page}")

    def test_of_the_help(self):
        self.element(self.start_main_window(), "menu item", "Blankwell+ Help").act()
        window = self.window(HELP)
        self.assertEqual(window.role, "frame")
        self.assert_reads(window, "help")

    def test_of_the_page_about_the_extension(self):
        self.element(self.start_main_window(), "push button", "Open Extension Settings").act()
        window = self.window(EXTENSION)
        self.assertEqual(window.role, "frame")
        self.assert_reads(window, "extension-page")

    def test_of_the_icon(self):
        self.start_main_window()

        def icon():
            return subprocess.run(["xprop", "-name", MAIN, "_NET_WM_ICON"], check=True,
                                  capture_output=True, text=True).stdout
        self.assert_eventually(lambda: "Icon (16 x 16)" in icon(), "the main window has no icon")

    def test_of_the_menus(self):
        bar = self.start_main_window().find("menu bar", "")
        self.assertEqual([item.name for item in bar.everything() if item.role == "menu item"], [
            "Blankwell+", "Uninstall Blankwell+...", "Quit Blankwell+",
            "Help", "Blankwell+ Help", "Show Welcome Walkthrough"])


if __name__ == "__main__":
    unittest.main()
