"""The man page and the completions: they are well-formed, and leave no command out."""

import os
import subprocess
import unittest

from blankwell_program import PROGRAM, SOURCE, ProgramTestCase

COMMANDS = ("create", "open", "quick-create", "types", "folders", "add", "forget", "autostart", "on",
            "off", "menus", "list", "install", "unregister", "uninstall")
OPTIONS = ("--to", "--yes", "--desktop", "--front", "--json", "--help", "--version", "--verbose")
MAN_PAGE = SOURCE / "resources/man/blankwell.1"
COMPLETIONS = SOURCE / "resources/completions"


class Documentation(ProgramTestCase):
    def test_every_place_names_every_command_and_option(self):
        texts = {
            "--help": self.run_program("--help").stdout.decode(),
            "man page": MAN_PAGE.read_text().replace("\\-", "-"),
            "bash": (COMPLETIONS / "blankwell.bash").read_text(),
            "zsh": (COMPLETIONS / "_blankwell").read_text(),
            "fish": (COMPLETIONS / "blankwell.fish").read_text().replace("-l ", "--"),
        }
        for place, text in texts.items():
            for word in COMMANDS + OPTIONS:
                self.assertIn(word, text, place)

    def test_the_man_page_formats_without_a_warning(self):
        result = subprocess.run(["groff", "-man", "-Tutf8", "-P-cbu", "-ww", MAN_PAGE],
                                capture_output=True, check=True, text=True)
        self.assertEqual(result.stderr, "")
        self.assertIn("EXIT STATUS", result.stdout)

    def test_zsh_and_fish_understand_their_completions(self):
        subprocess.run(["zsh", "-n", COMPLETIONS / "_blankwell"], check=True)
        subprocess.run(["fish", "--no-execute", COMPLETIONS / "blankwell.fish"], check=True,
                       env={**os.environ, "HOME": str(self.folder)})


class BashCompletion(ProgramTestCase):
    def completions(self, *words):
        """What bash offers for the last of `words`."""
        script = ('PATH="$1:$PATH"; source "$2"; shift 2; COMP_WORDS=("$@"); '
                  'COMP_CWORD=$(($# - 1)); compopt() { :; }; _blankwell; '
                  'printf "%s\\n" "${COMPREPLY[@]}"')
        result = subprocess.run(
            ["bash", "-c", script, "bash", os.path.dirname(PROGRAM),
             COMPLETIONS / "blankwell.bash", "blankwell", *words],
            capture_output=True, check=True, text=True, cwd=self.folder, env=self.environment)
        self.assertEqual(result.stderr, "")
        return [line for line in result.stdout.split("\n") if line]

    def test_offers_the_commands(self):
        self.assertEqual(self.completions("fo"), ["folders"])
        self.assertIn("create", self.completions(""))

    def test_offers_the_types_that_the_program_knows(self):
        self.assertEqual(self.completions("create", "c"), ["csv", "css"])
        self.assertEqual(len(self.completions("create", "")), 16)

    def test_offers_folders_and_places(self):
        (self.folder / "notes").mkdir()
        (self.folder / "file").touch()
        self.assertEqual(self.completions("create", "md", ""), ["notes"])
        self.assertEqual(self.completions("create", "md", "--"), ["--desktop", "--front"])

    def test_offers_the_states_of_the_start_at_login(self):
        self.assertEqual(self.completions("autostart", "o"), ["on", "off"])
        self.assertEqual(self.completions("autostart", "on", ""), [])

    def test_offers_the_file_managers(self):
        self.assertEqual(self.completions("menus", ""), ["list", "on", "off"])
        self.assertEqual(self.completions("menus", "on", "n"), ["nautilus", "nemo"])
        self.assertEqual(self.completions("menus", "on", "nemo", "d"), ["dolphin"])
        self.assertEqual(self.completions("menus", "list", ""), [])

    def test_offers_to_uninstall_unasked(self):
        self.assertEqual(self.completions("unin"), ["uninstall"])
        self.assertEqual(self.completions("uninstall", ""), ["--yes"])

    def test_offers_where_to_install(self):
        (self.folder / "notes").mkdir()
        self.assertEqual(self.completions("install", ""), ["--to"])
        self.assertEqual(self.completions("install", "--to", ""), ["notes"])

    def test_offers_the_saved_folders_to_forget(self):
        (self.folder / "a b").mkdir()
        self.run_program("folders", "add", "a b")
        self.assertEqual(self.completions("folders", "forget", str(self.folder)[:4]),
                         [f"{self.folder}/a b"])


if __name__ == "__main__":
    unittest.main()
