"""The running program, and a person in front of it."""

import os
import signal
import subprocess
import time

from updating.stage import PACKAGES, PANEL, SETTINGS, expect, output, wait_for


class Program:
    """One run of it, from its window to its end."""

    def __init__(self, screen, folder, executable, environment):
        self.screen, self.folder = screen, folder
        self.log = open(os.path.join(folder, "program.log"), "a")
        self.process = subprocess.Popen((executable,), env={**os.environ, **environment}, stdout=self.log,
                                        stderr=self.log)
        self.window = wait_for("the settings", lambda: output("xdotool", "search", "--onlyvisible", "--name",
                                                              "^" + SETTINGS + "$"), 30)
        wait_for("the tabs", lambda: screen.find(SETTINGS, "General"))

    def end(self):
        self.process.terminate()
        self.ends_with(-signal.SIGTERM)

    def quit(self):
        """As its user does."""
        subprocess.run(("xdotool", "windowactivate", "--sync", self.window), check=True)
        self.press("ctrl+q")
        self.ends_with(0)

    def ends_with(self, expected):
        wait_for("the end of the program", lambda: self.process.poll() is not None, 10)
        self.log.close()
        expect(self.process.returncode == expected, "the program ended with status %d" % self.process.returncode)

    def is_open(self):
        return bool(self.screen.window(PANEL))

    def click(self, name, title=PANEL, suits=lambda node: True):
        x, y = wait_for(name, lambda: self.place(title, name, suits))
        subprocess.run(("xdotool", "mousemove", str(x), str(y), "click", "1"), check=True)

    def place(self, title, name, suits):
        """Where it is, once the window manager has put the window where it stays."""
        node = self.screen.find(title, name, suits)
        if node is None:
            return None
        before = self.screen.centre(node)
        time.sleep(0.05)
        window = output("xdotool", "search", "--onlyvisible", "--name", "^" + title + "$")
        geometry = dict(line.split("=") for line in output("xdotool", "getwindowgeometry", "--shell", window).split())
        x, y = self.screen.centre(node)
        left, top = x - int(geometry["X"]), y - int(geometry["Y"])
        is_within = 0 < left < int(geometry["WIDTH"]) and 0 < top < int(geometry["HEIGHT"])
        return (x, y) if (x, y) == before and is_within else None

    def press(self, *keys):
        subprocess.run(("xdotool", "key", "--clearmodifiers") + keys, check=True)

    def open_general(self):
        subprocess.run(("xdotool", "windowactivate", "--sync", self.window), check=True)
        self.click("General", SETTINGS)
        wait_for("the General tab", lambda: self.screen.find(SETTINGS, "Check for Updates…"))

    def open_dock(self):
        self.click("Dock", SETTINGS)
        wait_for("the Dock tab", lambda: not self.screen.find(SETTINGS, "Check for Updates…"))

    def turn(self, name):
        """Presses a switch of the settings."""
        self.click(name, SETTINGS, self.screen.is_switch)

    def shows_on(self, name):
        node = self.screen.find(SETTINGS, name, self.screen.is_switch)
        return node is not None and self.screen.is_on(node)

    def can_check(self):
        node = self.screen.find(SETTINGS, "Check for Updates…")
        return node is not None and self.screen.is_enabled(node)

    def check(self):
        wait_for("a check to be possible", self.can_check)
        self.click("Check for Updates…", SETTINGS)

    def sees(self, text):
        wait_for("“%s”; there is %s" % (text, self.screen.texts(PANEL)),
                 lambda: any(text in shown for shown in self.screen.texts(PANEL)))

    def shows_nothing_of(self, text):
        return not any(text in shown for shown in self.screen.texts(PANEL))

    def is_left_alone(self):
        wait_for("the panel to go", lambda: not self.is_open())
        wait_for("a check to be possible", self.can_check)

    def picture_path(self, name):
        return os.path.join(self.folder, name + ".png")

    def picture(self, name, title=PANEL):
        def found():
            return output("xdotool", "search", "--onlyvisible", "--name", "^" + title + "$").split()

        # A panel tells the accessibility bus of itself before the display shows it.
        wait_for("one window called " + title, lambda: len(found()) == 1)
        subprocess.run(("import", "-window", *found(), self.picture_path(name)), check=True)

    def holds_a_download(self):
        """Whether it still has a download that has no name."""
        folder = "/proc/%d/fd" % self.process.pid
        return any(PACKAGES in os.readlink(os.path.join(folder, number)) for number in os.listdir(folder))
