"""What the steps of the updates tour stand on: waiting, expecting, and the places of things."""

import os
import subprocess
import time

PROJECT = os.path.dirname(os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__)))))
PACKAGES = os.path.join(os.environ["XDG_CACHE_HOME"], "tarnwell", "updates")
PREFERENCES = os.path.join(os.environ["XDG_CONFIG_HOME"], "tarnwell", "updates")
PANEL = "Software Update"
SETTINGS = "Tarnwell Settings"

# What is remembered of updates, by the names in that file.
CHECKS, DOWNLOADS = "automatic-checks", "automatic-downloads"
LAST_CHECK, SKIPPED = "last-check", "skipped-version"


class Failed(Exception):
    pass


def wait_for(what, condition, seconds=20):
    end = time.monotonic() + seconds
    while True:
        result = condition()
        if result:
            return result
        if time.monotonic() > end:
            raise Failed("waited in vain for " + what)
        time.sleep(0.03)


def expect(condition, what):
    if not condition:
        raise Failed(what)


def output(*command):
    return subprocess.run(command, check=False, capture_output=True, text=True).stdout.strip()


def content(path):
    with open(path, "rb") as file:
        return file.read()


def packages():
    return os.listdir(PACKAGES) if os.path.isdir(PACKAGES) else []


def read_preferences():
    """By name; what is yes or no comes as a boolean."""
    try:
        lines = content(PREFERENCES).decode().splitlines()
    except OSError:
        return {}
    values = dict(line.split(" ", 1) for line in lines)
    return {name: {"yes": True, "no": False}.get(value, value) for name, value in values.items()}


def write_preferences(values):
    """As another program would; what is None goes."""
    preferences = {name: value for name, value in {**read_preferences(), **values}.items() if value is not None}
    draft = PREFERENCES + ".draft"
    with open(draft, "w") as file:
        for name, value in preferences.items():
            file.write("%s %s\n" % (name, {True: "yes", False: "no"}.get(value, value)))
    os.rename(draft, PREFERENCES)
