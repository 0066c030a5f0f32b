"""Looks at the folder that an application of macOS is: Contents/Info.plist and what that names."""

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


def information_of(application):
    with open(os.path.join(application, "Contents/Info.plist"), "rb") as file:
        information = plistlib.load(file)
    if not isinstance(information, dict):
        raise ValueError("Info.plist is no dictionary")
    return information


def program_of(application):
    return os.path.join(application, "Contents/MacOS", str(information_of(application)["CFBundleExecutable"]))


def faults_of(application, least, architectures):
    information = information_of(application)
    yield from (f"Info.plist: {fault}" for fault in faults_of_information(information, least))
    if not os.access(program_of(application), os.X_OK):
        yield "its program may not be run"
    icon = os.path.join(application, "Contents/Resources", f"{information.get('CFBundleIconFile')}.icns")
    if not is_icon(icon):
        yield "it has no icon"
    for architecture in ARCHITECTURES:
        if architectures.count(architecture) != 1:
            yield f"it has {architectures.count(architecture)} programs for {architecture}"


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
