"""A reader of office packages for the tests: parts, content types and relationships as they are in the file."""

import posixpath
import xml.etree.ElementTree as ElementTree
import zipfile
from typing import NamedTuple

CONTENT_TYPES = "{http://schemas.openxmlformats.org/package/2006/content-types}"
RELATIONSHIPS = "{http://schemas.openxmlformats.org/package/2006/relationships}"

PREFIXES = {
    "http://schemas.openxmlformats.org/drawingml/2006/main": "a",
    "http://schemas.openxmlformats.org/presentationml/2006/main": "p",
    "http://schemas.openxmlformats.org/wordprocessingml/2006/main": "w",
    "http://schemas.openxmlformats.org/spreadsheetml/2006/main": "x",
    "http://schemas.openxmlformats.org/officeDocument/2006/relationships": "r",
    "http://schemas.openxmlformats.org/officeDocument/2006/extended-properties": "ep",
    "http://schemas.openxmlformats.org/officeDocument/2006/docPropsVTypes": "vt",
    "http://schemas.openxmlformats.org/package/2006/metadata/core-properties": "cp",
    CONTENT_TYPES[1:-1]: "ct",
    RELATIONSHIPS[1:-1]: "rel",
}
NAMESPACES = {prefix: namespace for namespace, prefix in PREFIXES.items()}


class Reference(NamedTuple):
    """A relationship, its target resolved to the name of a part."""

    id: str
    type: str    # the last step of the type's URI
    target: str
    mode: str


class OfficePackage:
    """The entries of an office document, read once."""

    def __init__(self, path):
        with zipfile.ZipFile(path) as archive:
            self.entries = archive.infolist()
            self.contents = {"/" + entry.filename: archive.read(entry) for entry in self.entries}
        self.trees = {name: ElementTree.fromstring(content) for name, content in self.contents.items()}
        types = self.trees["/[Content_Types].xml"]
        self.defaults = {
            each.get("Extension"): each.get("ContentType") for each in types.iter(CONTENT_TYPES + "Default")
        }
        self.overrides = {
            each.get("PartName"): each.get("ContentType") for each in types.iter(CONTENT_TYPES + "Override")
        }

    def parts(self):
        """The names of all parts but those that only describe the package."""
        return [name for name in self.contents if name != "/[Content_Types].xml" and "/_rels/" not in name]

    def references(self, part="/"):
        """The relationships of a part, or of the package itself."""
        folder, name = posixpath.split(part)
        relationships = self.trees.get(posixpath.join(folder, "_rels", name + ".rels"), ())
        return [
            Reference(
                each.get("Id"),
                posixpath.basename(each.get("Type")),
                posixpath.normpath(posixpath.join(folder, each.get("Target"))),
                each.get("TargetMode", "Internal"),
            )
            for each in relationships
        ]

    def target(self, part, kind):
        """The one part that another refers to in a certain role."""
        target, = (each.target for each in self.references(part) if each.type == kind)
        return target

    def find(self, part, path):
        return self.trees[part].find(path, NAMESPACES)

    def find_all(self, part, path):
        return self.trees[part].findall(path, NAMESPACES)

    def property(self, name):
        """What docProps/app.xml says under a name; None if it says nothing."""
        return self.trees["/docProps/app.xml"].findtext("ep:" + name, namespaces=NAMESPACES)


def relationship_attribute(name):
    """The qualified name of an attribute such as r:id."""
    return "{" + NAMESPACES["r"] + "}" + name


def short_name(tag):
    """A qualified name with the usual prefix of its namespace, as in w:sectPr."""
    namespace, _, name = tag[1:].partition("}")
    return PREFIXES[namespace] + ":" + name
