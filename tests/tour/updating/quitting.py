"""Quitting in the middle of an update: the program ends at once, and leaves no process behind."""

import os

from updating.stage import CHECKS, DOWNLOADS, content, expect, wait_for, write_preferences


class Quitting:
    """Ends a run of the program at each stage at which it waits for something that does not come."""

    def __init__(self, start, server, folder, version):
        self.start, self.server, self.version = start, server, version
        self.hold, self.held = os.path.join(folder, "hold"), os.path.join(folder, "held")

    def quit_while_it_waits(self):
        write_preferences({CHECKS: False, DOWNLOADS: False})
        for wait, children in ((self.for_a_feed, 0), (self.for_a_package, 0), (self.for_a_verification, 1)):
            program = self.start()
            program.open_general()
            wait(program)
            started = list(descendants(program.process.pid))
            expect(len(started) >= children, "the program waits for %s" % started)
            program.quit()
            wait_for("the end of %s" % started, lambda pids=started: not any(map(is_running, pids)))

    def for_a_feed(self, program):
        self.server.route("/silent")
        program.check()
        program.sees("Checking for updates…")

    def for_a_package(self, program):
        self.server.publish(self.version, "half")
        self.download(program)
        program.sees("1.5 MB of 3 MB")

    def for_a_verification(self, program):
        self.server.publish(self.version)
        open(self.hold, "w").close()
        self.download(program)
        wait_for("the program that looks into the package", lambda: os.path.exists(self.held) and content(self.held))
        os.remove(self.hold)
        os.remove(self.held)

    def download(self, program):
        program.check()
        program.sees("is available")
        program.press("Return")


def descendants(process):
    with open("/proc/%d/task/%d/children" % (process, process)) as file:
        for child in map(int, file.read().split()):
            yield child
            yield from descendants(child)


def is_running(process):
    return os.path.exists("/proc/%d" % process)
