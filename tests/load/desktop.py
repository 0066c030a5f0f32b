"""A desktop of its own with the program on it, and what its user sees and presses there."""

import contextlib
import hashlib
import os
import re
import shutil
import signal
import subprocess
import time

from Xlib import X, XK, display, error
from Xlib.ext import xtest

PROJECT = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
FOLDER = os.path.join(PROJECT, "build", "load")
BUILD = os.path.join(PROJECT, "build", "release")
FRONT = os.path.join(BUILD, "tarnwell")
HELPERS = os.path.join(BUILD, "libexec")
SETTINGS = "Tarnwell Settings"
PATIENCE = 30


class Failed(AssertionError):
    pass


def wait_for(what, question, seconds=PATIENCE):
    end = time.monotonic() + seconds
    while not (answer := question()):
        if time.monotonic() > end:
            raise Failed(f"waited in vain for {what}")
        time.sleep(0.005)
    return answer


def children(process):
    with open(f"/proc/{process}/task/{process}/children", encoding="ascii") as numbers:
        return numbers.read().split()


def rests(process):
    """Whether it has no children, not even one that has ended and that it has not looked after."""
    return not children(process)


class Screen:
    def __init__(self):
        self.display = display.Display()
        self.root = self.display.screen().root
        self.clients = self.display.intern_atom("_NET_CLIENT_LIST")
        self.active = self.display.intern_atom("_NET_ACTIVE_WINDOW")

    def numbers(self, atom):
        found = self.root.get_full_property(atom, X.AnyPropertyType)
        return list(found.value) if found else []

    def window(self, number):
        return self.display.create_resource_object("window", number or X.NONE)

    def windows(self):
        """Those of the settings, of which there should be one at most, by number."""
        return [number for number in self.numbers(self.clients) if self.shows_settings(number)]

    def shows_settings(self, number):
        window = self.window(number)
        # It may go while it is asked.
        with contextlib.suppress(error.XError):
            return window.get_wm_name() == SETTINGS and window.get_attributes().map_state == X.IsViewable
        return False

    def in_front(self):
        """The settings, where they have the keyboard."""
        return next((number for number in self.windows() if number in self.numbers(self.active)), None)

    def popups(self):
        """How many menus are open, and tool tips."""
        count = 0
        for window in self.root.query_tree().children:
            with contextlib.suppress(error.XError):
                attributes = window.get_attributes()
                kind = window.get_wm_class()
                count += bool(attributes.override_redirect and attributes.map_state == X.IsViewable
                              and kind and kind[0] == "tarnwell")
        return count

    def size(self, number):
        with contextlib.suppress(error.XError):
            geometry = self.window(number).get_geometry()
            return geometry.width, geometry.height
        return None

    def picture(self, number):
        """Another text for another picture, and none for a window that has not been painted."""
        with contextlib.suppress(error.XError):
            window = self.window(number)
            geometry = window.get_geometry()
            data = window.get_image(0, 0, geometry.width, geometry.height, X.ZPixmap, 0xFFFFFFFF).data
            return hashlib.sha256(data).hexdigest() if any(data) else None
        return None

    def held(self):
        """What all programs hold here: bytes of pictures, and how many windows, pictures and the like."""
        clients = [client.resource_base for client in self.display.res_query_clients().clients]
        return (sum(self.display.res_query_client_pixmap_bytes(client).bytes for client in clients),
                sum(kind.count for client in clients for kind in self.display.res_query_client_resources(client).types))

    def press(self, *keys):
        """Each with the keys that are held meanwhile before it, "Control_L+w"."""
        for chord in keys:
            codes = [self.display.keysym_to_keycode(XK.string_to_keysym(key)) for key in chord.split("+")]
            for code in codes:
                xtest.fake_input(self.display, X.KeyPress, code)
            for code in reversed(codes):
                xtest.fake_input(self.display, X.KeyRelease, code)
        self.display.sync()


