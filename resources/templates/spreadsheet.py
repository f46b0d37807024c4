"""The empty workbook: one sheet without cells."""

import looks
from packaging import OFFICE_CONTENT_TYPE, OFFICE_RELATIONSHIPS, Package, Part, relationship

NAMESPACE = "http://schemas.openxmlformats.org/spreadsheetml/2006/main"
CONTENT_TYPE = OFFICE_CONTENT_TYPE + "spreadsheetml."
SHEET = "Sheet1"

WORKBOOK = f"""
    <workbook xmlns="{NAMESPACE}" xmlns:r="{OFFICE_RELATIONSHIPS}">
        <bookViews>
            <workbookView/>
        </bookViews>
        <sheets>
            <sheet name="{SHEET}" sheetId="1" r:id="rId1"/>
        </sheets>
    </workbook>
"""

# Heights are in points, margins in inches.
WORKSHEET = f"""
    <worksheet xmlns="{NAMESPACE}">
        <dimension ref="A1"/>
        <sheetViews>
            <sheetView tabSelected="1" workbookViewId="0"/>
        </sheetViews>
        <sheetFormatPr defaultRowHeight="15"/>
        <sheetData/>
        <pageMargins left="0.7" right="0.7" top="0.75" bottom="0.75" header="0.3" footer="0.3"/>
    </worksheet>
"""

# The first two fills are fixed by the format: none and a grey pattern.
STYLES = f"""
    <styleSheet xmlns="{NAMESPACE}">
        <fonts count="1">
            <font>
                <sz val="11"/>
                <name val="{looks.BODY_FONT}"/>
                <family val="2"/>
            </font>
        </fonts>
        <fills count="2">
            <fill><patternFill patternType="none"/></fill>
            <fill><patternFill patternType="gray125"/></fill>
        </fills>
        <borders count="1">
            <border><left/><right/><top/><bottom/><diagonal/></border>
        </borders>
        <cellStyleXfs count="1">
            <xf numFmtId="0" fontId="0" fillId="0" borderId="0"/>
        </cellStyleXfs>
        <cellXfs count="1">
            <xf numFmtId="0" fontId="0" fillId="0" borderId="0" xfId="0"/>
        </cellXfs>
        <cellStyles count="1">
            <cellStyle name="Normal" xfId="0" builtinId="0"/>
        </cellStyles>
    </styleSheet>
"""

APPLICATION_PROPERTIES = f"""
    <HeadingPairs>
        <vt:vector size="2" baseType="variant">
            <vt:variant><vt:lpstr>Worksheets</vt:lpstr></vt:variant>
            <vt:variant><vt:i4>1</vt:i4></vt:variant>
        </vt:vector>
    </HeadingPairs>
    <TitlesOfParts>
        <vt:vector size="1" baseType="lpstr">
            <vt:lpstr>{SHEET}</vt:lpstr>
        </vt:vector>
    </TitlesOfParts>
"""


def package():
    workbook = Part(
        "/xl/workbook.xml",
        CONTENT_TYPE + "sheet.main+xml",
        WORKBOOK,
        (
            relationship("rId1", "worksheet", "/xl/worksheets/sheet1.xml"),
            relationship("rId2", "styles", "/xl/styles.xml"),
        ),
    )
    parts = (
        workbook,
        Part("/xl/worksheets/sheet1.xml", CONTENT_TYPE + "worksheet+xml", WORKSHEET),
        Part("/xl/styles.xml", CONTENT_TYPE + "styles+xml", STYLES),
    )
    return Package(parts, APPLICATION_PROPERTIES)
