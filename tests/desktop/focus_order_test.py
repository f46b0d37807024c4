"""Where Tab leads: to every control, in the order in which they are read. Each is in sight then."""

import unittest

from accessible_application import (EXTENSION, PANEL, WALKTHROUGH, ApplicationTestCase, State,
                                    press_keys)

TYPES = ["Text", "Markdown", "Rich Text", "CSV", "JSON", "YAML", "XML", "HTML", "CSS",
         "JavaScript", "Shell Script", "Python", "Swift", "Word Document", "Excel Spreadsheet",
         "PowerPoint Presentation"]


def is_in_sight(window, element):
    """Whether all of the element stands in the window, below its menus."""
    around, place = window.place(), element.place()
    top = max([around.top] + [bar.place().bottom for bar in window.children()
                              if bar.role == "menu bar"])
    return (around.left <= place.left < place.right <= around.right
            and top <= place.top < place.bottom <= around.bottom)


class FocusOrder(ApplicationTestCase):
    def assert_tab_leads_through(self, window, names):
        """The controls of these names, as they are read, and then the first one again."""
        stops = [element for element in window.shown() if element.has(State.FOCUSABLE)
                 and element.has(State.ENABLED)]
        self.assertEqual([stop.name for stop in stops], names)
        stops[0].focus()
        for keys, way in (("Tab", stops[1:] + stops[:1]), ("shift+Tab", stops[::-1])):
            for stop in way:
                press_keys(keys)
                self.assert_eventually(lambda: stop.has(State.FOCUSED),
                                       f"{keys} does not lead to {stop.role} {stop.name}")
                self.assert_eventually(lambda: is_in_sight(window, stop),
                                       f"{stop.role} {stop.name} is out of sight")

    def test_of_the_panel(self):
        self.start("--action=quick-create")
        extensions = ["txt", "md", "rtf", "csv", "json", "yaml", "xml", "html", "css", "js", "sh",
                      "py", "swift", "docx", "xlsx", "pptx"]
        self.assert_tab_leads_through(
            self.window(PANEL),
            ["Desktop", "Close", "Search file types"] +
            [f"{name}, .{extension}" for name, extension in zip(TYPES, extensions)])

    def test_of_the_main_window(self):
        main = self.start_main_window()
        disclosure = self.element(main, "push button", "Direct File Shortcuts")
        disclosure.act()
        self.assert_eventually(lambda: disclosure.has(State.EXPANDED))
        self.assert_tab_leads_through(
            main,
            ["Dock", "Open at login"] + TYPES +
            ["Quick Create Shortcut", "Reset Quick Create shortcut", "Desktop",
             "Direct File Shortcuts"] +
            [f"{name} shortcut" for name in TYPES] +
            ["Grant Home Folder...", "Add Other Folders...", "Add Cloud Folders...",
             "Add External Volumes...", "Open Extension Settings", "Uninstall..."])

    def test_of_the_main_window_after_a_type_was_moved(self):
        main = self.start_main_window()
        self.element(main, "push button", "Direct File Shortcuts").act()
        self.element(main, "check box", "Text").focus()
        press_keys("alt+Down")
        moved = ["Markdown", "Text"] + TYPES[2:]
        self.assert_eventually_equal(
            lambda: [name for role, name in main.read() if role == "check box"],
            ["Open at login"] + moved)
        self.assert_tab_leads_through(
            main,
            ["Dock", "Open at login"] + moved +
            ["Quick Create Shortcut", "Reset Quick Create shortcut", "Desktop",
             "Direct File Shortcuts"] +
            [f"{name} shortcut" for name in moved] +
            ["Grant Home Folder...", "Add Other Folders...", "Add Cloud Folders...",
             "Add External Volumes...", "Open Extension Settings", "Uninstall..."])

    def test_of_the_page_about_the_extension(self):
        main = self.start_main_window()
        self.element(main, "push button", "Open Extension Settings").act()
        page = self.window(EXTENSION)
        self.element(page, "check box", "PCManFM-Qt")
        self.assert_tab_leads_through(
            page, ["Files (Nautilus)", "Dolphin", "Thunar", "Nemo", "Caja", "PCManFM-Qt"])

    def test_of_the_walkthrough(self):
        self.start()
        sheet = self.window(WALKTHROUGH)
        self.element(sheet, "push button", "Next").act()
        self.element(sheet, "push button", "Back")
        self.assert_tab_leads_through(sheet, ["Back", "Skip", "Next"])


if __name__ == "__main__":
    unittest.main()
