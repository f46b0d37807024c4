"""The command line end to end: what it prints, how it exits, and what is on the disk afterwards."""

import json
import os
import shutil
import subprocess
import unittest
import urllib.parse

from blankwell_program import PROGRAM, SOURCE, ProgramTestCase

UNPRIVILEGED = ["setpriv", "--reuid=65534", "--regid=65534", "--clear-groups"]


def request(type_id, folder):
    return f"blankwellplus://create?type={type_id}&directory={urllib.parse.quote(str(folder))}"


class CreateCommand(ProgramTestCase):
    def test_prints_the_path_and_nothing_else(self):
        self.assert_done(self.run_program("create", "md"),
                         f"{self.folder}/Untitled.md\n".encode())
        self.assertEqual((self.folder / "Untitled.md").read_bytes(), b"")

    def test_numbers_what_is_taken(self):
        for name in ("Untitled.txt", "Untitled 2.txt", "Untitled 3.txt"):
            self.assert_done(self.run_program("create", "txt", str(self.folder)),
                             f"{self.folder}/{name}\n".encode())

    def test_copies_the_office_templates(self):
        for type_id in ("docx", "xlsx", "pptx"):
            self.run_program("create", type_id)
            self.assertEqual((self.folder / f"Untitled.{type_id}").read_bytes(),
                             (SOURCE / f"resources/templates/blank.{type_id}").read_bytes())

    def test_shows_the_way_on_which_the_user_came(self):
        link = self.folder.parent / "link"
        link.symlink_to(self.folder)
        result = self.run_program("create", "txt", cwd=link,
                                  env={**self.environment, "PWD": str(link)})
        self.assert_done(result, f"{link}/Untitled.txt\n".encode())

    def test_a_wrong_way_in_the_environment_is_not_believed(self):
        result = self.run_program("create", "txt", env={**self.environment, "PWD": "/"})
        self.assert_done(result, f"{self.folder}/Untitled.txt\n".encode())

    def test_folders_may_have_any_name(self):
        for name in (b"new\nline", b"not \xff UTF-8", b"-rf", b"quotes \"'`$(x)", b"%41#?&", b" "):
            folder = os.fsencode(self.folder) + b"/" + name
            os.mkdir(folder)
            self.assert_done(self.run_program("create", "txt", "--", name),
                             folder + b"/Untitled.txt\n")

    def test_a_name_of_255_bytes_is_a_folder_like_any_other(self):
        folder = self.folder / ("n" * 255)
        folder.mkdir()
        self.assert_done(self.run_program("create", "txt", str(folder)),
                         f"{folder}/Untitled.txt\n".encode())

    def test_a_missing_folder_is_told(self):
        self.assert_failed(self.run_program("create", "txt", "gone"), 1,
                           'Could not create "Untitled.txt" in "gone": '
                           "No such file or directory.\n")

    def test_a_file_in_place_of_the_folder_is_told(self):
        (self.folder / "file").write_text("mine")
        self.assert_failed(self.run_program("create", "txt", "file"), 1,
                           'Could not look for "Untitled.txt" in "file": Not a directory.\n')
        self.assertEqual((self.folder / "file").read_text(), "mine")

    def test_a_folder_without_write_permission_is_told(self):
        self.folder.parent.chmod(0o755)
        self.folder.chmod(0o755)
        # The user may not be allowed to reach the build tree, so it runs a copy of the program.
        program = self.folder.parent / "bin" / "blankwell"
        program.parent.mkdir()
        shutil.copy(PROGRAM, program)
        result = subprocess.run([*UNPRIVILEGED, program, "create", "txt", self.folder],
                                capture_output=True, check=False, env=self.environment, cwd="/")
        self.assert_failed(result, 1,
                           'Could not create "Untitled.txt" in "work": Permission denied.\n')

    def test_a_missing_template_is_told(self):
        program = self.folder / "bin" / "blankwell"
        program.parent.mkdir()
        shutil.copy(PROGRAM, program)
        result = subprocess.run([program, "create", "docx"], capture_output=True, check=False,
                                env=self.environment, cwd=self.folder)
        self.assert_failed(result, 1, 'Could not find bundled template "blank.docx".\n')
        self.assertFalse((self.folder / "Untitled.docx").exists())

    def test_a_sandboxed_program_writes_into_granted_folders_only(self):
        self.assert_failed(self.run_program("create", "txt", env=self.sandboxed()), 1,
                           "Blankwell+ does not have saved access to work.\n")
        self.assert_done(self.run_program("folders", "add", "."))
        self.assert_done(self.run_program("create", "txt", env=self.sandboxed()),
                         f"{self.folder}/Untitled.txt\n".encode())

    def test_a_granted_folder_replaced_by_another_is_not_written_to(self):
        granted = self.folder / "granted"
        granted.mkdir()
        self.assert_done(self.run_program("folders", "add", str(granted)))
        granted.rename(self.folder / "renamed")
        granted.mkdir()
        result = self.run_program("create", "txt", str(granted), env=self.sandboxed())
        self.assert_failed(result, 1, 'Blankwell+ has no access to the folder "granted".\n')
        self.assertEqual(list(granted.iterdir()), [])

    def test_a_link_out_of_a_granted_folder_is_not_followed(self):
        granted, outside = self.folder / "granted", self.folder / "outside"
        granted.mkdir()
        outside.mkdir()
        (granted / "link").symlink_to(outside)
        self.assert_done(self.run_program("folders", "add", str(granted)))
        result = self.run_program("create", "txt", str(granted / "link"), env=self.sandboxed())
        self.assertEqual(result.returncode, 1)
        self.assertEqual(list(outside.iterdir()), [])

    def test_a_deleted_current_folder_is_told(self):
        gone = self.folder / "gone"
        gone.mkdir()
        result = subprocess.run(["sh", "-c", 'rmdir "$PWD" && exec "$0" create txt', PROGRAM],
                                cwd=gone, env={**self.environment, "PWD": str(gone)},
                                capture_output=True, check=False)
        self.assert_failed(result, 1, "The current folder does not exist any more.\n")

    def test_output_that_nobody_takes_is_a_failure(self):
        with open("/dev/full", "wb") as full:
            result = subprocess.run([PROGRAM, "create", "txt"], stdout=full,
                                    stderr=subprocess.PIPE, env=self.environment,
                                    cwd=self.folder, check=False)
        self.assertEqual((result.returncode, result.stderr),
                         (1, b"Could not write to standard output.\n"))


