"""Looks at the folder that an application of macOS is: Contents/Info.plist, what that names, and the seal over it."""

import hashlib
import os
import plistlib
import re
import struct

# What the system takes for an application with windows and a menu bar.
FIXED = {"CFBundleInfoDictionaryVersion": "6.0", "CFBundlePackageType": "APPL", "NSPrincipalClass": "NSApplication"}
FORMS = {
    "CFBundleDevelopmentRegion": r"[a-z]{2}",
    "CFBundleExecutable": r"[\w-]+",
    "CFBundleIconFile": r"[\w-]+",
    "CFBundleIdentifier": r"[A-Za-z0-9-]+(\.[A-Za-z0-9-]+)+",
    "CFBundleName": r"\w{1,15}",
    "CFBundleShortVersionString": r"\d+(\.\d+){1,2}",
    "CFBundleVersion": r"\d+(\.\d+){0,2}",
    "LSApplicationCategoryType": r"public\.app-category\.[a-z-]+",
    "NSHumanReadableCopyright": r"\S.*",
}
# Without them the application has a menu bar and an icon in the Dock.
UNWANTED = ("LSUIElement", "LSBackgroundOnly")
ARCHITECTURES = ("arm64", "x86_64")
# What is sealed beside programs and description, and by which number the programs' signatures know these.
SEAL = "_CodeSignature/CodeResources"
INFORMATION_SLOT, SEAL_SLOT = 1, 3


def information_of(application):
    with open(os.path.join(application, "Contents/Info.plist"), "rb") as file:
        information = plistlib.load(file)
    if not isinstance(information, dict):
        raise ValueError("Info.plist is no dictionary")
    return information


def program_of(application):
    """The path of its own program, below Contents as all paths here."""
    return os.path.join("MacOS", str(information_of(application)["CFBundleExecutable"]))


def helpers_of(application):
    """The paths of programs that others start."""
    folder = os.path.join(application, "Contents/Helpers")
    return [os.path.join("Helpers", name) for name in sorted(os.listdir(folder))] if os.path.isdir(folder) else []


def content_of(application, path):
    with open(os.path.join(application, "Contents", path), "rb") as file:
        return file.read()


def resources_of(application):
    """The paths of what has no signature of its own."""
    contents = os.path.join(application, "Contents")
    found = [os.path.relpath(os.path.join(folder, name), contents)
             for folder, _, names in os.walk(contents) for name in names]
    return sorted(path for path in found if path not in ("Info.plist", SEAL) and not path.startswith(("MacOS/", "Helpers/")))


def seal_of(programs):
    """What vouches for a helper: the hashes of what its programs' signatures say."""
    hashes = [program.code_directory().hash for program in programs]
    return {"cdhash": hashes[0], "requirement": " or ".join(f'cdhash H"{each.hex()}"' for each in hashes)}


def faults_of(application, least, programs):
    """`programs`: those of each file, by its path."""
    information = information_of(application)
    yield from (f"Info.plist: {fault}" for fault in faults_of_information(information, least))
    icon = os.path.join(application, "Contents/Resources", f"{information.get('CFBundleIconFile')}.icns")
    if not is_icon(icon):
        yield "it has no icon"
    for path, those in programs.items():
        yield from faults_of_file(application, path, those)
    if not os.path.exists(os.path.join(application, "Contents", SEAL)):
        yield "it is not sealed"
        return
    yield from faults_of_seal(application, programs)
    for program in programs[program_of(application)]:
        yield from (f"{program.architecture}: {fault}" for fault in faults_between(application, program))


def faults_of_file(application, path, programs):
    if not os.access(os.path.join(application, "Contents", path), os.X_OK):
        yield f"{path} may not be run"
    architectures = [program.architecture for program in programs]
    for architecture in ARCHITECTURES:
        if architectures.count(architecture) != 1:
            yield f"{path} has {architectures.count(architecture)} programs for {architecture}"


def faults_of_seal(application, programs):
    sealed = plistlib.loads(content_of(application, SEAL))["files2"]
    there = {path: {"hash2": hashlib.sha256(content_of(application, path)).digest()} for path in resources_of(application)}
    there |= {path: seal_of(programs[path]) for path in helpers_of(application)}
    for path in sorted(set(sealed) | set(there)):
        if path not in sealed:
            yield f"{path} is not sealed"
        elif path not in there:
            yield f"{path} is sealed and not there"
        elif sealed[path] != there[path]:
            yield f"{path} is not the one that was sealed"


def faults_between(application, program):
    """What a program's signature and the rest of the bundle say of each other."""
    signed = program.code_directory()
    if signed.identifier != information_of(application).get("CFBundleIdentifier"):
        yield f"it is signed as {signed.identifier}"
    for slot, path in ((INFORMATION_SLOT, "Info.plist"), (SEAL_SLOT, SEAL)):
        if signed.special.get(slot) != hashlib.sha256(content_of(application, path)).digest():
            yield f"{path} is not the one that was signed"


def faults_of_information(information, least):
    for name, value in {**FIXED, "LSMinimumSystemVersion": "{}.{}".format(*least)}.items():
        if information.get(name) != value:
            yield f"{name} is not {value}"
    for name, form in FORMS.items():
        if not re.fullmatch(form, str(information.get(name, ""))):
            yield f"{name} is {information.get(name)!r}"
    for name in UNWANTED:
        if name in information:
            yield f"it has {name}"


def is_icon(path):
    """Whether it holds pictures, one behind the other, up to its end."""
    if not os.path.exists(path):
        return False
    with open(path, "rb") as file:
        data = file.read()
    if data[:4] != b"icns" or struct.unpack_from(">I", data, 4)[0] != len(data):
        return False
    at = 8
    while at + 8 <= len(data) and struct.unpack_from(">I", data, at + 4)[0] >= 8:
        at += struct.unpack_from(">I", data, at + 4)[0]
    return at == len(data) > 8
