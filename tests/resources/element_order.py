"""The sequences in which ISO/IEC 29500-1 lists the children of an element.

Office programs offer to repair a document that breaks one. The longest lists are shortened to what a
document without content can hold.
"""

TEXT_LEVELS = "a:defPPr " + " ".join(f"a:lvl{level}pPr" for level in range(1, 10)) + " a:extLst"
FILLS = "a:noFill a:solidFill a:gradFill a:blipFill a:pattFill a:grpFill"
EFFECTS = "a:effectLst a:effectDag"
COLOURS = "a:scrgbClr a:srgbClr a:hslClr a:sysClr a:schemeClr a:prstClr"
BULLETS = (
    "a:buClrTx a:buClr a:buSzTx a:buSzPct a:buSzPts a:buFontTx a:buFont a:buNone a:buAutoNum a:buChar a:buBlip"
)
PARAGRAPH = f"a:lnSpc a:spcBef a:spcAft {BULLETS} a:tabLst a:defRPr a:extLst"
RUN = (
    f"a:ln {FILLS} {EFFECTS} a:highlight a:uLnTx a:uLn a:uFillTx a:uFill a:latin a:ea a:cs a:sym"
    " a:hlinkClick a:hlinkMouseOver a:rtl a:extLst"
)
SPACING = "a:spcPct a:spcPts"
FONTS = "a:latin a:ea a:cs a:font a:extLst"
STYLED_PARAGRAPH = (
    "w:keepNext w:keepLines w:pageBreakBefore w:framePr w:widowControl w:numPr w:suppressLineNumbers w:pBdr"
    " w:shd w:tabs w:suppressAutoHyphens w:kinsoku w:wordWrap w:overflowPunct w:topLinePunct w:autoSpaceDE"
    " w:autoSpaceDN w:bidi w:adjustRightInd w:snapToGrid w:spacing w:ind w:contextualSpacing w:mirrorIndents"
    " w:suppressOverlap w:jc w:textDirection w:textAlignment w:textboxTightWrap w:outlineLvl w:divId w:cnfStyle"
    " w:rPr w:sectPr w:pPrChange"
)
STYLED_RUN = (
    "w:rStyle w:rFonts w:b w:bCs w:i w:iCs w:caps w:smallCaps w:strike w:dstrike w:outline w:shadow w:emboss"
    " w:imprint w:noProof w:snapToGrid w:vanish w:webHidden w:color w:spacing w:w w:kern w:position w:sz w:szCs"
    " w:highlight w:u w:effect w:bdr w:shd w:fitText w:vertAlign w:rtl w:cs w:em w:lang w:eastAsianLayout"
    " w:specVanish w:oMath"
)

