"""Every control of the windows, operated as a screen reader does it, with what comes of it."""

import unittest

from accessible_application import (EXTENSION, HELP, HOME, MAIN, PANEL, WALKTHROUGH,
                                    ApplicationTestCase, Heard, State, press_keys, run_command)

CONTROL_OPTION_N = (45, 0x1800)
CONTROL_SHIFT_J = (38, 0x1200)
COMMAND_M = (46, 0x100)


class AccessibleWalkthrough(ApplicationTestCase):
    def setUp(self):
        super().setUp()
        self.start()
        self.sheet = self.window(WALKTHROUGH)

    def press(self, title):
        self.element(self.sheet, "push button", title).act()

    def test_is_completed_at_its_end(self):
        for page in (2, 3, 4):
            self.press("Next")
            self.element(self.sheet, "label", f"Page {page} of 4")
        get_started = self.element(self.sheet, "push button", "Get Started")
        self.assertIsNone(self.stored("hasCompletedOnboarding"))
        get_started.act()
        self.assert_eventually(lambda: self.stored("hasCompletedOnboarding"))
        self.assert_eventually(lambda: not self.is_open(WALKTHROUGH))

    def test_goes_back(self):
        self.press("Next")
        self.element(self.sheet, "label", "Page 2 of 4")
        self.press("Back")
        self.element(self.sheet, "heading", WALKTHROUGH)
        self.element(self.sheet, "label", "Page 1 of 4")

    def test_is_completed_by_skipping(self):
        self.press("Skip")
        self.assert_eventually(lambda: self.stored("hasCompletedOnboarding"))
        self.assert_eventually(lambda: not self.is_open(WALKTHROUGH))

    def test_says_at_the_button_which_page_is_shown(self):
        self.assertEqual(self.element(self.sheet, "push button", "Next").description,
                         "Page 1 of 4: Welcome to Blankwell+")
        self.press("Next")
        self.assert_eventually_equal(
            lambda: self.element(self.sheet, "push button", "Next").description,
            "Page 2 of 4: Right-click in Finder")


