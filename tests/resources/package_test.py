"""What holds for all templates: reproducible bytes and packages that are consistent in themselves."""

import os
import re
import subprocess
import sys
import tempfile
import unittest
import zipfile
from pathlib import Path

import templates
from element_order import misplaced_children
from office_package import OfficePackage, short_name

XML_DECLARATION = b'<?xml version="1.0" encoding="UTF-8" standalone="yes"?>\n<'

PRODUCERS = re.compile(
    r"microsoft|windows nt|excel|powerpoint|libre|openoffice|onlyoffice|google|apple|wps|kingsoft|aspose"
    r"|apache|openpyxl|python|pandoc",
    re.IGNORECASE,
)
# The name of a setting that no other name has.
COMPATIBILITY_SETTING = "http://schemas.microsoft.com/office/word"


def generate(folder, **environment):
    subprocess.run(
        [sys.executable, "-B", templates.SOURCES / "generate.py", folder],
        check=True, cwd="/", env={**os.environ, **environment},
    )


def all_packages():
    return map(OfficePackage, templates.ALL)


class TemplateFiles(unittest.TestCase):
    def test_generating_again_gives_the_committed_bytes(self):
        environments = (
            {"LC_ALL": "C", "TZ": "Pacific/Apia", "PYTHONHASHSEED": "1", "PYTHONUTF8": "0"},
            {"LC_ALL": "C.UTF-8", "TZ": "America/Adak", "PYTHONHASHSEED": "2"},
        )
        for environment in environments:
            with tempfile.TemporaryDirectory() as folder:
                generate(folder, **environment)
                self.assertCountEqual(os.listdir(folder), [path.name for path in templates.ALL])
                for path in templates.ALL:
                    self.assertEqual((Path(folder) / path.name).read_bytes(), path.read_bytes(), path.name)

    def test_the_build_tree_holds_the_committed_bytes(self):
        for path in templates.ALL:
            self.assertEqual((templates.BUILT_RESOURCES / path.name).read_bytes(), path.read_bytes(), path.name)

    def test_the_files_are_small(self):
        limits = {templates.DOCUMENT: 8, templates.WORKBOOK: 8, templates.PRESENTATION: 30}
        for path, kibibytes in limits.items():
            self.assertLess(path.stat().st_size, kibibytes * 1024, path.name)


class TemplatePackages(unittest.TestCase):
    def test_entries_are_stored_without_date_or_machine(self):
        for package in all_packages():
            for entry in package.entries:
                self.assertEqual(entry.compress_type, zipfile.ZIP_STORED, entry)
                self.assertEqual(entry.date_time, (1980, 1, 1, 0, 0, 0), entry)
                self.assertEqual(entry.create_system, 3, entry)
                self.assertEqual(entry.external_attr, 0o100644 << 16, entry)
                self.assertEqual((entry.flag_bits, entry.extra, entry.comment), (0, b"", b""), entry)

    def test_entry_names_are_unique_whatever_their_case(self):
        for package in all_packages():
            names = [entry.filename for entry in package.entries]
            self.assertEqual(len({name.lower() for name in names}), len(names))
            for name in names:
                self.assertRegex(name, r"^[\[\]A-Za-z0-9_./]+$")

    def test_the_first_entries_tell_the_format(self):
        for package in all_packages():
            names = ["/" + entry.filename for entry in package.entries[:3]]
            main_part = package.target("/", "officeDocument")
            self.assertEqual(names, ["/[Content_Types].xml", "/_rels/.rels", main_part])

    def test_parts_are_well_formed_utf8_without_byte_order_mark(self):
        for package in all_packages():
            for name, content in package.contents.items():
                self.assertTrue(content.startswith(XML_DECLARATION), name)
                self.assertNotIn("\ufeff", content.decode("utf-8"), name)

    def test_every_part_has_one_content_type_of_its_own(self):
        for package in all_packages():
            self.assertCountEqual(package.overrides, package.parts())
            self.assertEqual(
                package.defaults["rels"], "application/vnd.openxmlformats-package.relationships+xml"
            )

    def test_every_relationship_leads_to_a_part(self):
        for package in all_packages():
            for source in ["/", *package.parts()]:
                references = package.references(source)
                self.assertEqual(len({each.id for each in references}), len(references), source)
                for each in references:
                    self.assertEqual(each.mode, "Internal", source)
                    self.assertIn(each.target, package.parts(), source)

    def test_every_relationship_has_the_role_of_its_targets_content_type(self):
        roles = {"core-properties": "core-properties", "extended-properties": "extended-properties",
                 "officeDocument": ".main"}
        for package in all_packages():
            for source in ["/", *package.parts()]:
                for each in package.references(source):
                    role = roles.get(each.type, "." + each.type)
                    self.assertTrue(package.overrides[each.target].endswith(role + "+xml"), each)

    def test_every_part_is_reached_from_the_root(self):
        for package in all_packages():
            reached = {"/"}
            waiting = ["/"]
            while waiting:
                found = {each.target for each in package.references(waiting.pop())} - reached
                reached |= found
                waiting += found
            self.assertCountEqual(reached - {"/"}, package.parts())

    def test_every_relationship_part_belongs_to_a_part(self):
        for package in all_packages():
            for name in package.contents:
                if "/_rels/" in name and name != "/_rels/.rels":
                    self.assertIn(name.replace("/_rels/", "/")[:-len(".rels")], package.parts())

    def test_every_reference_in_the_xml_is_a_relationship(self):
        for package in all_packages():
            for part in package.parts():
                identifiers = {each.id for each in package.references(part)}
                used = re.findall(rb'r:id="([^"]*)"', package.contents[part])
                self.assertLessEqual({each.decode() for each in used}, identifiers, part)

    def test_elements_stand_in_the_order_of_the_standard(self):
        for package in all_packages():
            for part, tree in package.trees.items():
                for element in tree.iter():
                    if short_name(element.tag) not in ("ep:Properties", "cp:coreProperties"):
                        self.assertEqual(misplaced_children(element, short_name), [], (part, element.tag))

    def test_counts_are_those_of_the_children(self):
        """Attributes count and size beside the elements they count; latent styles count a program's own."""
        for package in all_packages():
            for tree in package.trees.values():
                for element in tree.iter():
                    count = element.get("count") or element.get("size")
                    if count is not None:
                        self.assertEqual(int(count), len(element), element.tag)


class TemplateProperties(unittest.TestCase):
    def test_nobody_is_named_as_author_and_no_date_is_claimed(self):
        for package in all_packages():
            core = package.trees["/docProps/core.xml"]
            self.assertEqual((len(core), core.text), (0, None))

    def test_no_other_producer_is_named(self):
        for path in templates.ALL:
            text = path.read_bytes().decode("latin-1").replace(COMPATIBILITY_SETTING, "")
            self.assertEqual(PRODUCERS.findall(text), [], path.name)

    def test_the_application_is_this_one(self):
        for package in all_packages():
            self.assertEqual(package.property("Application"), "Blankwell+")


if __name__ == "__main__":
    unittest.main()