class OpenCommand(ProgramTestCase):
    def test_creates_the_file_silently(self):
        result = self.run_program("open", request("md", self.folder))
        self.assert_done(result)
        self.assertTrue((self.folder / "Untitled.md").exists())

    def test_decodes_every_folder_name(self):
        for name in ("a b", "quotes \"'", "%41", "a#b?c&d=e", "new\nline", "a+b", "é"):
            (self.folder / name).mkdir()
            self.assert_done(self.run_program("open", request("md", self.folder / name)))
            self.assertTrue((self.folder / name / "Untitled.md").exists(), name)

    def test_an_unknown_type_is_told_as_the_alert_says_it(self):
        self.assert_failed(self.run_program("open", request("exe", self.folder)), 1,
                           "Could not create file\n"
                           "Blankwell+ does not know how to create this file type.\n")

    def test_a_folder_that_nobody_can_grant_here_is_told(self):
        result = self.run_program("open", request("md", self.folder), env=self.sandboxed())
        self.assert_failed(result, 1,
                           "Could not create file\n"
                           "Blankwell+ needs access to work before it can create files there.\n")

    def test_what_is_no_request_is_wrong_usage(self):
        for url in ("http://create?type=md&directory=/tmp", "blankwellplus://open", "md", "x:"):
            self.assert_failed(self.run_program("open", url), 2,
                               f"blankwell: not a request URL: {url}\n")

    def test_verbose_shows_the_log_lines(self):
        result = self.run_program("--verbose", "open", request("md", self.folder))
        lines = result.stderr.decode().splitlines()
        self.assertEqual(lines[0], "<5>app.blankwell.BlankwellPlus[CreateFileRequest] "
                                   f"Creating file from Finder request: type=md dir={self.folder}")
        self.assertEqual(lines[1], "<5>app.blankwell.BlankwellPlus[CreateFileRequest] Created "
                                   f"file from Finder request: {self.folder}/Untitled.md")