SEQUENCES = {
    # Packaging
    "ct:Types": "ct:Default ct:Override",
    "rel:Relationships": "rel:Relationship",
    "ep:HeadingPairs": "vt:vector",
    "ep:TitlesOfParts": "vt:vector",
    "vt:vector": "vt:variant vt:lpstr",
    "vt:variant": "vt:lpstr vt:i4",

    # Word processing
    "w:document": "w:background w:body",
    "w:body": "w:p w:sectPr",
    "w:sectPr": (
        "w:headerReference w:footerReference w:footnotePr w:endnotePr w:type w:pgSz w:pgMar w:paperSrc w:pgBorders"
        " w:lnNumType w:pgNumType w:cols w:formProt w:vAlign w:noEndnote w:titlePg w:textDirection w:bidi"
        " w:rtlGutter w:docGrid w:printerSettings w:sectPrChange"
    ),
    "w:settings": (
        "w:writeProtection w:view w:zoom w:removePersonalInformation w:removeDateAndTime"
        " w:doNotDisplayPageBoundaries w:displayBackgroundShape w:mirrorMargins w:proofState w:defaultTabStop"
        " w:autoHyphenation w:evenAndOddHeaders w:characterSpacingControl w:footnotePr w:endnotePr w:compat"
        " w:docVars w:rsids w:themeFontLang w:clrSchemeMapping w:decimalSymbol w:listSeparator"
    ),
    "w:compat": "w:compatSetting",
    "w:styles": "w:docDefaults w:latentStyles w:style",
    "w:docDefaults": "w:rPrDefault w:pPrDefault",
    "w:rPrDefault": "w:rPr",
    "w:pPrDefault": "w:pPr",
    "w:latentStyles": "w:lsdException",
    "w:style": (
        "w:name w:aliases w:basedOn w:next w:link w:autoRedefine w:hidden w:uiPriority w:semiHidden"
        " w:unhideWhenUsed w:qFormat w:locked w:personal w:personalCompose w:personalReply w:rsid w:pPr w:rPr"
        " w:tblPr w:trPr w:tcPr w:tblStylePr"
    ),
    "w:pPr": STYLED_PARAGRAPH,
    "w:rPr": STYLED_RUN,
    "w:tblPr": (
        "w:tblStyle w:tblpPr w:tblOverlap w:bidiVisual w:tblStyleRowBandSize w:tblStyleColBandSize w:tblW w:jc"
        " w:tblCellSpacing w:tblInd w:tblBorders w:shd w:tblLayout w:tblCellMar w:tblLook"
    ),
    "w:tblCellMar": "w:top w:left w:start w:bottom w:right w:end",

    # Spreadsheet
    "x:workbook": (
        "x:fileVersion x:fileSharing x:workbookPr x:workbookProtection x:bookViews x:sheets x:functionGroups"
        " x:externalReferences x:definedNames x:calcPr x:oleSize x:customWorkbookViews x:pivotCaches x:extLst"
    ),
    "x:bookViews": "x:workbookView",
    "x:sheets": "x:sheet",
    "x:worksheet": (
        "x:sheetPr x:dimension x:sheetViews x:sheetFormatPr x:cols x:sheetData x:sheetCalcPr x:sheetProtection"
        " x:protectedRanges x:scenarios x:autoFilter x:sortState x:dataConsolidate x:customSheetViews x:mergeCells"
        " x:phoneticPr x:conditionalFormatting x:dataValidations x:hyperlinks x:printOptions x:pageMargins"
        " x:pageSetup x:headerFooter x:rowBreaks x:colBreaks x:drawing x:tableParts x:extLst"
    ),
    "x:sheetViews": "x:sheetView",
    "x:styleSheet": (
        "x:numFmts x:fonts x:fills x:borders x:cellStyleXfs x:cellXfs x:cellStyles x:dxfs x:tableStyles x:colors"
        " x:extLst"
    ),
    "x:fonts": "x:font",
    "x:font": "x:b x:i x:strike x:condense x:extend x:outline x:shadow x:u x:vertAlign x:sz x:color x:name x:family"
              " x:charset x:scheme",
    "x:fills": "x:fill",
    "x:fill": "x:patternFill x:gradientFill",
    "x:borders": "x:border",
    "x:border": "x:start x:end x:left x:right x:top x:bottom x:diagonal x:vertical x:horizontal",
    "x:cellStyleXfs": "x:xf",
    "x:cellXfs": "x:xf",
    "x:cellStyles": "x:cellStyle",

    # Presentation
    "p:presentation": (
        "p:sldMasterIdLst p:notesMasterIdLst p:handoutMasterIdLst p:sldIdLst p:sldSz p:notesSz p:smartTags"
        " p:embeddedFontLst p:custShowLst p:photoAlbum p:custDataLst p:kinsoku p:defaultTextStyle p:modifyVerifier"
        " p:extLst"
    ),
    "p:sldMasterIdLst": "p:sldMasterId",
    "p:sldIdLst": "p:sldId",
    "p:defaultTextStyle": TEXT_LEVELS,
    "p:sldMaster": "p:cSld p:clrMap p:sldLayoutIdLst p:transition p:timing p:hf p:txStyles p:extLst",
    "p:sldLayout": "p:cSld p:clrMapOvr p:transition p:timing p:hf p:extLst",
    "p:sld": "p:cSld p:clrMapOvr p:transition p:timing p:extLst",
    "p:cSld": "p:bg p:spTree p:custDataLst p:controls p:extLst",
    "p:bg": "p:bgPr p:bgRef",
    "p:bgRef": COLOURS,
    "p:clrMapOvr": "a:masterClrMapping a:overrideClrMapping",
    "p:sldLayoutIdLst": "p:sldLayoutId",
    "p:txStyles": "p:titleStyle p:bodyStyle p:otherStyle p:extLst",
    "p:titleStyle": TEXT_LEVELS,
    "p:bodyStyle": TEXT_LEVELS,
    "p:spTree": "p:nvGrpSpPr p:grpSpPr p:sp",
    "p:nvGrpSpPr": "p:cNvPr p:cNvGrpSpPr p:nvPr",
    "p:sp": "p:nvSpPr p:spPr p:style p:txBody p:extLst",
    "p:nvSpPr": "p:cNvPr p:cNvSpPr p:nvPr",
    "p:cNvSpPr": "a:spLocks a:extLst",
    "p:nvPr": "p:ph p:custDataLst p:extLst",
    "p:spPr": f"a:xfrm a:custGeom a:prstGeom {FILLS} a:ln {EFFECTS} a:scene3d a:sp3d a:extLst",
    "p:txBody": "a:bodyPr a:lstStyle a:p",

    # Drawing, theme and text
    "a:theme": "a:themeElements a:objectDefaults a:extraClrSchemeLst a:custClrLst a:extLst",
    "a:themeElements": "a:clrScheme a:fontScheme a:fmtScheme a:extLst",
    "a:clrScheme": (
        "a:dk1 a:lt1 a:dk2 a:lt2 a:accent1 a:accent2 a:accent3 a:accent4 a:accent5 a:accent6 a:hlink a:folHlink"
        " a:extLst"
    ),
    "a:fontScheme": "a:majorFont a:minorFont a:extLst",
    "a:majorFont": FONTS,
    "a:minorFont": FONTS,
    "a:fmtScheme": "a:fillStyleLst a:lnStyleLst a:effectStyleLst a:bgFillStyleLst",
    "a:fillStyleLst": FILLS,
    "a:lnStyleLst": "a:ln",
    "a:effectStyleLst": "a:effectStyle",
    "a:bgFillStyleLst": FILLS,
    "a:effectStyle": f"{EFFECTS} a:scene3d a:sp3d",
    "a:ln": f"{FILLS} a:prstDash a:custDash a:round a:bevel a:miter a:headEnd a:tailEnd a:extLst",
    "a:solidFill": COLOURS,
    "a:xfrm": "a:off a:ext",
    "a:prstGeom": "a:avLst",
    "a:bodyPr": "a:prstTxWarp a:noAutofit a:normAutofit a:spAutoFit a:scene3d a:sp3d a:flatTx a:extLst",
    "a:lstStyle": TEXT_LEVELS,
    "a:p": "a:pPr a:r a:br a:fld a:endParaRPr",
    "a:r": "a:rPr a:t",
    "a:fld": "a:rPr a:pPr a:t",
    "a:lnSpc": SPACING,
    "a:spcBef": SPACING,
    "a:defRPr": RUN,
}
SEQUENCES.update((f"a:{role}", COLOURS) for role in SEQUENCES["a:clrScheme"].replace("a:", "").split()[:-1])
SEQUENCES.update((f"a:lvl{level}pPr", PARAGRAPH) for level in range(1, 10))


def misplaced_children(element, name):
    """The children, named by a function of their tags, that stand where the standard has no place for them.

    An element with children whose sequence is not known here has all of them misplaced.
    """
    sequence = SEQUENCES.get(name(element.tag), "").split()
    misplaced = []
    reached = 0
    for child in element:
        child_name = name(child.tag)
        if child_name not in sequence or sequence.index(child_name) < reached:
            misplaced.append(child_name)
        else:
            reached = sequence.index(child_name)
    return misplaced
