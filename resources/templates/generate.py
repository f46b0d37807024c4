#!/usr/bin/env python3
"""Writes the empty office documents that new files are copied from.

Usage: generate.py [OUTPUT_DIR]

Without an argument the documents beside this script are written again. The bytes depend on nothing but
these sources, so that a difference in the repository is always a difference in a document.
"""

import sys
from pathlib import Path

import presentation
import spreadsheet
import wordprocessing

DOCUMENTS = {
    "blank.docx": wordprocessing.package,
    "blank.xlsx": spreadsheet.package,
    "blank.pptx": presentation.package,
}


def main(arguments):
    if len(arguments) > 1 or any(argument.startswith("-") for argument in arguments):
        print("usage: generate.py [OUTPUT_DIR]", file=sys.stderr)
        return 2
    folder = Path(arguments[0]) if arguments else Path(__file__).resolve().parent
    folder.mkdir(parents=True, exist_ok=True)
    for name, package in DOCUMENTS.items():
        (folder / name).write_bytes(package().to_bytes())
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
