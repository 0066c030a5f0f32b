"""The rooms of the sources, as the table in docs/architecture.md has them: the one list of who may use whom."""

import os
import re
import sys

TABLE = "docs/architecture.md"

# How the headers of a library begin, in small letters: there are systems that find them however they are written.
LIBRARIES = {
    "Qt": ("q",), "ICU": ("unicode/",), "curl": ("curl/",), "expat": ("expat",), "libplist": ("plist/",),
    "libsodium": ("sodium",), "libxml2": ("libxml/",), "libseccomp": ("seccomp",), "xcb": ("xcb/",),
    "CLI11": ("cli/",), "libsystemd": ("systemd/",), "toml++": ("toml++/",), "nlohmann-json": ("nlohmann/",),
    "AppKit": ("appkit/", "foundation/", "servicemanagement/", "objc/"), "CoreFoundation": ("corefoundation/",),
}


class Room:
    def __init__(self, folder, parts, uses, libraries):
        self.folder = folder
        # From below, the room's own folder last.
        self.folders = [os.path.join(folder, part) for part in parts] + [folder]
        self.uses = uses
        self.libraries = libraries


def refuse(complaint):
    print(f"{TABLE}: {complaint}", file=sys.stderr)
    sys.exit(2)


def read_rooms(root):
    """The rooms by folder, as the table has them: folder, what it is, its parts, what it may use."""
    rooms = {}
    with open(os.path.join(root, TABLE), encoding="utf-8") as text:
        rows = [[cell.strip() for cell in line.strip().strip("|").split("|")] for line in text
                if re.match(r"\| `(src|standin)", line)]
    for row in rows:
        if len(row) != 4:
            refuse(f"a room has four columns, not {len(row)}: {row[0]}")
        folder = row[0].strip("`")
        libraries = [word for word in re.sub(r"`[^`]*`", "", row[3]).replace(",", " ").split() if word != "–"]
        unknown = [name for name in libraries if name not in LIBRARIES]
        if unknown:
            refuse(f"{folder} uses {unknown[0]}, which is no room and no library that is known here")
        uses = [name if name.startswith("standin") else f"src/{name}" for name in re.findall(r"`([^`]*)`", row[3])]
        rooms[folder] = Room(folder, re.findall(r"`([^`]*)`", row[2]), uses, libraries)
    if not rooms:
        refuse("has no table of rooms")
    return rooms


def reachable(rooms, room, above=()):
    """The room, what it may use, and what that may use."""
    if room.folder in above:
        refuse("the rooms go in a circle: " + " -> ".join(above + (room.folder,)))
    found = {room.folder}
    for name in room.uses:
        if name not in rooms:
            refuse(f"{room.folder} may use {name}, which is no room")
        found |= reachable(rooms, rooms[name], above + (room.folder,))
    return found


def room_of(rooms, path):
    return max((folder for folder in rooms if path.startswith(f"{folder}/")), key=len)
