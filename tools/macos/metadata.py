"""Reads what a package of npm's carries of the declarations of macOS's frameworks: binary, inside its own library, and
beside that in a script's terms (.d.ts), which know enumerations and which framework has what."""

import pathlib
import re
import struct

LIBRARY = "build/RelWithDebInfo/NativeScript.apple.node/macos-arm64/NativeScript.framework/Versions/0.1.0/NativeScript"
START = b"NSMD\x01\x00"
MORE = 1 << 31  # Beside a number: something more comes behind it.
NO_SIGNATURE = 0x7FFFFFFF

# By their numbers in the file.
KINDS = ("char", "int", "short", "long", "int64", "uchar", "uint", "ushort", "ulong", "uint64", "float", "double", "uint8",
         "void", "cstring", "id", "protocol", "class", "instance", "string", "mutable string", "Class", "SEL", "array",
         "struct", "pointer", "opaque pointer", "function", "bool", "block", "int128", "long double", "vector",
         "extended vector", "complex", "half")


class Cursor:
    def __init__(self, data, at):
        self.data, self.at = data, at

    def take(self, form):
        values = struct.unpack_from("<" + form, self.data, self.at)
        self.at += struct.calcsize("<" + form)
        return values[0]

    def numbers(self, word):
        """Those that come behind a word, as long as each says so."""
        found = []
        while word & MORE:
            word = self.take("I")
            found.append(word & ~MORE)
        return found


class Method:
    def __init__(self, is_static, selector, signature):
        # The signature is a place in the file.
        self.is_static, self.selector, self.signature = is_static, selector, signature


class Owner:
    """A class or a protocol. Protocols and the class above are places in the file."""

    def __init__(self, name, protocols, above, methods):
        self.name, self.protocols, self.above, self.methods = name, protocols, above, methods


class Metadata:
    def __init__(self, package):
        self.package = pathlib.Path(package)
        raw = (self.package / LIBRARY).read_bytes()
        self.data = raw[raw.index(START):]
        sections = struct.unpack_from("<8I", self.data, len(START))
        self.strings = len(START) + 4 * len(sections)
        constants, enumerations, self.signatures, self.functions, protocols, classes, self.structs, _ = sections
        self.protocols = self._owners(protocols, classes, self._protocol)
        self.classes = self._owners(classes, self.structs, self._class)
        # Name -> number, or type where it is known to the library alone.
        self.constants = dict(self._owners(constants, enumerations, self._constant).values())

    def text(self, offset):
        at = self.strings + (offset & ~MORE)
        return self.data[at:self.data.index(b"\0", at)].decode()

    def struct_name(self, offset):
        return self.text(Cursor(self.data, self.structs + offset).take("I"))

    def _owners(self, start, end, read):
        """By their places."""
        cursor, found = Cursor(self.data, start), {}
        while cursor.at < end:
            place = cursor.at - start
            found[place] = read(cursor)
        return found

    def _constant(self, cursor):
        name, kind = self.text(cursor.take("I")), cursor.take("B")
        if kind in (1, 2):
            return name, cursor.take("q" if kind == 1 else "d")
        if kind == 3:
            cursor.take("I")
            return name, ("string", None)
        return name, self._type(cursor)[0]

    def _protocol(self, cursor):
        name = cursor.take("I")
        return Owner(self.text(name), cursor.numbers(name), None, self._methods(cursor))

    def _class(self, cursor):
        name = cursor.take("I")
        cursor.take("I")
        protocols, above = cursor.numbers(name), cursor.take("I")
        return Owner(self.text(name), protocols, above & ~MORE, self._methods(cursor) if above & MORE else [])

    def _methods(self, cursor):
        found, flags = [], 0x80
        while flags & 0x80:
            flags = cursor.take("B")
            is_static = bool(flags & 8)
            if flags & 1:
                cursor.take("I")
                found.append(self._method(is_static, cursor))
                if not flags & 2:
                    found.append(self._method(is_static, cursor))
            elif flags & 0x7F:
                found.append(self._method(is_static, cursor))
        return found

    def _method(self, is_static, cursor):
        return Method(is_static, self.text(cursor.take("I")), cursor.take("I"))

    def signature(self, place):
        """Result, arguments, whether it takes more; None where the file does not say."""
        if place == NO_SIGNATURE:
            return None
        cursor = Cursor(self.data, self.signatures + place)
        result, flags = self._type(cursor)
        takes_more, arguments = bool(flags & 0x40), []
        goes_on = flags & 0xC0
        while goes_on and cursor.at < self.functions:
            argument, flags = self._type(cursor)
            arguments.append(argument)
            goes_on = flags & 0x80
        return result, arguments, takes_more

    def _type(self, cursor):
        """((kind, what is special about it), flags)"""
        byte = cursor.take("B")
        kind, detail = KINDS[byte & 0x3F], None
        if kind == "array":
            cursor.take("H")
            detail = self._type(cursor)[0]
        elif kind in ("struct", "function", "block"):
            detail = cursor.take("I")
        elif kind == "protocol":
            detail = cursor.numbers(MORE)
        elif kind == "class":
            word = cursor.take("I")
            detail = word & ~MORE, cursor.numbers(word)
        elif kind == "pointer":
            detail = self._type(cursor)[0]
        return (kind, detail), byte & 0xC0


class Script:
    """What a framework declares, by name."""

    def __init__(self, package, framework):
        path = pathlib.Path(package) / "types" / (framework + ".d.ts")
        text = path.read_text(encoding="utf-8")
        self.classes = set(re.findall(r"^declare class (\w+) ", text, re.M))
        self.functions = set(re.findall(r"^declare function (\w+)", text, re.M))
        # Name -> type, and name -> enumerators with their values.
        self.constants = dict(re.findall(r"^declare const (\w+): ([^{\n]+);", text, re.M))
        self.enumerations = {name: re.findall(r'^\s+"?(\w+)"?: (-?\d+),', body, re.M)
                             for name, body in re.findall(r"^declare const (\w+): \{\n(.*?)\n\};", text, re.S | re.M)}
