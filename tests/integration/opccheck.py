#!/usr/bin/env python3
"""Reads a device bundle the way any reader of open packages does, with nothing of ours: the items of the
archive, the content type of each, and what the relationships of the package lead to."""

import json
import posixpath
import subprocess
import sys
import tempfile
import zipfile
from pathlib import Path
from xml.etree import ElementTree

CONTENT_TYPES = "{http://schemas.openxmlformats.org/package/2006/content-types}"
RELATIONSHIPS = "{http://schemas.openxmlformats.org/package/2006/relationships}"
RELATIONSHIPS_TYPE = "application/vnd.openxmlformats-package.relationships+xml"

# relationship type (the path of its URI): part, content type
EXPECTED = {
    "/package/2025/relationships/ddsc/deviceDefinition": (
        "/document/deviceDefinition.json", "application/vnd.halvorin.ddsc_definition"),
    "/package/2025/relationships/ddsc/compiledDevice": (
        "/document/compiledDevice.json", "application/vnd.halvorin.ddsc_compiled"),
}


def expect(condition, text):
    if not condition:
        sys.exit(text)


def content_type_of(types, part):
    """An override for the part, or the default for its extension; both compare without case."""
    for override in types.iter(CONTENT_TYPES + "Override"):
        if override.get("PartName").lower() == part.lower():
            return override.get("ContentType")
    extension = posixpath.basename(part).rpartition(".")[2]
    for default in types.iter(CONTENT_TYPES + "Default"):
        if default.get("Extension").lower() == extension.lower():
            return default.get("ContentType")
    return None


def check(bundle, definition, device):
    with zipfile.ZipFile(bundle) as archive:
        expect(archive.testzip() is None, "an item is damaged")
        names = archive.namelist()
        expect(len(names) == len({name.lower() for name in names}), f"a name stands twice: {names}")
        types = ElementTree.fromstring(archive.read("[Content_Types].xml"))
        expect(types.tag == CONTENT_TYPES + "Types", f"wrong root {types.tag}")
        for name in names:
            if name != "[Content_Types].xml":
                expect(content_type_of(types, "/" + name), f"{name} has no content type")
        expect(content_type_of(types, "/_rels/.rels") == RELATIONSHIPS_TYPE, "wrong type of _rels/.rels")

        root = ElementTree.fromstring(archive.read("_rels/.rels"))
        expect(root.tag == RELATIONSHIPS + "Relationships", f"wrong root {root.tag}")
        relationships = root.findall(RELATIONSHIPS + "Relationship")
        ids = [relationship.get("Id") for relationship in relationships]
        expect(len(set(ids)) == len(ids) and all(ids), f"ids are not unique: {ids}")

        found = {}
        for relationship in relationships:
            expect(relationship.get("TargetMode", "Internal") == "Internal", "a target is not in the package")
            part = posixpath.normpath(posixpath.join("/", relationship.get("Target")))
            expect(part[1:] in names, f"there is no part {part}")
            kind = relationship.get("Type")
            expect(kind.startswith("http://"), f"{kind} is no URI")
            path = "/" + kind.split("/", 3)[3]
            found[path] = (part, content_type_of(types, part))
        expect(found == EXPECTED, f"the relationships lead to {found}")

        expect(json.loads(archive.read("document/deviceDefinition.json")) == json.loads(definition.read_text()),
               "the definition is another one")
        expect(archive.read("document/compiledDevice.json") == device.read_bytes(),
               "the compiled device is not the one that compile writes")


def main():
    program, examples, page = sys.argv[1], Path(sys.argv[2]), Path(sys.argv[3]).read_text()
    for kind, (part, content_type) in EXPECTED.items():
        for name in (kind + "`", f"`{part}`", f"`{content_type}`"):
            expect(name in page, f"the reference does not tell of {name}")
    definitions = sorted(examples.glob("*/definition.json"))
    expect(definitions, "there is no definition to bundle")
    for definition in definitions:
        with tempfile.TemporaryDirectory() as folder:
            bundle, device = Path(folder, "d.hvdsc.zip"), Path(folder, "device.json")
            subprocess.run([program, "bundle", definition, bundle], check=True)
            subprocess.run([program, "compile", definition, device], check=True)
            check(bundle, definition, device)


main()
