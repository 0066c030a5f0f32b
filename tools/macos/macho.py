"""Reads programs of macOS: <mach-o/loader.h>, <mach-o/fixup-chains.h> and the blobs of <kern/cs_blobs.h>."""

import hashlib
import struct

ARCHITECTURES = {0x0100000C: "arm64", 0x01000007: "x86_64"}

EXECUTABLE = 2
POSITION_INDEPENDENT = 0x200000

SYMBOLS, SEGMENT, BUILD_VERSION, CODE_SIGNATURE = 2, 0x19, 0x32, 0x1D
MAIN, CHAINED_FIXUPS, RUN_PATH = 0x80000028, 0x80000034, 0x8000001C
# Ordinary, weak, re-exported, upward.
LIBRARIES = (0xC, 0x80000018, 0x8000001F, 0x80000023)

# How the entries of the table of imports are laid out, by its format: bits of the library and of the name's place.
IMPORTS = {1: ("<I", 8, 9), 2: ("<Ii", 8, 9), 3: ("<QQ", 16, 32)}
CODE_DIRECTORY = 0
AD_HOC = 2
SHA256 = 2


class Malformed(Exception):
    """Not what a linker writes."""


def text_at(data, at):
    return data[at:data.index(b"\0", at)].decode()


def name_at(data, at):
    return data[at:at + 16].rstrip(b"\0").decode()


class Segment:
    def __init__(self, data, at):
        self.name = name_at(data, at + 8)
        self.address, _, self.offset, self.size, _, self.protection, count = struct.unpack_from("<4Q3I", data, at + 24)
        # Name -> address and size.
        self.sections = {name_at(data, place): struct.unpack_from("<2Q", data, place + 32)
                         for place in range(at + 72, at + 72 + 80 * count, 80)}


class CodeDirectory:
    """What was signed: the pages of the program up to `limit`, by their hashes, and by number what is beside it. Its own
    hash is what others know the program by."""

    def __init__(self, data, at):
        self.hash = hashlib.sha256(data[at:at + struct.unpack_from(">I", data, at + 4)[0]]).digest()[:20]
        self.flags, hashes, name, others, count, self.limit, size, self.hash_type, _, page = struct.unpack_from(
            ">6I4B", data, at + 12)
        self.page_size = 1 << page
        self.identifier = text_at(data, at + name)
        self.special = {slot: data[at + hashes - size * slot:at + hashes - size * (slot - 1)]
                        for slot in range(1, others + 1)}
        self.hashes = [data[at + hashes + size * slot:at + hashes + size * (slot + 1)] for slot in range(count)]


class Slice:
    """A program for one architecture."""

    def __init__(self, data):
        self.data = data
        if struct.unpack_from("<I", data)[0] != 0xFEEDFACF:
            raise Malformed("it is no 64-bit program of macOS")
        processor, _, self.kind, count, _, self.flags = struct.unpack_from("<6I", data, 4)
        self.architecture = ARCHITECTURES.get(processor, hex(processor))
        self.commands = []
        at = 32
        for _ in range(count):
            command, size = struct.unpack_from("<2I", data, at)
            self.commands.append((command, at))
            at += size
        self.segments = [Segment(data, place) for place in self.places_of(SEGMENT)]

    def places_of(self, *commands):
        return [at for command, at in self.commands if command in commands]

    def offset_of(self, address):
        for segment in self.segments:
            if segment.address <= address < segment.address + segment.size:
                return segment.offset + address - segment.address
        raise Malformed(f"nothing is at the address {address:#x}")

    def number_at(self, address, form):
        return struct.unpack_from("<" + form, self.data, self.offset_of(address))[0]

    def text_at(self, address):
        return text_at(self.data, self.offset_of(address))

    def pointer_at(self, address):
        """Where it will point to; 0 for nowhere and for what the loader takes from a library."""
        number = self.number_at(address, "Q")
        target = number & (1 << 36) - 1
        base = next(segment.address for segment in self.segments if segment.name == "__TEXT")
        return 0 if number >> 63 or not number else target if target >= base else base + target

    def pointers_in(self, section):
        address, size = next((each.sections[section] for each in self.segments if section in each.sections), (0, 0))
        return [self.pointer_at(place) for place in range(address, address + size, 8)]

    def platforms(self):
        """(platform, least version, version of the kit), each version as (major, minor)."""
        found = [struct.unpack_from("<3I", self.data, at + 8) for at in self.places_of(BUILD_VERSION)]
        return [(platform, (least >> 16, least >> 8 & 255), (kit >> 16, kit >> 8 & 255)) for platform, least, kit in found]

    def libraries(self):
        """In the order in which imports count them, from 1."""
        return [text_at(self.data, at + struct.unpack_from("<I", self.data, at + 8)[0]) for at in self.places_of(*LIBRARIES)]

    def linked_data(self, command):
        """(offset, size) of what a command of the linker's tells of; None without it."""
        return next((struct.unpack_from("<2I", self.data, at + 8) for at in self.places_of(command)), None)

    def imports(self):
        """(number of the library, symbol); None where nothing says what the loader has to fill in."""
        found = self.linked_data(CHAINED_FIXUPS)
        if found is None:
            return None
        start = found[0]
        _, _, table, names, count, form, _ = struct.unpack_from("<7I", self.data, start)
        layout, bits, name_bit = IMPORTS[form]
        imports = []
        for index in range(count):
            entry = struct.unpack_from(layout, self.data, start + table + index * struct.calcsize(layout))[0]
            number = entry & (1 << bits) - 1
            # The largest stand for something else than a library, as negative numbers.
            imports.append((number - (1 << bits) if number >> 4 == (1 << bits) - 1 >> 4 else number,
                            text_at(self.data, start + names + (entry >> name_bit))))
        return imports

    def own_symbols(self):
        """Those that others may see."""
        found = set()
        for at in self.places_of(SYMBOLS):
            table, count, names = struct.unpack_from("<3I", self.data, at + 8)
            for place in range(table, table + 16 * count, 16):
                name, kind = struct.unpack_from("<IB", self.data, place)
                # External, and in a section.
                if kind & 0x0F == 0x0F:
                    found.add(text_at(self.data, names + name))
        return found

    def code_directory(self):
        place = self.linked_data(CODE_SIGNATURE)
        if place is None:
            raise Malformed("it is not signed")
        start = place[0]
        for index in range(struct.unpack_from(">I", self.data, start + 8)[0]):
            kind, offset = struct.unpack_from(">2I", self.data, start + 12 + 8 * index)
            if kind == CODE_DIRECTORY:
                return CodeDirectory(self.data, start + offset)
        raise Malformed("its signature does not say what was signed")


def slices_of(data):
    """Those of a file: one, or one for each architecture."""
    if struct.unpack_from(">I", data)[0] != 0xCAFEBABE:
        return [Slice(data)]
    places = [struct.unpack_from(">2I", data, 16 + 20 * index) for index in range(struct.unpack_from(">I", data, 4)[0])]
    return [Slice(data[offset:offset + size]) for offset, size in places]
