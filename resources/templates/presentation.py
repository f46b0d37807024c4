"""The empty presentation: one wide title slide whose placeholders wait for text.

There is a slide, rather than none, because a user expects to start typing in what was just created.
"""

from typing import NamedTuple, Tuple

import theme
from packaging import OFFICE_CONTENT_TYPE, OFFICE_RELATIONSHIPS, Package, Part, relationship

NAMESPACE = "http://schemas.openxmlformats.org/presentationml/2006/main"
NAMESPACES = f'xmlns:a="{theme.NAMESPACE}" xmlns:p="{NAMESPACE}"'
RELATIONSHIPS = f'xmlns:r="{OFFICE_RELATIONSHIPS}"'
CONTENT_TYPE = OFFICE_CONTENT_TYPE + "presentationml."

EMU_PER_POINT = 12700
LEVELS = range(1, 10)

# Masters and layouts share the numbers from 2^31 (ST_SlideMasterId, ST_SlideLayoutId), slides have those
# from 256 below it (ST_SlideId).
MASTER_ID = 2147483648
FIRST_SLIDE_ID = 256

PRESENTATION_NAME = "/ppt/presentation.xml"
MASTER_NAME = "/ppt/slideMasters/slideMaster1.xml"
THEME_NAME = "/ppt/theme/theme1.xml"
SLIDE_NAME = "/ppt/slides/slide1.xml"


def layout_name(number):
    return f"/ppt/slideLayouts/slideLayout{number}.xml"


class Box(NamedTuple):
    """Where a shape stands, in points from the upper left corner of the slide."""

    x: int
    y: int
    width: int
    height: int


class Placeholder(NamedTuple):
    """A shape that waits for content. What it leaves open comes from the master's of the same type."""

    name: str
    role: str                  # attributes of p:ph
    box: Box = None
    text: str = "<a:p/>"
    body: str = "<a:bodyPr/>"
    style: str = ""            # children of a:lstStyle


class Layout(NamedTuple):
    name: str
    type: str
    placeholders: Tuple[Placeholder, ...]


SLIDE = Box(0, 0, 960, 540)
TITLE_BOX = Box(66, 29, 828, 104)
BODY_BOX = Box(66, 144, 828, 343)
LEFT_BOX = Box(66, 144, 405, 343)
RIGHT_BOX = Box(489, 144, 405, 343)
DATE_BOX = Box(66, 500, 216, 29)
FOOTER_BOX = Box(318, 500, 324, 29)
NUMBER_BOX = Box(678, 500, 216, 29)

# Programs show prompts of their own, in the user's language, in place of these words.
TITLE_TEXT = "<a:p><a:r><a:t>Title</a:t></a:r></a:p>"
TEXT_TEXT = "<a:p><a:r><a:t>Text</a:t></a:r></a:p>"
LEVELS_TEXT = "".join(
    f'<a:p><a:pPr lvl="{level}"/><a:r><a:t>{text}</a:t></a:r></a:p>'
    for level, text in enumerate(("First level", "Second level", "Third level", "Fourth level", "Fifth level"))
)
NUMBER_TEXT = (
    '<a:p><a:fld id="{5D1E7C52-3B0A-4C7E-9E55-6C3D1F0B8A24}" type="slidenum"><a:t>‹#›</a:t></a:fld></a:p>'
)

FITTED = '<a:bodyPr anchor="{}"><a:normAutofit/></a:bodyPr>'


def small_print(alignment):
    """The style of date, footer and number."""
    return f'<a:lvl1pPr algn="{alignment}"><a:defRPr sz="1200">{theme_colour("tx2")}</a:defRPr></a:lvl1pPr>'


def theme_colour(role):
    return f'<a:solidFill><a:schemeClr val="{role}"/></a:solidFill>'


MIDDLE = '<a:bodyPr anchor="ctr"/>'
MASTER_PLACEHOLDERS = (
    Placeholder("Title", 'type="title"', TITLE_BOX, TITLE_TEXT, FITTED.format("ctr")),
    Placeholder("Text", 'type="body" idx="1"', BODY_BOX, LEVELS_TEXT, FITTED.format("t")),
    Placeholder("Date", 'type="dt" sz="half" idx="2"', DATE_BOX, body=MIDDLE, style=small_print("l")),
    Placeholder("Footer", 'type="ftr" sz="quarter" idx="3"', FOOTER_BOX, body=MIDDLE, style=small_print("ctr")),
    Placeholder(
        "Slide Number", 'type="sldNum" sz="quarter" idx="4"', NUMBER_BOX, NUMBER_TEXT, MIDDLE, small_print("r")
    ),
)