class AccessibleMainWindow(ApplicationTestCase):
    def setUp(self):
        super().setUp()
        self.main = self.start_main_window()

    def press(self, title):
        self.element(self.main, "push button", title).act()

    def recorder(self, name):
        return self.element(self.main, "push button", name)

    def record(self, name, keys):
        recorder = self.recorder(name)
        recorder.act()
        self.assert_eventually(lambda: recorder.has(State.PRESSED))
        press_keys(keys)
        self.assert_eventually(lambda: not recorder.has(State.PRESSED))

    def test_switches_each_type_off_and_on(self):
        switches = {"Text": "txt", "Markdown": "md", "Rich Text": "rtf", "CSV": "csv",
                    "JSON": "json", "YAML": "yaml", "XML": "xml", "HTML": "html", "CSS": "css",
                    "JavaScript": "js", "Shell Script": "sh", "Python": "py", "Swift": "swift",
                    "Word Document": "docx", "Excel Spreadsheet": "xlsx",
                    "PowerPoint Presentation": "pptx"}
        for name, file_type in switches.items():
            switch = self.element(self.main, "check box", name)
            self.assertTrue(switch.has(State.CHECKED), name)
            switch.act()
            self.assert_eventually(lambda: not switch.has(State.CHECKED), name)
            self.assert_eventually_equal(lambda: set(self.stored("enabledFileTypeIDs")),
                                         set(switches.values()) - {file_type})
            switch.act()
            self.assert_eventually_equal(lambda: set(self.stored("enabledFileTypeIDs")),
                                         set(switches.values()))

    def test_moves_a_type_and_says_where_it_stands(self):
        switch = self.element(self.main, "check box", "Markdown")
        self.assertEqual(switch.description, "2 of 4. Alt+Up and Alt+Down change the order.")
        switch.focus()
        press_keys("alt+Down")
        self.assert_eventually_equal(
            lambda: switch.description, "3 of 4. Alt+Up and Alt+Down change the order.")
        self.assertEqual(self.stored("fileTypeOrder")[:4], ["txt", "rtf", "md", "csv"])
        self.assert_eventually_equal(
            lambda: [name for role, name in self.main.read() if role == "check box"][1:5],
            ["Text", "Rich Text", "Markdown", "CSV"])

    def test_changes_where_the_application_is_present(self):
        for title, presence, description in (
                ("Dock + Menu", "dockAndMenuBar", "Show Blankwell+ in the Dock and the menu bar."),
                ("Dock", "dockOnly", "Show Blankwell+ in the Dock only."),
                ("Menu Bar", "menuBarOnly",
                 "Keep Blankwell+ available from the menu bar only.")):
            choice = self.element(self.main, "radio button", title)
            choice.act()
            self.assert_eventually_equal(lambda: self.stored("appPresence"), presence)
            self.assert_eventually(lambda: choice.has(State.CHECKED))
            self.element(self.main, "label", description)

    def test_switches_the_start_at_login_together_with_the_command_line(self):
        entry = HOME / ".config/autostart/app.blankwell.BlankwellPlus.desktop"
        self.addCleanup(lambda: entry.unlink(missing_ok=True))
        switch = self.element(self.main, "check box", "Open at login")
        self.assertFalse(switch.has(State.CHECKED))
        switch.act()
        self.assert_eventually(lambda: switch.has(State.CHECKED))
        self.assertEqual(run_command("autostart"), "on\n")
        self.assertTrue(entry.exists())
        run_command("autostart", "off")
        self.assert_eventually(lambda: not switch.has(State.CHECKED))
        run_command("autostart", "on")
        self.assert_eventually(lambda: switch.has(State.CHECKED))
        switch.act()
        self.assert_eventually(lambda: not entry.exists())

    def test_records_the_quick_create_shortcut(self):
        recorder = self.recorder("Quick Create Shortcut")
        self.assertEqual(recorder.description, "⌃ + ⌥ + N")
        self.record("Quick Create Shortcut", "ctrl+shift+j")
        self.assert_eventually_equal(lambda: recorder.description, "⌃ + ⇧ + J")
        self.assert_eventually_equal(
            lambda: self.stored_shortcut("quickCreateShortcut"), CONTROL_SHIFT_J)
        self.press("Reset Quick Create shortcut")
        self.assert_eventually_equal(lambda: recorder.description, "⌃ + ⌥ + N")
        self.assert_eventually_equal(
            lambda: self.stored_shortcut("quickCreateShortcut"), CONTROL_OPTION_N)

    def test_tells_while_it_waits_for_a_shortcut_and_escape_ends_that(self):
        recorder = self.recorder("Quick Create Shortcut")
        recorder.act()
        self.assert_eventually_equal(lambda: recorder.description, "Press shortcut")
        self.assertTrue(recorder.has(State.PRESSED))
        press_keys("j")
        self.assert_eventually_equal(lambda: recorder.description, "Add ⌘, ⌃, ⌥, or ⇧")
        self.assertTrue(recorder.has(State.PRESSED))
        press_keys("Escape")
        self.assert_eventually_equal(lambda: recorder.description, "⌃ + ⌥ + N")
        self.assertFalse(recorder.has(State.PRESSED))
        self.assertIsNone(self.stored("quickCreateShortcut"))

    def test_shows_and_hides_the_direct_shortcuts(self):
        disclosure = self.element(self.main, "push button", "Direct File Shortcuts")
        self.assertTrue(disclosure.has(State.EXPANDABLE))
        self.assertFalse(disclosure.has(State.EXPANDED))
        closed = self.main.read()
        self.assertNotIn(("push button", "Swift shortcut"), closed)
        disclosure.act()
        self.recorder("Swift shortcut")
        self.assertTrue(disclosure.has(State.EXPANDED))
        disclosure.act()
        self.assert_eventually_equal(self.main.read, closed)
        self.assertFalse(disclosure.has(State.EXPANDED))

    def test_records_and_clears_the_shortcut_of_a_type(self):
        self.press("Direct File Shortcuts")
        recorder = self.recorder("Markdown shortcut")
        clear = self.element(self.main, "push button", "Clear Markdown shortcut")
        self.assertEqual(recorder.description, "Set Shortcut")
        self.assertFalse(clear.has(State.ENABLED))
        self.record("Markdown shortcut", "super+m")
        self.assert_eventually_equal(self.stored_file_type_shortcuts, {"md": COMMAND_M})
        self.assert_eventually_equal(lambda: recorder.description, "⌘ + M")
        self.assert_eventually(lambda: clear.has(State.ENABLED))
        clear.act()
        self.assert_eventually_equal(self.stored_file_type_shortcuts, {})
        self.assert_eventually_equal(lambda: recorder.description, "Set Shortcut")
        self.assert_eventually(lambda: not clear.has(State.ENABLED))

    def test_tells_of_a_conflict_at_both_places(self):
        self.press("Direct File Shortcuts")
        self.record("Markdown shortcut", "ctrl+alt+n")
        self.assert_eventually_equal(self.stored_file_type_shortcuts, {"md": CONTROL_OPTION_N})
        self.element(self.main, "label", "Conflicts with Markdown")
        self.element(self.main, "label", "Conflicts with Quick Create")

    def test_changes_where_direct_shortcuts_create(self):
        for title, destination in (("Finder Folder", "frontFinderFolder"), ("Desktop", "desktop")):
            choice = self.element(self.main, "radio button", title)
            choice.act()
            self.assert_eventually_equal(
                lambda: self.stored("directShortcutDestination"), destination)
            self.assert_eventually(lambda: choice.has(State.CHECKED))

    def test_tells_of_what_changes_by_itself(self):
        name = "object:property-change:accessible-name"
        description = "object:property-change:accessible-description"
        heard = Heard(name, description)
        self.recorder("Quick Create Shortcut").act()
        self.assert_eventually(
            lambda: (description, "push button", "Quick Create Shortcut") in heard)
        self.element(self.main, "radio button", "Menu Bar").act()
        self.assert_eventually(
            lambda: (name, "label", "Keep Blankwell+ available from the menu bar only.") in heard)

    def assert_asks_before_it_uninstalls(self):
        before = self.domain.read_bytes()
        alert = self.window("Uninstall Blankwell+?")
        self.assertEqual(alert.role, "alert")
        self.element(alert, "label", "Uninstall Blankwell+?")
        self.element(
            alert, "label",
            "This will move Blankwell+ to the Trash, remove saved Blankwell+ settings, and restart "
            "Finder so the Finder extension is unloaded.\n\n"
            "Files you created with Blankwell+ will not be removed.")
        self.element(alert, "push button", "Uninstall")
        self.element(alert, "push button", "Cancel").act()
        self.assert_eventually(lambda: not self.is_open("Uninstall Blankwell+?"))
        self.assertEqual(self.domain.read_bytes(), before)
        self.assertTrue(self.is_open(MAIN))

    def test_the_uninstall_button_changes_nothing_by_itself(self):
        self.press("Uninstall...")
        self.assert_asks_before_it_uninstalls()

    def choose(self, title):
        self.element(self.main, "menu item", title).act()

    def test_the_uninstall_command_changes_nothing_by_itself(self):
        self.choose("Uninstall Blankwell+...")
        self.assert_asks_before_it_uninstalls()

    def test_help_opens_from_its_menu_once(self):
        self.choose("Blankwell+ Help")
        self.window(HELP)
        self.choose("Blankwell+ Help")
        self.assert_eventually(lambda: self.window(HELP).has(State.ACTIVE))
        self.assertEqual([window.name for window in self.windows()].count(HELP), 1)

    def test_the_walkthrough_is_shown_again_from_the_menu(self):
        self.choose("Show Welcome Walkthrough")
        self.window(WALKTHROUGH)
        self.assert_eventually(lambda: self.stored("hasCompletedOnboarding") is False)

    def test_quits_from_the_menu(self):
        self.choose("Quit Blankwell+")
        self.assert_eventually(lambda: self.process.poll() is not None)
        self.assertEqual(self.process.returncode, 0)


