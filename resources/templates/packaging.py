"""What the three formats share: an Open Packaging Conventions package (ISO/IEC 29500-2).

A format names its parts and how they relate; content types, relationship parts and document properties
are derived here.
"""

import io
import posixpath
import re
import zipfile
from typing import NamedTuple, Tuple

OFFICE_RELATIONSHIPS = "http://schemas.openxmlformats.org/officeDocument/2006/relationships"
PACKAGE_RELATIONSHIPS = "http://schemas.openxmlformats.org/package/2006/relationships"
CONTENT_TYPES = "http://schemas.openxmlformats.org/package/2006/content-types"
OFFICE_CONTENT_TYPE = "application/vnd.openxmlformats-officedocument."

# The earliest moment that a zip entry can carry: these files have no date of their own.
NO_DATE = (1980, 1, 1, 0, 0, 0)
UNIX = 3
READABLE_FILE = 0o100644 << 16


class Relationship(NamedTuple):
    """A reference from one part to another."""

    id: str      # what the XML of the source refers to, unique within the source
    type: str    # an absolute URI
    target: str  # the name of the part


class Part(NamedTuple):
    """One XML document of a package."""

    name: str          # absolute, as in "/word/document.xml"
    content_type: str
    xml: str           # without declaration; white space between elements does not count
    relationships: Tuple[Relationship, ...] = ()


class Package:
    """An office document: the main part first, then every part that it reaches."""

    def __init__(self, parts, application_properties):
        self.parts = (*parts, *document_properties(application_properties))
        self.main = parts[0]

    def to_bytes(self):
        """The zip file, the same bytes from every version of Python and on every system.

        Entries are stored, because what deflate makes of them differs between versions of zlib. The order
        is the one by which programs recognise the format from the first bytes of a file.
        """
        buffer = io.BytesIO()
        with zipfile.ZipFile(buffer, "w", zipfile.ZIP_STORED) as archive:
            for name, xml in self._entries():
                archive.writestr(_entry(name), _serialised(xml))
        return buffer.getvalue()

    def _entries(self):
        yield "[Content_Types].xml", self._content_types()
        yield "_rels/.rels", _relationships("/", self._root_relationships())
        for part in self.parts:
            yield part.name[1:], part.xml
            if part.relationships:
                folder, file = posixpath.split(part.name)
                yield folder[1:] + "/_rels/" + file + ".rels", _relationships(folder, part.relationships)

    def _content_types(self):
        overrides = "".join(
            f'<Override PartName="{part.name}" ContentType="{part.content_type}"/>' for part in self.parts
        )
        return f"""
            <Types xmlns="{CONTENT_TYPES}">
                <Default Extension="rels" ContentType="application/vnd.openxmlformats-package.relationships+xml"/>
                <Default Extension="xml" ContentType="application/xml"/>
                {overrides}
            </Types>
        """

    def _root_relationships(self):
        return (
            Relationship("rId1", OFFICE_RELATIONSHIPS + "/officeDocument", self.main.name),
            Relationship("rId2", PACKAGE_RELATIONSHIPS + "/metadata/core-properties", "/docProps/core.xml"),
            Relationship("rId3", OFFICE_RELATIONSHIPS + "/extended-properties", "/docProps/app.xml"),
        )


def relationship(identifier, kind, target):
    """A relationship of a kind that the office formats define, such as "styles"."""
    return Relationship(identifier, f"{OFFICE_RELATIONSHIPS}/{kind}", target)


def document_properties(application_properties):
    """The parts about the document.

    The core properties are empty: author, title and dates belong to the file that a user makes of it.
    The part is there because some programs fill in a missing one with an author of their own.
    """
    core = Part(
        "/docProps/core.xml",
        "application/vnd.openxmlformats-package.core-properties+xml",
        '<cp:coreProperties'
        ' xmlns:cp="http://schemas.openxmlformats.org/package/2006/metadata/core-properties"/>',
    )
    application = Part(
        "/docProps/app.xml",
        OFFICE_CONTENT_TYPE + "extended-properties+xml",
        f"""
            <Properties xmlns="http://schemas.openxmlformats.org/officeDocument/2006/extended-properties"
                        xmlns:vt="http://schemas.openxmlformats.org/officeDocument/2006/docPropsVTypes">
                <Application>Blankwell+</Application>
                {application_properties}
            </Properties>
        """,
    )
    return core, application


def _relationships(folder, relationships):
    elements = "".join(
        f'<Relationship Id="{each.id}" Type="{each.type}" Target="{posixpath.relpath(each.target, folder)}"/>'
        for each in relationships
    )
    return f'<Relationships xmlns="{PACKAGE_RELATIONSHIPS}">{elements}</Relationships>'


def _serialised(xml):
    """The bytes of a part; the indentation of the sources is for their readers only."""
    dense = re.sub(r"\s+", " ", re.sub(r">\s+<", "><", xml.strip()))
    return ('<?xml version="1.0" encoding="UTF-8" standalone="yes"?>\n' + dense).encode("utf-8")


def _entry(name):
    entry = zipfile.ZipInfo(name, NO_DATE)
    entry.compress_type = zipfile.ZIP_STORED
    entry.create_system = UNIX
    entry.external_attr = READABLE_FILE
    return entry