TITLE = Placeholder("Title", 'type="title"', text=TITLE_TEXT)
FOOTERS = (
    Placeholder("Date", 'type="dt" sz="half" idx="10"'),
    Placeholder("Footer", 'type="ftr" sz="quarter" idx="11"'),
    Placeholder("Slide Number", 'type="sldNum" sz="quarter" idx="12"', text=NUMBER_TEXT),
)

# The first layout is the one of the slide; a new slide after it takes the second.
LAYOUTS = (
    Layout("Title Slide", "title", (
        Placeholder(
            "Title", 'type="ctrTitle"', Box(120, 88, 720, 188), TITLE_TEXT, '<a:bodyPr anchor="b"/>',
            '<a:lvl1pPr algn="ctr"><a:defRPr sz="6000"/></a:lvl1pPr>',
        ),
        Placeholder(
            "Subtitle", 'type="subTitle" idx="1"', Box(120, 284, 720, 130), TEXT_TEXT,
            style='<a:lvl1pPr marL="0" indent="0" algn="ctr"><a:buNone/><a:defRPr sz="2400"/></a:lvl1pPr>',
        ),
    )),
    Layout("Title and Content", "obj", (
        TITLE,
        Placeholder("Content", 'idx="1"', text=TEXT_TEXT),
    )),
    Layout("Two Content", "twoObj", (
        TITLE,
        Placeholder("Left Content", 'sz="half" idx="1"', LEFT_BOX, TEXT_TEXT),
        Placeholder("Right Content", 'sz="half" idx="2"', RIGHT_BOX, TEXT_TEXT),
    )),
    Layout("Title Only", "titleOnly", (TITLE,)),
    Layout("Blank", "blank", ()),
)

SLIDE_PLACEHOLDERS = (
    Placeholder("Title", 'type="ctrTitle"'),
    Placeholder("Subtitle", 'type="subTitle" idx="1"'),
)


def frame(box):
    """The geometry of a shape; nothing when it has its master's."""
    if box is None:
        return "<p:spPr/>"
    x, y, width, height = (points * EMU_PER_POINT for points in box)
    return f"""
        <p:spPr>
            <a:xfrm><a:off x="{x}" y="{y}"/><a:ext cx="{width}" cy="{height}"/></a:xfrm>
            <a:prstGeom prst="rect"><a:avLst/></a:prstGeom>
        </p:spPr>
    """


def list_style(levels):
    return f"<a:lstStyle>{levels}</a:lstStyle>" if levels else ""


def shape(identifier, placeholder):
    return f"""
        <p:sp>
            <p:nvSpPr>
                <p:cNvPr id="{identifier}" name="{placeholder.name}"/>
                <p:cNvSpPr><a:spLocks noGrp="1"/></p:cNvSpPr>
                <p:nvPr><p:ph {placeholder.role}/></p:nvPr>
            </p:nvSpPr>
            {frame(placeholder.box)}
            <p:txBody>
                {placeholder.body}
                {list_style(placeholder.style)}
                {placeholder.text}
            </p:txBody>
        </p:sp>
    """


def shape_tree(placeholders):
    """The shapes of a slide, layout or master. The tree itself is the shape with the first number."""
    shapes = "".join(shape(number, each) for number, each in enumerate(placeholders, start=2))
    return f"""
        <p:spTree>
            <p:nvGrpSpPr><p:cNvPr id="1" name=""/><p:cNvGrpSpPr/><p:nvPr/></p:nvGrpSpPr>
            <p:grpSpPr/>
            {shapes}
        </p:spTree>
    """


def run_defaults(size, fonts):
    """Text of a size in hundredths of a point, in the theme's major ("mj") or minor ("mn") fonts."""
    return f"""
        <a:defRPr sz="{size}" kern="1200">
            {theme_colour("tx1")}
            <a:latin typeface="+{fonts}-lt"/><a:ea typeface="+{fonts}-ea"/><a:cs typeface="+{fonts}-cs"/>
        </a:defRPr>
    """


def title_style():
    return f"""
        <a:lvl1pPr>
            <a:lnSpc><a:spcPct val="90000"/></a:lnSpc>
            <a:spcBef><a:spcPct val="0"/></a:spcBef>
            <a:buNone/>
            {run_defaults(4400, "mj")}
        </a:lvl1pPr>
    """