class AccessibleExtensionPage(ApplicationTestCase):
    menu = HOME / ".config/caja/scripts/Create File/Markdown"

    def setUp(self):
        super().setUp()
        main = self.start_main_window()
        self.element(main, "push button", "Open Extension Settings").act()
        self.switch = self.element(self.window(EXTENSION), "check box", "Caja")

    def test_switches_the_menu_of_a_file_manager(self):
        self.assertFalse(self.switch.has(State.CHECKED))
        self.switch.act()
        self.assert_eventually(lambda: self.switch.has(State.CHECKED))
        self.assertTrue(self.menu.exists())
        self.switch.act()
        self.assert_eventually(lambda: not self.switch.has(State.CHECKED))
        self.assertFalse(self.menu.exists())

    def test_follows_what_the_command_line_changes(self):
        run_command("menus", "on", "caja")
        self.assert_eventually(lambda: self.switch.has(State.CHECKED))
        run_command("menus", "off", "caja")
        self.assert_eventually(lambda: not self.switch.has(State.CHECKED))
        self.assertFalse(self.menu.exists())


class AccessibleFolderAccess(ApplicationTestCase):
    def setUp(self):
        super().setUp()
        self.main = self.start_main_window()

    def press(self, title):
        self.element(self.main, "push button", title).act()

    def answer(self, title, button):
        """Waits for the panel, presses its button and waits until it is gone."""
        panel = self.window(title)
        self.assertEqual(panel.role, "dialog")
        self.element(panel, "push button", button).act()
        self.assert_eventually(lambda: not self.is_open(title))

    def granted(self):
        prefix = "securityScopedFolderBookmark."
        return [key.removeprefix(prefix) for key in self.all_stored() if key.startswith(prefix)]

    def test_grants_and_forgets_a_folder(self):
        self.press("Add Other Folders...")
        self.answer("Add Other Folders", "Allow Access")
        self.element(self.main, "label", "Saved access to Home.")
        self.element(self.main, "label", "1 saved folder root.")
        self.element(self.main, "label", "Home")
        self.assertEqual(self.granted(), [str(HOME)])
        forget = self.element(self.main, "push button", "Forget Access")
        self.assertEqual(forget.description, "Home")
        forget.act()
        self.element(self.main, "label", "Removed access to Home.")
        self.element(self.main, "label", "No saved folder roots.")
        self.assertEqual(self.granted(), [])

    def test_each_button_asks_for_its_folders_and_tells_what_became_of_it(self):
        (HOME / "Library/CloudStorage").mkdir(parents=True)
        needs_access = f"Blankwell+ needs access to {HOME.name} before it can create files there."
        for button, title, message in (
                ("Grant Home Folder...", "Allow Home Folder Access",
                 "Choose your home folder so Blankwell+ can create files in folders you own."),
                ("Add Other Folders...", "Add Other Folders",
                 "Choose any other folders Blankwell+ can create files in."),
                ("Add Cloud Folders...", "Add Cloud Folder Access",
                 "Choose Google Drive, OneDrive, or other provider folders that Blankwell+ can "
                 "use.")):
            self.press(button)
            self.element(self.window(title), "label", message)
            self.answer(title, "Cancel")
            self.element(self.main, "label", needs_access)
        self.press("Add External Volumes...")
        self.element(self.window("Add External Volume Access"), "label",
                     "Choose external volumes that Blankwell+ can use.")
        self.answer("Add External Volume Access", "Cancel")
        self.assert_eventually(lambda: ("label", needs_access) not in self.main.read())
        self.assertEqual(self.granted(), [])


