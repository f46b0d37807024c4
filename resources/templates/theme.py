"""The theme of the presentation: the colours, fonts and line styles that shapes refer to by role."""

import looks
from packaging import OFFICE_CONTENT_TYPE, Part

NAMESPACE = "http://schemas.openxmlformats.org/drawingml/2006/main"
NAME = "Blank"
LINE_WIDTHS = (6350, 12700, 19050)  # subtle, moderate and intense, in EMU (914400 to the inch)


def part(name):
    return Part(name, OFFICE_CONTENT_TYPE + "theme+xml", theme())


def theme():
    return f"""
        <a:theme xmlns:a="{NAMESPACE}" name="{NAME}">
            <a:themeElements>
                {colours()}
                {fonts()}
                {formats()}
            </a:themeElements>
        </a:theme>
    """


def colours():
    fixed = {"dk2": looks.DARK, "lt2": looks.LIGHT}
    fixed.update((f"accent{number}", colour) for number, colour in enumerate(looks.ACCENTS, start=1))
    fixed.update(hlink=looks.LINK, folHlink=looks.VISITED_LINK)
    elements = "".join(f'<a:{role}><a:srgbClr val="{colour}"/></a:{role}>' for role, colour in fixed.items())
    return f"""
        <a:clrScheme name="{NAME}">
            <a:dk1><a:sysClr val="windowText" lastClr="{looks.TEXT}"/></a:dk1>
            <a:lt1><a:sysClr val="window" lastClr="{looks.BACKGROUND}"/></a:lt1>
            {elements}
        </a:clrScheme>
    """


def fonts():
    return f"""
        <a:fontScheme name="{NAME}">
            <a:majorFont>
                <a:latin typeface="{looks.HEADING_FONT}"/><a:ea typeface=""/><a:cs typeface=""/>
            </a:majorFont>
            <a:minorFont>
                <a:latin typeface="{looks.BODY_FONT}"/><a:ea typeface=""/><a:cs typeface=""/>
            </a:minorFont>
        </a:fontScheme>
    """


def formats():
    """Each list needs an entry for subtle, moderate and intense; plain ones differ in their lines only."""
    fill = '<a:solidFill><a:schemeClr val="phClr"/></a:solidFill>'
    effect = "<a:effectStyle><a:effectLst/></a:effectStyle>"
    lines = "".join(
        f'<a:ln w="{width}" cap="flat" cmpd="sng" algn="ctr">{fill}<a:prstDash val="solid"/></a:ln>'
        for width in LINE_WIDTHS
    )
    return f"""
        <a:fmtScheme name="{NAME}">
            <a:fillStyleLst>{fill * 3}</a:fillStyleLst>
            <a:lnStyleLst>{lines}</a:lnStyleLst>
            <a:effectStyleLst>{effect * 3}</a:effectStyleLst>
            <a:bgFillStyleLst>{fill * 3}</a:bgFillStyleLst>
        </a:fmtScheme>
    """
