"""Where the templates under test are."""

import os
from pathlib import Path

SOURCES = Path(os.environ["BLANKWELL_TEMPLATES"])
BUILT_RESOURCES = Path(os.environ["BLANKWELL_BUILT_RESOURCES"])

DOCUMENT = SOURCES / "blank.docx"
WORKBOOK = SOURCES / "blank.xlsx"
PRESENTATION = SOURCES / "blank.pptx"
ALL = (DOCUMENT, WORKBOOK, PRESENTATION)