class QuickCreateCommand(ProgramTestCase):
    def test_without_a_session_bus_fails_and_says_so(self):
        result = self.run_program("quick-create")
        self.assertEqual((result.returncode, result.stdout), (1, b""))
        self.assertIn(b"The session bus cannot be reached", result.stderr)


class UninstallCommand(ProgramTestCase):
    def test_outside_of_a_bundle_it_says_who_removes_the_program(self):
        self.assert_failed(
            self.run_program("uninstall", "--yes"), 1,
            "Blankwell+ is not running from an application bundle: "
            f"{os.path.dirname(PROGRAM)}\nIt was not installed, so there is nothing to remove. "
            "Whoever put it there can delete it.\n")
        self.assertTrue(os.path.exists(PROGRAM))

    def test_a_sandboxed_program_says_who_removes_it(self):
        self.assert_failed(
            self.run_program("uninstall", "--yes", env=self.sandboxed()), 1,
            "This copy of Blankwell+ runs in a sandbox. The software center that installed it also "
            "removes it.\n")


class AutostartCommand(ProgramTestCase):
    def entry(self):
        return self.config / "autostart/app.blankwell.BlankwellPlus.desktop"

    def setUp(self):
        super().setUp()
        self.program = self.folder / "bin" / "blankwell"
        self.program.parent.mkdir()
        shutil.copy(PROGRAM, self.program)
        shutil.copy(os.path.join(os.path.dirname(PROGRAM), "libblankwell-services.so"),
                    self.program.parent)
        (self.program.parent / "blankwell-plus").touch(mode=0o755)

    def run_program(self, *arguments, **options):
        return super().run_program(*arguments, executable=self.program, **options)

    def test_switches_the_start_at_login(self):
        self.assert_done(self.run_program("autostart"), b"off\n")
        self.assert_done(self.run_program("autostart", "on"))
        self.assert_done(self.run_program("autostart"), b"on\n")
        self.assertIn(f'Exec="{self.folder}/bin/blankwell-plus" --background\n',
                      self.entry().read_text())
        self.assert_done(self.run_program("autostart", "off"))
        self.assert_done(self.run_program("autostart"), b"off\n")
        self.assertFalse(self.entry().exists())

    def test_without_the_application_there_is_nothing_to_start(self):
        (self.program.parent / "blankwell-plus").unlink()
        self.assert_failed(self.run_program("autostart", "on"), 1,
                           f'Could not start "{self.folder}/bin/blankwell-plus": '
                           "No such file or directory.\n")
        self.assertFalse(self.entry().exists())

    def test_a_sandboxed_program_says_that_it_cannot(self):
        for arguments in ((), ("on",), ("off",)):
            self.assert_failed(self.run_program("autostart", *arguments, env=self.sandboxed()), 1,
                               "What starts at login cannot be seen or changed from inside a "
                               "sandbox.\n")


class MenusCommand(ProgramTestCase):
    def test_a_sandboxed_program_says_that_it_cannot(self):
        for arguments in (("menus", "off"), ("install",), ("unregister",)):
            result = self.run_program(*arguments, env=self.sandboxed())
            self.assertEqual((result.returncode, result.stdout), (1, b""))
            self.assertIn(b"cannot be changed from inside a sandbox", result.stderr)

    def test_outside_of_a_bundle_there_is_nothing_to_install(self):
        self.assert_failed(self.run_program("install"), 1,
                           "This program is not in a bundle, so there is nothing to install.\n")


