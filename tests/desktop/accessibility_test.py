"""The windows of the application as a screen reader reads and operates them."""

import unittest

from accessible_application import CHECKED, ApplicationTestCase

WELCOME = "Welcome to Blankwell+"


class AccessibleWalkthrough(ApplicationTestCase):
    def setUp(self):
        super().setUp()
        self.start()
        self.sheet = self.window(WELCOME)

    def press(self, title):
        self.element(self.sheet, "push button", title).act()

    def test_is_read_page_by_page_and_completed_at_its_end(self):
        for heading, page in ((WELCOME, "Page 1 of 4"),
                              ("Right-click in Finder", "Page 2 of 4"),
                              ("OneDrive, iCloud, Desktop & Documents", "Page 3 of 4")):
            self.element(self.sheet, "heading", heading)
            self.element(self.sheet, "label", page)
            self.press("Next")
        self.element(self.sheet, "heading", "Quick Create shortcut")
        self.element(self.sheet, "label", "⌃ + ⌥ + N")
        self.assertIsNone(self.stored("hasCompletedOnboarding"))
        self.press("Get Started")
        self.assert_eventually(lambda: self.stored("hasCompletedOnboarding"))
        self.assert_eventually(lambda: not self.is_open(WELCOME))

    def test_goes_back(self):
        self.press("Next")
        self.press("Back")
        self.element(self.sheet, "heading", WELCOME)
        self.element(self.sheet, "label", "Page 1 of 4")

    def test_is_completed_by_skipping(self):
        self.press("Skip")
        self.assert_eventually(lambda: self.stored("hasCompletedOnboarding"))
        self.assert_eventually(lambda: not self.is_open(WELCOME))

    def test_is_shown_again_from_the_menu(self):
        self.press("Skip")
        self.assert_eventually(lambda: not self.is_open(WELCOME))
        main = self.window("Blankwell+")
        self.element(main, "menu item", "Show Welcome Walkthrough").act()
        self.window(WELCOME)
        self.assert_eventually(lambda: self.stored("hasCompletedOnboarding") is False)


class AccessibleMainWindow(ApplicationTestCase):
    def setUp(self):
        super().setUp()
        self.start()
        self.element(self.window(WELCOME), "push button", "Skip").act()
        self.assert_eventually(lambda: not self.is_open(WELCOME))
        self.main = self.window("Blankwell+")

    def test_switches_a_type_off_and_on(self):
        switch = self.element(self.main, "check box", "Markdown")
        switch.act()
        self.assert_eventually(lambda: "md" not in self.stored("enabledFileTypeIDs"))
        switch.act()
        self.assert_eventually(lambda: "md" in self.stored("enabledFileTypeIDs"))

    def test_changes_where_the_application_is_present(self):
        self.element(self.main, "radio button", "Dock + Menu").act()
        self.assert_eventually(lambda: self.stored("appPresence") == "dockAndMenuBar")

    def test_help_opens_from_its_menu(self):
        self.element(self.main, "menu item", "Blankwell+ Help").act()
        help_window = self.window("Blankwell+ Help")
        headings = [name for role, name in help_window.read() if role == "heading"]
        self.assertEqual(headings, [
            "Blankwell+ Help", "Where Create File Works",
            "Add the Finder toolbar button (one time)", "Supported Files", "Plain Text", "Code",
            "Office", "Finder Extension Troubleshooting", "Folder Access", "File Naming",
            "Uninstalling", "If uninstall cannot finish"])


class AccessiblePanel(ApplicationTestCase):
    def setUp(self):
        super().setUp()
        self.start("--action=quick-create")
        self.panel = self.window("Create File")

    def test_offers_a_tile_for_every_type(self):
        tiles = [name for role, name in self.panel.read()
                 if role == "push button" and ", ." in name]
        self.assertEqual(len(tiles), 16)
        self.assertEqual(tiles[0], "Text, .txt")
        self.assertEqual(tiles[-1], "PowerPoint Presentation, .pptx")

    def test_changes_the_destination(self):
        folder = self.element(self.panel, "radio button", "Finder Folder")
        folder.act()
        self.assert_eventually(lambda: folder.has(CHECKED))


if __name__ == "__main__":
    unittest.main()