class AccessiblePanel(ApplicationTestCase):
    def setUp(self):
        super().setUp()
        self.start("--action=quick-create")
        self.panel = self.window(PANEL)

    def tiles(self):
        return [name for role, name in self.panel.read()
                if role == "push button" and ", ." in name]

    def test_a_search_leaves_the_types_that_it_finds(self):
        search = self.element(self.panel, "text", "Search file types")
        search.write("script")
        self.assert_eventually_equal(self.tiles, ["JavaScript, .js", "Shell Script, .sh"])
        self.assertNotIn(("heading", "Plain Text"), self.panel.read())
        search.write("")
        self.assert_eventually(lambda: len(self.tiles()) == 16)

    def test_a_tile_creates_its_file(self):
        self.element(self.panel, "text", "Search file types").write("mark")
        self.assert_eventually_equal(self.tiles, ["Markdown, .md"])
        self.element(self.panel, "push button", "Markdown, .md").act()
        self.element(self.panel, "label", "Created Untitled.md in Desktop")
        self.assertEqual([file.name for file in (HOME / "Desktop").iterdir()], ["Untitled.md"])
        self.assertTrue(self.is_open(PANEL))

    def test_changes_the_destination(self):
        for title, place in (("Finder Folder", "Front Finder folder"),
                             ("Desktop", str(HOME / "Desktop"))):
            choice = self.element(self.panel, "radio button", title)
            choice.act()
            self.assert_eventually(lambda: choice.has(State.CHECKED))
            self.element(self.panel, "label", title)
            self.element(self.panel, "label", place)

    def test_is_closed_by_its_button(self):
        self.element(self.panel, "push button", "Close").act()
        self.assert_eventually(lambda: not self.is_open(PANEL))

    def test_its_search_field_has_the_keyboard(self):
        search = self.element(self.panel, "text", "Search file types")
        self.assert_eventually(lambda: search.has(State.FOCUSED))


if __name__ == "__main__":
    unittest.main()
