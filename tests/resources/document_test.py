"""The word-processing template, read as XML and by python-docx."""

import unittest

import docx
from docx.shared import Cm, Inches, Pt

import templates
from office_package import NAMESPACES, OfficePackage

STYLES = "/word/styles.xml"


def word(name):
    return "{" + NAMESPACES["w"] + "}" + name


class DocumentTemplate(unittest.TestCase):
    def setUp(self):
        self.package = OfficePackage(templates.DOCUMENT)

    def test_it_opens_as_one_empty_paragraph(self):
        document = docx.Document(templates.DOCUMENT)
        self.assertEqual([paragraph.text for paragraph in document.paragraphs], [""])
        self.assertEqual(document.paragraphs[0].style.name, "Normal")
        self.assertEqual(len(document.tables), 0)

    def test_it_opens_as_one_section_on_an_a4_page(self):
        section, = docx.Document(templates.DOCUMENT).sections
        self.assertAlmostEqual(section.page_width, Cm(21), delta=Pt(1))
        self.assertAlmostEqual(section.page_height, Cm(29.7), delta=Pt(1))
        margins = (section.top_margin, section.right_margin, section.bottom_margin, section.left_margin)
        self.assertEqual(margins, (Inches(1),) * 4)

    def test_text_is_set_in_a_plain_font_without_a_language(self):
        defaults = self.package.find(STYLES, "w:docDefaults/w:rPrDefault/w:rPr")
        self.assertEqual(defaults.find("w:rFonts", NAMESPACES).get(word("ascii")), "Calibri")
        self.assertEqual(defaults.find("w:sz", NAMESPACES).get(word("val")), "22")
        self.assertIsNone(defaults.find("w:lang", NAMESPACES))

    def test_title_and_headings_can_be_used(self):
        document = docx.Document(templates.DOCUMENT)
        for level, style in enumerate(("Title", "Heading 1", "Heading 2", "Heading 3")):
            self.assertEqual(document.add_heading(style, level).style.name, style)

    def test_every_kind_of_style_has_one_default(self):
        defaults = [
            style.get(word("type")) for style in self.package.find_all(STYLES, "w:style")
            if style.get(word("default")) == "1"
        ]
        self.assertCountEqual(defaults, ["paragraph", "character", "table", "numbering"])

    def test_styles_refer_to_styles(self):
        identifiers = [style.get(word("styleId")) for style in self.package.find_all(STYLES, "w:style")]
        self.assertEqual(len(set(identifiers)), len(identifiers))
        for role in ("basedOn", "next"):
            for reference in self.package.find_all(STYLES, "w:style/w:" + role):
                self.assertIn(reference.get(word("val")), identifiers)

    def test_current_layout_rules_apply(self):
        settings = {
            each.get(word("name")): each.get(word("val"))
            for each in self.package.find_all("/word/settings.xml", "w:compat/w:compatSetting")
        }
        self.assertEqual(settings, {"compatibilityMode": "15"})

    def test_its_properties_count_what_it_holds(self):
        text = "".join(each.text or "" for each in self.package.find_all("/word/document.xml", ".//w:t"))
        paragraphs = [each for each in self.package.find_all("/word/document.xml", ".//w:p") if len(each)]
        self.assertEqual(self.package.property("Words"), str(len(text.split())))
        self.assertEqual(self.package.property("Characters"), str(len("".join(text.split()))))
        self.assertEqual(self.package.property("Paragraphs"), str(len(paragraphs)))
        self.assertEqual(self.package.property("Pages"), "1")


if __name__ == "__main__":
    unittest.main()
