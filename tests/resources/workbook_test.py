"""The spreadsheet template, read as XML and by openpyxl."""

import unittest
import warnings

import openpyxl

import templates
from office_package import OfficePackage, relationship_attribute

STYLES = "/xl/styles.xml"


class WorkbookTemplate(unittest.TestCase):
    def setUp(self):
        self.package = OfficePackage(templates.WORKBOOK)

    def test_it_opens_without_a_warning(self):
        with warnings.catch_warnings():
            warnings.simplefilter("error")
            openpyxl.load_workbook(templates.WORKBOOK)

    def test_it_opens_as_one_sheet_without_values(self):
        workbook = openpyxl.load_workbook(templates.WORKBOOK)
        self.assertEqual(workbook.sheetnames, ["Sheet1"])
        self.assertEqual(workbook.active.calculate_dimension(), "A1:A1")
        self.assertEqual([cell for row in workbook.active.values for cell in row if cell is not None], [])

    def test_it_opens_with_a_plain_font(self):
        font = openpyxl.load_workbook(templates.WORKBOOK).active["A1"].font
        self.assertEqual((font.name, font.sz, font.b, font.i), ("Calibri", 11, False, False))

    def test_its_sheet_is_the_one_that_the_workbook_names(self):
        sheet, = self.package.find_all("/xl/workbook.xml", "x:sheets/x:sheet")
        reference, = (
            each for each in self.package.references("/xl/workbook.xml")
            if each.id == sheet.get(relationship_attribute("id"))
        )
        self.assertEqual((reference.type, reference.target), ("worksheet", "/xl/worksheets/sheet1.xml"))
        self.assertEqual(len(self.package.find(reference.target, "x:sheetData")), 0)

    def test_the_first_fills_are_those_that_the_format_reserves(self):
        patterns = [each.get("patternType") for each in self.package.find_all(STYLES, "x:fills/x:fill/x:patternFill")]
        self.assertEqual(patterns, ["none", "gray125"])

    def test_formats_refer_to_what_exists(self):
        lists = {"fontId": "x:fonts", "fillId": "x:fills", "borderId": "x:borders", "xfId": "x:cellStyleXfs"}
        formats = self.package.find_all(STYLES, ".//x:xf") + self.package.find_all(STYLES, ".//x:cellStyle")
        self.assertEqual(len(formats), 3)
        for each in formats:
            for attribute, target in lists.items():
                if each.get(attribute) is not None:
                    self.assertLess(int(each.get(attribute)), len(self.package.find(STYLES, target)), attribute)

    def test_the_normal_style_is_the_built_in_one(self):
        style, = self.package.find_all(STYLES, "x:cellStyles/x:cellStyle")
        self.assertEqual((style.get("name"), style.get("builtinId")), ("Normal", "0"))

    def test_its_properties_name_its_sheets(self):
        sheets = [each.get("name") for each in self.package.find_all("/xl/workbook.xml", "x:sheets/x:sheet")]
        properties = "/docProps/app.xml"
        titles = self.package.find_all(properties, "ep:TitlesOfParts/vt:vector/vt:lpstr")
        counts = self.package.find_all(properties, "ep:HeadingPairs/vt:vector/vt:variant/*")
        self.assertEqual([each.text for each in titles], sheets)
        self.assertEqual([each.text for each in counts], ["Worksheets", str(len(sheets))])


if __name__ == "__main__":
    unittest.main()