class Desktop:
    """The stage of the tour, and what is started on it."""

    def __init__(self, name):
        self.folder = os.path.join(FOLDER, name)
        shutil.rmtree(self.folder, ignore_errors=True)
        self.stage = subprocess.Popen([os.path.join(PROJECT, "tests", "load", "stage"), self.folder],
                                      stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True)
        self.started, self.docks = [], None

    def __enter__(self):
        path = self.stage.stdout.readline().rstrip("\n")
        if not path:
            raise Failed("no stage")
        with open(path, encoding="utf-8") as variables:
            self.environment = dict(line.split("=", 1) for line in variables.read().rstrip("\0").split("\0"))
        os.environ["XAUTHORITY"], os.environ["DISPLAY"] = (self.environment[n] for n in ("XAUTHORITY", "DISPLAY"))
        self.screen = Screen()
        return self

    def __exit__(self, *_):
        for process in reversed(self.started):
            process.terminate()
        for process in reversed(self.started):
            with contextlib.suppress(subprocess.TimeoutExpired):
                process.wait(PATIENCE)
            # One that does not end has failed its test already.
            process.kill()
            process.wait()
        self.stage.stdin.close()
        self.stage.wait()
        self.stage.stdout.close()
        if self.docks:
            self.docks.file.close()

    def number_of(self, name):
        """Of one of the stage's processes."""
        return int(self.environment[f"STAGE_{name.upper()}"])

    def end(self, name):
        number = self.number_of(name)
        os.kill(number, signal.SIGTERM)
        # It is the stage's to look after.
        wait_for(f"the end of the {name}", lambda: not is_running(number))

    def start(self, *words, log=None, taken=subprocess.DEVNULL, **more):
        """A program whose output goes to a log of its name; `more` is for its environment."""
        with open(os.path.join(self.folder, f"{log or os.path.basename(words[0])}.log"), "ab") as output:
            process = subprocess.Popen(words, env={**self.environment, **more}, stdin=taken,
                                       stdout=output, stderr=output)
        self.started.append(process)
        return process

    def run(self, *words):
        return subprocess.run(words, env=self.environment, stdin=subprocess.DEVNULL, capture_output=True, text=True,
                              check=False, timeout=PATIENCE)

    def start_docks(self):
        supervisor = self.start(os.path.join(HELPERS, "dock-supervisor"))
        path = os.path.join(self.environment["MACOS_ROOT"], "Library/Logs/Dock.log")
        wait_for("the Dock", lambda: os.path.exists(path))
        self.docks = DockLog(path)
        wait_for("the Dock", lambda: self.docks.count() == 1)
        return supervisor

    def start_bar(self):
        """A status bar, which can be ended as the stage's processes can. It does not end with the display."""
        bar = self.start(os.path.join(PROJECT, "tests", "desktop", "status-bar"), taken=subprocess.PIPE)
        log = os.path.join(self.folder, "status-bar.log")
        wait_for("a status bar", lambda: os.path.getsize(log) > 0)
        self.environment["STAGE_BAR"] = str(bar.pid)

    def settings(self):
        return {key: self.run(os.path.join(HELPERS, "defaults"), "read", "com.apple.dock", key).stdout.strip()
                for key in KEYS}

    def open(self, *before, **more):
        """A start that nothing disturbs, once its window has the keyboard."""
        process = self.start(*before, FRONT, log="tarnwell", **more)
        wait_for("the settings in front", lambda: ended(process) or self.screen.in_front())
        return process

    def quit(self, process):
        """As its user does."""
        wait_for("the settings in front", self.screen.in_front)
        self.screen.press("Control_L+q")
        return wait_for("the program to end", lambda: ended(process))

    def left(self):
        """The programs that are still there and are not this one's children, but for the stage's."""
        mark = f"MACOS_ROOT={self.environment['MACOS_ROOT']}".encode()
        found = {}
        for number in filter(str.isdigit, os.listdir("/proc")):
            with contextlib.suppress(OSError):
                with open(f"/proc/{number}/environ", "rb") as variables, open(f"/proc/{number}/comm", "rb") as name:
                    if mark in variables.read().split(b"\0"):
                        found[int(number)] = name.read().decode().strip()
        return sorted(name for number, name in found.items() if number not in [each.pid for each in self.started])

    def files(self):
        """What there is of the user's, by name."""
        places = (self.environment[name] for name in ("HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_STATE_HOME",
                                                      "XDG_RUNTIME_DIR", "MACOS_ROOT"))
        return sorted(os.path.join(folder, name) for place in places for folder, _, names in os.walk(place)
                      for name in names)


class DockLog:
    """The log of the Docks, from its first line on, which gets another name when it is long."""

    def __init__(self, path):
        self.path, self.lines = path, 0
        self.file = open(path, "rb")

    def count(self):
        """How many Docks have started."""
        self.lines += self.file.read().count(b"\n")
        with contextlib.suppress(FileNotFoundError):
            if os.stat(self.path).st_ino != os.fstat(self.file.fileno()).st_ino:
                self.lines += self.file.read().count(b"\n")
                self.file.close()
                self.file = open(self.path, "rb")
        return self.lines


def ended(process):
    """What it ended with, as text, or nothing."""
    return None if process.poll() is None else f"status {process.returncode}"


def state(number):
    """A letter, as the kernel has it; that of one that has gone where it has been looked after as well."""
    with contextlib.suppress(FileNotFoundError):
        with open(f"/proc/{number}/stat", encoding="ascii", errors="replace") as stat:
            return stat.read().rpartition(")")[2].split()[0]
    return "Z"


def is_running(number):
    return state(number) != "Z"


def commands(name):
    with open(os.path.join(PROJECT, "tests", "fixtures", name), encoding="utf-8") as lines:
        return re.findall(r"^defaults write com\.apple\.dock (\S+) (-\w+) (\S+?);? ", lines.read(), re.MULTILINE)


KEYS = [key for key, _, _ in commands("saved-commands")]