class FoldersCommand(ProgramTestCase):
    def add(self, *names):
        for name in names:
            (self.folder / name).mkdir()
            self.assert_done(self.run_program("folders", "add", name))

    def test_lists_in_the_file_managers_order(self):
        self.add("b", "Folder 10", "folder 2", "a")
        names = ("a", "b", "folder 2", "Folder 10")
        self.assert_done(self.run_program("folders"),
                         "".join(f"{self.folder}/{name}\n" for name in names).encode())
        self.assertEqual(json.loads(self.run_program("folders", "--json").stdout),
                         [f"{self.folder}/{name}" for name in names])

    def test_forgets(self):
        self.add("a")
        self.assert_done(self.run_program("folders", "forget", "a"))
        self.assert_done(self.run_program("folders"))

    def test_a_folder_that_is_not_there_cannot_be_added(self):
        result = self.run_program("folders", "add", "gone")
        self.assertEqual((result.returncode, result.stdout), (1, b""))
        self.assertIn("gone", result.stderr.decode())
        self.assert_done(self.run_program("folders"))

    def test_preferences_that_cannot_be_kept_are_told(self):
        self.config.write_text("a file where the folder should be")
        result = self.run_program("folders", "add", ".")
        self.assertEqual((result.returncode, result.stdout), (1, b""))
        self.assertNotEqual(result.stderr, b"")

    def test_the_home_in_the_environment_does_not_move_the_preferences(self):
        environment = {**self.environment, "HOME": str(self.folder)}
        del environment["XDG_CONFIG_HOME"]
        self.run_program("folders", env=environment)
        self.assertEqual(list(self.folder.iterdir()), [])


class TypesCommand(ProgramTestCase):
    def test_lists_sixteen_types_in_their_order(self):
        ids = [line.split()[0] for line in self.run_program("types").stdout.decode().splitlines()]
        self.assertEqual(ids, "txt md rtf csv json yaml xml html css js sh py swift docx xlsx "
                              "pptx".split())
        listed = json.loads(self.run_program("types", "--json").stdout)
        self.assertEqual([entry["id"] for entry in listed], ids)


class Program(ProgramTestCase):
    def test_wrong_usage_exits_with_2_and_prints_nothing_on_standard_output(self):
        for arguments in ((), ("destroy",), ("create",), ("create", "exe"), ("open",),
                          ("types", "x"), ("folders", "add"), ("quick-create", "md"),
                          ("autostart", "maybe"), ("create", "md", "--quick")):
            result = self.run_program(*arguments)
            self.assertEqual((result.returncode, result.stdout), (2, b""), arguments)
            self.assertTrue(result.stderr.startswith(b"blankwell: "), arguments)

    def needed(self, file):
        """The libraries that `file` is linked to."""
        dynamic = subprocess.run(["readelf", "-d", file], capture_output=True, check=True,
                                 text=True).stdout
        return [line.split("[")[1].rstrip("]") for line in dynamic.splitlines()
                if "(NEEDED)" in line]

    def test_links_no_slow_library(self):
        needed = self.needed(PROGRAM)
        self.assertTrue(any(name.startswith("libplist") for name in needed), needed)
        for slow in ("Qt", "icu", "systemd", "xcb", "gio", "pugixml", "X11", "gtk"):
            self.assertFalse([name for name in needed if slow in name], needed)

    def test_hands_over_without_a_slow_library(self):
        needed = self.needed(os.path.join(os.path.dirname(PROGRAM), "libblankwell-session-bus.so"))
        self.assertTrue(any(name.startswith("libsystemd") for name in needed), needed)
        for slow in ("Qt", "icu", "xcb", "gio", "glib", "plist", "pugixml", "X11", "gtk"):
            self.assertFalse([name for name in needed if slow in name], needed)

    def test_a_missing_module_is_a_damaged_installation(self):
        program = self.folder / "blankwell"
        shutil.copy(PROGRAM, program)
        for name in ("a", "b"):
            (self.folder / name).mkdir()
            self.run_program("folders", "add", name)
        result = subprocess.run([program, "folders"], capture_output=True, check=False,
                                env=self.environment, cwd=self.folder)
        self.assertEqual((result.returncode, result.stdout), (1, b""))
        self.assertIn(b"the installation is damaged", result.stderr)


if __name__ == "__main__":
    unittest.main()
