"""The templates in LibreOffice, each test with a profile of its own."""

import re
import subprocess
import tempfile
import unittest
import xml.etree.ElementTree as ElementTree
import zipfile
from pathlib import Path

import docx
from docx.enum.style import WD_STYLE_TYPE
from docx.shared import Pt

import templates
from office_package import OfficePackage

# Named, because LibreOffice opens what is damaged beyond recognition as plain text.
IMPORT_FILTERS = {
    ".docx": "MS Word 2007 XML",
    ".xlsx": "Calc MS Excel 2007 XML",
    ".pptx": "Impress MS PowerPoint 2007 XML",
}
TABLE = "{urn:oasis:names:tc:opendocument:xmlns:table:1.0}"


def page_count_and_size(pdf):
    """The number of pages and the width and height of the first one in points."""
    report = subprocess.run(["pdfinfo", pdf], check=True, capture_output=True, text=True).stdout
    pages = int(re.search(r"^Pages:\s+(\d+)", report, re.MULTILINE)[1])
    width, height = re.search(r"^Page size:\s+([\d.]+) x ([\d.]+) pts", report, re.MULTILINE).groups()
    return pages, (round(float(width)), round(float(height)))


def font_sizes(document):
    """The sizes that paragraph styles set, by the identifiers of the styles."""
    styles = (each for each in document.styles if each.type == WD_STYLE_TYPE.PARAGRAPH)
    return {each.style_id: each.font.size for each in styles if each.font.size}


class OfficeProgram(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)

    def convert(self, path, extension):
        """The file that LibreOffice makes of another; it exits with success even when it makes none."""
        output = self.folder / "converted"
        run = subprocess.run(
            [
                "soffice", f"-env:UserInstallation={(self.folder / 'profile').as_uri()}", "--headless",
                f"--infilter={IMPORT_FILTERS[path.suffix]}", "--convert-to", extension, "--outdir", output, path,
            ],
            capture_output=True, text=True, timeout=240,
        )
        self.assertEqual(run.returncode, 0, run.stderr)
        self.assertNotRegex(run.stderr, r"(?i)error|repair|corrupt")
        converted = output / f"{path.stem}.{extension}"
        self.assertTrue(converted.is_file(), run.stdout + run.stderr)
        return converted

    def test_the_document_prints_as_one_a4_page(self):
        pages, size = page_count_and_size(self.convert(templates.DOCUMENT, "pdf"))
        self.assertEqual((pages, size), (1, (595, 842)))

    def test_the_presentation_prints_as_many_wide_pages_as_it_has_slides(self):
        pages, size = page_count_and_size(self.convert(templates.PRESENTATION, "pdf"))
        slides = OfficePackage(templates.PRESENTATION).find_all("/ppt/presentation.xml", "p:sldIdLst/p:sldId")
        self.assertEqual((pages, size), (len(slides), (960, 540)))

    def test_the_workbook_converts_to_one_sheet_without_values(self):
        with zipfile.ZipFile(self.convert(templates.WORKBOOK, "ods")) as archive:
            content = ElementTree.fromstring(archive.read("content.xml"))
        self.assertEqual([each.get(TABLE + "name") for each in content.iter(TABLE + "table")], ["Sheet1"])
        self.assertEqual("".join(content.itertext()).strip(), "")

    def test_the_document_survives_being_saved(self):
        before = docx.Document(templates.DOCUMENT)
        after = docx.Document(self.convert(templates.DOCUMENT, "docx"))
        self.assertEqual([each.text for each in after.paragraphs], [""])
        self.assertEqual(after.sections[0].page_width, before.sections[0].page_width)
        self.assertEqual(after.sections[0].left_margin, before.sections[0].left_margin)
        self.assertEqual(after.styles["Normal"].font.size, Pt(11))
        self.assertLessEqual(font_sizes(before).items(), font_sizes(after).items())

    def test_the_workbook_survives_being_saved(self):
        saved = OfficePackage(self.convert(templates.WORKBOOK, "xlsx"))
        sheets = [each.get("name") for each in saved.find_all("/xl/workbook.xml", "x:sheets/x:sheet")]
        self.assertEqual(sheets, ["Sheet1"])

    def test_the_presentation_survives_being_saved(self):
        saved = OfficePackage(self.convert(templates.PRESENTATION, "pptx"))
        slide, = saved.find_all("/ppt/presentation.xml", "p:sldIdLst/p:sldId")
        roles = [each.get("type") for each in saved.find_all("/ppt/slides/slide1.xml", ".//p:ph")]
        self.assertEqual(len(roles), 2)
        self.assertIn("subTitle", roles)
        self.assertTrue({"title", "ctrTitle"} & set(roles), roles)


if __name__ == "__main__":
    unittest.main()