def list_level(level):
    """Bulleted text, smaller and further in at each of the first levels. Margins are in EMU."""
    size = {1: 2800, 2: 2400, 3: 2000}.get(level, 1800)
    return f"""
        <a:lvl{level}pPr marL="{228600 + 457200 * (level - 1)}" indent="-228600">
            <a:lnSpc><a:spcPct val="90000"/></a:lnSpc>
            <a:spcBef><a:spcPts val="{1000 if level == 1 else 500}"/></a:spcBef>
            <a:buFont typeface="Arial"/><a:buChar char="•"/>
            {run_defaults(size, "mn")}
        </a:lvl{level}pPr>
    """


def plain_level(level):
    """Text outside of placeholders."""
    return f"""
        <a:lvl{level}pPr marL="{457200 * (level - 1)}">{run_defaults(1800, "mn")}</a:lvl{level}pPr>
    """


def presentation():
    return Part(
        PRESENTATION_NAME,
        CONTENT_TYPE + "presentation.main+xml",
        f"""
            <p:presentation {NAMESPACES} {RELATIONSHIPS}>
                <p:sldMasterIdLst><p:sldMasterId id="{MASTER_ID}" r:id="rId1"/></p:sldMasterIdLst>
                <p:sldIdLst><p:sldId id="{FIRST_SLIDE_ID}" r:id="rId2"/></p:sldIdLst>
                <p:sldSz cx="{SLIDE.width * EMU_PER_POINT}" cy="{SLIDE.height * EMU_PER_POINT}"/>
                <p:notesSz cx="6858000" cy="9144000"/>
                <p:defaultTextStyle>{"".join(map(plain_level, LEVELS))}</p:defaultTextStyle>
            </p:presentation>
        """,
        (
            relationship("rId1", "slideMaster", MASTER_NAME),
            relationship("rId2", "slide", SLIDE_NAME),
            relationship("rId3", "theme", THEME_NAME),
        ),
    )


def slide():
    return Part(
        SLIDE_NAME,
        CONTENT_TYPE + "slide+xml",
        f"""
            <p:sld {NAMESPACES}>
                <p:cSld>{shape_tree(SLIDE_PLACEHOLDERS)}</p:cSld>
                <p:clrMapOvr><a:masterClrMapping/></p:clrMapOvr>
            </p:sld>
        """,
        (relationship("rId1", "slideLayout", layout_name(1)),),
    )


def master():
    numbers = range(1, len(LAYOUTS) + 1)
    layout_ids = "".join(f'<p:sldLayoutId id="{MASTER_ID + number}" r:id="rId{number}"/>' for number in numbers)
    to_layouts = (relationship(f"rId{number}", "slideLayout", layout_name(number)) for number in numbers)
    to_theme = relationship(f"rId{len(LAYOUTS) + 1}", "theme", THEME_NAME)
    return Part(
        MASTER_NAME,
        CONTENT_TYPE + "slideMaster+xml",
        f"""
            <p:sldMaster {NAMESPACES} {RELATIONSHIPS}>
                <p:cSld>
                    <p:bg><p:bgRef idx="1001"><a:schemeClr val="bg1"/></p:bgRef></p:bg>
                    {shape_tree(MASTER_PLACEHOLDERS)}
                </p:cSld>
                <p:clrMap bg1="lt1" tx1="dk1" bg2="lt2" tx2="dk2" accent1="accent1" accent2="accent2"
                          accent3="accent3" accent4="accent4" accent5="accent5" accent6="accent6"
                          hlink="hlink" folHlink="folHlink"/>
                <p:sldLayoutIdLst>{layout_ids}</p:sldLayoutIdLst>
                <p:txStyles>
                    <p:titleStyle>{title_style()}</p:titleStyle>
                    <p:bodyStyle>{"".join(map(list_level, LEVELS))}</p:bodyStyle>
                </p:txStyles>
            </p:sldMaster>
        """,
        (*to_layouts, to_theme),
    )


def layout(number):
    name, kind, placeholders = LAYOUTS[number - 1]
    return Part(
        layout_name(number),
        CONTENT_TYPE + "slideLayout+xml",
        f"""
            <p:sldLayout {NAMESPACES} type="{kind}" preserve="1">
                <p:cSld name="{name}">{shape_tree((*placeholders, *FOOTERS))}</p:cSld>
                <p:clrMapOvr><a:masterClrMapping/></p:clrMapOvr>
            </p:sldLayout>
        """,
        (relationship("rId1", "slideMaster", MASTER_NAME),),
    )


def package():
    layouts = (layout(number) for number in range(1, len(LAYOUTS) + 1))
    parts = (presentation(), slide(), master(), *layouts, theme.part(THEME_NAME))
    return Package(parts, "<Words>0</Words><Paragraphs>0</Paragraphs><Slides>1</Slides><Notes>0</Notes>"
                          "<HiddenSlides>0</HiddenSlides>")
