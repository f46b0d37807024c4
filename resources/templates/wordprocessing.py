"""The empty word-processing document: one empty paragraph on an A4 page."""

import looks
from packaging import OFFICE_CONTENT_TYPE, Package, Part, relationship

NAMESPACE = "http://schemas.openxmlformats.org/wordprocessingml/2006/main"
CONTENT_TYPE = OFFICE_CONTENT_TYPE + "wordprocessingml."

# Lengths are in twentieths of a point: A4 with margins of one inch.
DOCUMENT = f"""
    <w:document xmlns:w="{NAMESPACE}">
        <w:body>
            <w:p/>
            <w:sectPr>
                <w:pgSz w:w="11906" w:h="16838"/>
                <w:pgMar w:top="1440" w:right="1440" w:bottom="1440" w:left="1440"
                         w:header="720" w:footer="720" w:gutter="0"/>
                <w:cols w:space="720"/>
            </w:sectPr>
        </w:body>
    </w:document>
"""

# Without a compatibility mode a document counts as one of the oldest program that knows the format, and
# newer layout rules stay off.
SETTINGS = f"""
    <w:settings xmlns:w="{NAMESPACE}">
        <w:defaultTabStop w:val="720"/>
        <w:characterSpacingControl w:val="doNotCompress"/>
        <w:compat>
            <w:compatSetting w:name="compatibilityMode" w:uri="http://schemas.microsoft.com/office/word" w:val="15"/>
        </w:compat>
    </w:settings>
"""

# Text has no language here, so that the office program checks its spelling in the user's.
DEFAULTS = f"""
    <w:docDefaults>
        <w:rPrDefault>
            <w:rPr>
                <w:rFonts w:ascii="{looks.BODY_FONT}" w:hAnsi="{looks.BODY_FONT}"
                          w:eastAsia="{looks.BODY_FONT}" w:cs="{looks.BODY_FONT}"/>
                <w:sz w:val="22"/>
                <w:szCs w:val="22"/>
            </w:rPr>
        </w:rPrDefault>
        <w:pPrDefault>
            <w:pPr>
                <w:spacing w:after="160" w:line="259" w:lineRule="auto"/>
            </w:pPr>
        </w:pPrDefault>
    </w:docDefaults>
"""

# The built-in styles that a program offers though the document does not define them, with their place in
# the list; all others appear once they are used.
OFFERED_STYLES = (
    ("heading 4", 9),
    ("Subtitle", 11),
    ("Emphasis", 20),
    ("Strong", 22),
    ("Quote", 29),
    ("List Paragraph", 34),
)
BUILT_IN_STYLES = 267

DEFAULT_STYLES = """
    <w:style w:type="paragraph" w:default="1" w:styleId="Normal">
        <w:name w:val="Normal"/>
        <w:qFormat/>
    </w:style>
    <w:style w:type="character" w:default="1" w:styleId="DefaultParagraphFont">
        <w:name w:val="Default Paragraph Font"/>
        <w:uiPriority w:val="1"/>
        <w:semiHidden/>
        <w:unhideWhenUsed/>
    </w:style>
    <w:style w:type="table" w:default="1" w:styleId="TableNormal">
        <w:name w:val="Normal Table"/>
        <w:uiPriority w:val="99"/>
        <w:semiHidden/>
        <w:unhideWhenUsed/>
        <w:tblPr>
            <w:tblInd w:w="0" w:type="dxa"/>
            <w:tblCellMar>
                <w:top w:w="0" w:type="dxa"/>
                <w:left w:w="108" w:type="dxa"/>
                <w:bottom w:w="0" w:type="dxa"/>
                <w:right w:w="108" w:type="dxa"/>
            </w:tblCellMar>
        </w:tblPr>
    </w:style>
    <w:style w:type="numbering" w:default="1" w:styleId="NoList">
        <w:name w:val="No List"/>
        <w:uiPriority w:val="99"/>
        <w:semiHidden/>
        <w:unhideWhenUsed/>
    </w:style>
"""


def title_style():
    return f"""
        <w:style w:type="paragraph" w:styleId="Title">
            <w:name w:val="Title"/>
            <w:basedOn w:val="Normal"/>
            <w:next w:val="Normal"/>
            <w:uiPriority w:val="10"/>
            <w:qFormat/>
            <w:pPr>
                <w:spacing w:after="0" w:line="240" w:lineRule="auto"/>
                <w:contextualSpacing/>
            </w:pPr>
            {heading_font(half_points=56)}
        </w:style>
    """


def heading_style(level, space_before, half_points):
    return f"""
        <w:style w:type="paragraph" w:styleId="Heading{level}">
            <w:name w:val="heading {level}"/>
            <w:basedOn w:val="Normal"/>
            <w:next w:val="Normal"/>
            <w:uiPriority w:val="9"/>
            <w:qFormat/>
            <w:pPr>
                <w:keepNext/>
                <w:keepLines/>
                <w:spacing w:before="{space_before}" w:after="0"/>
                <w:outlineLvl w:val="{level - 1}"/>
            </w:pPr>
            {heading_font(half_points)}
        </w:style>
    """


def heading_font(half_points):
    return f"""
        <w:rPr>
            <w:rFonts w:ascii="{looks.HEADING_FONT}" w:hAnsi="{looks.HEADING_FONT}"
                      w:eastAsia="{looks.HEADING_FONT}" w:cs="{looks.HEADING_FONT}"/>
            <w:color w:val="{looks.DARK}"/>
            <w:sz w:val="{half_points}"/>
            <w:szCs w:val="{half_points}"/>
        </w:rPr>
    """


def offered_styles():
    exceptions = "".join(
        f'<w:lsdException w:name="{name}" w:semiHidden="0" w:uiPriority="{place}" w:unhideWhenUsed="0"'
        ' w:qFormat="1"/>'
        for name, place in OFFERED_STYLES
    )
    return f"""
        <w:latentStyles w:defLockedState="0" w:defUIPriority="99" w:defSemiHidden="1"
                        w:defUnhideWhenUsed="1" w:defQFormat="0" w:count="{BUILT_IN_STYLES}">
            {exceptions}
        </w:latentStyles>
    """


def styles():
    return f"""
        <w:styles xmlns:w="{NAMESPACE}">
            {DEFAULTS}
            {offered_styles()}
            {DEFAULT_STYLES}
            {title_style()}
            {heading_style(1, space_before=240, half_points=32)}
            {heading_style(2, space_before=120, half_points=26)}
            {heading_style(3, space_before=120, half_points=24)}
        </w:styles>
    """


def package():
    document = Part(
        "/word/document.xml",
        CONTENT_TYPE + "document.main+xml",
        DOCUMENT,
        (
            relationship("rId1", "styles", "/word/styles.xml"),
            relationship("rId2", "settings", "/word/settings.xml"),
        ),
    )
    parts = (
        document,
        Part("/word/styles.xml", CONTENT_TYPE + "styles+xml", styles()),
        Part("/word/settings.xml", CONTENT_TYPE + "settings+xml", SETTINGS),
    )
    return Package(parts, "<Pages>1</Pages><Words>0</Words><Characters>0</Characters><Paragraphs>0</Paragraphs>")
