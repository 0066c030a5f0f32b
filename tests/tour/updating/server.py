"""The server of updates, and the publisher who fills it."""

import os
import shutil
import subprocess

from updating.stage import PROJECT, expect, wait_for

NOTES = """<h3>What is new</h3>
<ul><li>The delay of the Dock can be as short as you like.</li><li>Less memory.</li></ul>
<p>There is more in <a href="https://tarnwell.example/notes">the notes</a>.</p>
<script>alert("run")</script><img src="file:///etc/passwd"><img src="https://localhost:1/seen.png">
<link rel="stylesheet" href="file:///dev/zero">"""


class Server:
    """What is served next, and in which way."""

    def __init__(self, build, folder):
        self.build, self.folder = build, os.path.join(folder, "server")
        os.makedirs(os.path.join(self.folder, "www"))
        self.process = subprocess.Popen((os.path.join(PROJECT, "tests/updater/transfer/loopback-server"),
                                         self.folder), stdin=subprocess.PIPE)
        addresses = os.path.join(self.folder, "addresses")
        wait_for("the server", lambda: os.path.exists(addresses))
        with open(addresses) as file:
            self.addresses = dict(line.strip().split("=", 1) for line in file)
        self.key = os.path.join(folder, "private-key")
        self.public_key = self.make_feed("key", self.key)
        self.notes = os.path.join(folder, "notes")

    def end(self):
        self.process.stdin.close()
        self.process.wait()

    def path(self, name):
        return os.path.join(self.folder, "www", name)

    def write(self, name, content):
        with open(self.path(name), "wb") as file:
            file.write(content)

    def make_feed(self, *arguments):
        program = os.path.join(self.build, "src/publish/make-feed")
        return subprocess.run((program,) + arguments, check=True, capture_output=True, text=True).stdout.strip()

    def debian(self, version):
        """The name of a package of that version, as the system knows them."""
        name = "tarnwell_%s.deb" % version
        if not os.path.exists(self.path(name)):
            tree = os.path.join(self.folder, "tree")
            shutil.rmtree(tree, ignore_errors=True)
            os.makedirs(os.path.join(tree, "DEBIAN"))
            with open(os.path.join(tree, "DEBIAN/control"), "w") as control:
                control.write("Package: tarnwell\nVersion: %s-1\nArchitecture: all\nMaintainer: Tour <tour@tarnwell."
                              "example>\nDescription: played\n" % version)
            with open(os.path.join(tree, "content"), "wb") as file:
                file.write(os.urandom(3_000_000))
            subprocess.run(("dpkg-deb", "--build", "--root-owner-group", "-Znone", tree, self.path(name)), check=True,
                           capture_output=True)
        return name

    def app_image(self, word):
        """The name of a package that takes the place of the program's own file."""
        self.write("Tarnwell.AppImage", b"\x7fELF\2\1\1\0AI\2" + word * 300_000)
        return "Tarnwell.AppImage"

    def publish(self, version, way="file", package=None, more=()):
        """A new feed of one item, whose package is fetched in the given way. Returns the package's name."""
        package = package or self.debian(version)
        if os.path.exists(self.path("feed.xml")):
            os.remove(self.path("feed.xml"))
        with open(self.notes, "w") as file:
            file.write(NOTES)
        self.add(version, way, package, more)
        self.route("/file/feed.xml")
        return package

    def add(self, version, way, package, more=()):
        """One more item in front of the others."""
        self.make_feed("add", self.path("feed.xml"), "--private-key", self.key, "--package", self.path(package),
                       "--url", "%s/%s/%s" % (self.addresses["good"], way, package), "--version", version, "--notes",
                       self.notes, *more)

    def feed(self):
        with open(self.path("feed.xml")) as file:
            return file.read()

    def change_feed(self, old, new):
        expect(old in self.feed(), "the feed has no " + old)
        self.write("feed.xml", self.feed().replace(old, new).encode())

    def signature(self, package, key=None):
        return self.make_feed("sign", key or self.key, self.path(package))

    def route(self, path):
        """What the feed's address answers with."""
        with open(os.path.join(self.folder, "route"), "w") as file:
            file.write(path)

    def requests(self):
        path = os.path.join(self.folder, "requests")
        if not os.path.exists(path):
            return []
        with open(path) as file:
            return file.read().splitlines()
