"""What libraries of macOS export, as text stubs (.tbd) tell it to a linker."""

import collections
import pathlib
import re

# How the names of an entry stand in a program.
SPELLINGS = {
    "symbols": ("{}",), "weak-symbols": ("{}",), "thread-local-symbols": ("{}",),
    "objc-classes": ("_OBJC_CLASS_$_{}", "_OBJC_METACLASS_$_{}"), "objc-eh-types": ("_OBJC_EHTYPE_$_{}",),
    "objc-ivars": ("_OBJC_IVAR_$_{}",),
}


def names_in(text):
    return [name.strip().strip("'\"") for name in text.split(",")]


def exports_of(text):
    """Architecture -> symbols, of a library and those that it hands on, which stand in the same file."""
    exports = collections.defaultdict(set)
    for block in re.split(r"-\s+targets:", text)[1:]:
        targets, _, rest = block.partition("]")
        architectures = {target.split("-")[0] for target in names_in(targets.strip(" [\n")) if target.endswith("-macos")}
        for kind, names in re.findall(r"([a-z-]+):\s*\[(.*?)\]", rest, re.S):
            symbols = {spelling.format(name) for spelling in SPELLINGS.get(kind, ()) for name in names_in(names)}
            for architecture in architectures:
                exports[architecture] |= symbols
    return exports


def read(sysroot):
    """Where each library lies on macOS -> architecture -> symbols."""
    libraries = {}
    for path in pathlib.Path(sysroot).rglob("*.tbd"):
        text = path.read_text(encoding="utf-8")
        libraries[re.search(r"install-name:\s+'?([^'\s]+)", text)[1]] = exports_of(text)
    return libraries


def text_of(library, symbols, **more):
    """Of the library that lies there on macOS, for both architectures; symbols of C lack their underscore."""
    targets = "[ arm64-macos, x86_64-macos ]"
    entries = {"symbols": {"_" + name for name in symbols}, **more}
    lines = [f"    {kind}: [ {', '.join(sorted(names))} ]" for kind, names in entries.items()]
    return "\n".join(["--- !tapi-tbd", "tbd-version: 4", f"targets: {targets}", f"install-name: '{library}'", "exports:",
                      f"  - targets: {targets}", *lines, "...", ""])
