"""What the server, or an attacker in its place, can do to the program; and what the user reads then."""

import os

from updating.stage import PACKAGES, PANEL, content, expect, packages

THROWN_AWAY = "The downloaded update was thrown away, because it cannot be trusted: "
UNTRUSTED = "The update cannot be trusted: "
UNUSABLE = "The update feed cannot be used: "
MALFORMED = '<rss><channel><item><title>open</channel></rss>'
OVERRIDE = "&#x202e;"


def bomb(levels=30):
    entities = "".join("<!ENTITY a%d '%s'>" % (level, "&a%d;" % (level - 1) * 10) for level in range(1, levels))
    return ("<!DOCTYPE rss [<!ENTITY a0 'boom'>%s]><rss><channel><item><title>&a%d;</title></item></channel></rss>"
            % (entities, levels - 1)).encode()


def external_entity(address):
    return ("<!DOCTYPE rss [<!ENTITY e SYSTEM '%s/file/entity'>]><rss><channel><item><title>&e;</title></item>"
            "</channel></rss>" % address).encode()


class Attacks:
    """On one program, which must come to no harm and stay of use."""

    def __init__(self, program, server, versions, opened):
        self.program, self.server, self.opened = program, server, opened
        self.running, self.next = versions[0], versions[1]

    def refuse_feeds(self):
        server = self.server
        server.publish(self.next)
        server.write("bomb.xml", bomb())
        server.write("external.xml", external_entity(server.addresses["good"]))
        server.write("malformed.xml", MALFORMED.encode())
        server.write("page.xml", b"<html><body>Sign in to this network</body></html>")
        server.write("large.xml", b"<rss><channel>" + b" " * 1024 * 1024 + b"</channel></rss>")
        rows = (("/elsewhere/expired/feed.xml", "could not prove its identity (certificate has expired)."),
                ("/elsewhere/elsewhere/feed.xml", "could not prove its identity (no alternative certificate subject"),
                ("/elsewhere/unknown/feed.xml", "could not prove its identity (unable to get local issuer"),
                ("/insecure/feed.xml", "redirects to an address that is not secure. Updates are fetched over HTTPS"),
                ("/local/feed.xml", "is not secure. Updates are fetched over HTTPS only."),
                ("/redirect/9/feed.xml", "The server localhost redirects too often."),
                ("/aside", "The server localhost sends more than it should."),
                ("/endless", "The server localhost sends more than it should."),
                ("/huge", "The server localhost sends more than it should."),
                ("/file/large.xml", "The server localhost sends more than it should."),
                ("/drip/feed.xml", "The server localhost takes too long to answer."),
                ("/short/feed.xml", "The connection to the server localhost was lost."),
                ("/packed", UNUSABLE + "line 1: not well-formed (invalid token)."),
                ("/nothing", "The server localhost answered with error 404."),
                ("/login", "The server localhost answered with error 401."),
                ("/file/bomb.xml", UNUSABLE + "it declares a document type."),
                ("/file/external.xml", UNUSABLE + "it declares a document type."),
                ("/file/malformed.xml", UNUSABLE + "line 1: mismatched tag."),
                ("/file/page.xml", UNUSABLE + "it is not a feed."))
        for route, reason in rows:
            server.route(route)
            self.program.check()
            self.reads(reason)
            if "expired" in route:
                self.program.picture("failure")
            self.program.press("Escape")
            self.program.is_left_alone()
        expect(not any("entity" in line for line in server.requests()), "an entity was fetched")

    def refuse_items(self):
        """Before the user is asked, and before a byte of the package is fetched."""
        package = self.server.publish(self.next)
        signature = 'update:edSignature="%s"' % self.server.signature(package)
        length = 'length="%d"' % os.path.getsize(self.server.path(package))
        rows = ((" " + signature, "", "the signature is missing."),
                (signature, 'edSignature' + signature[len("update:edSignature"):], "the signature is missing."),
                (signature, 'update:edSignature=""', "the signature is missing."),
                (signature, 'update:edSignature="c2hvcnQ="', "the signature is not 64 bytes in base64."),
                (signature, signature[:-3] + '"', "the signature is not 64 bytes in base64."),
                (signature, 'update:edSignature="%sw=="' % ("/" * 85), "the signature is not in its canonical form."),
                (" " + length, "", "the feed does not say how long it is."),
                (length, 'length="-1"', "the feed does not say how long it is."),
                (length, 'length="%d"' % 10**18, "it is larger than 512 MiB."))
        before = len(self.fetched(package))
        for old, new, reason in rows:
            self.server.publish(self.next)
            self.server.change_feed(old, new)
            self.program.check()
            self.reads(UNTRUSTED + reason)
            self.program.press("Escape")
            self.program.is_left_alone()
        expect(len(self.fetched(package)) == before, "a package was fetched whose item was refused")

    def pass_over_items(self):
        """Nothing that is older, or not for this system, is an update, however well it is signed."""
        rows = ((self.running, (), None), ("0.0.9", (), None), (self.running + "b9", (), None),
                (self.next, ("--channel", "beta"), None), (self.next, ("--minimum-system", "99.0"), None),
                (self.next, ("--minimum-system", "6.1"), (">6.1<", ">v9<")),
                (self.next, (), (":version>%s<" % self.next, ":version>v9<")),
                (self.next, (), (":version>%s<" % self.next, ":version>9 %s<" % OVERRIDE)),
                (self.next, (), ('update:os="linux"', 'update:os="macos"')))
        for version, more, change in rows:
            self.server.publish(version, more=more)
            if change:
                self.server.change_feed(*change)
            self.program.check()
            self.program.sees("Tarnwell is up to date")
            self.program.sees("Version %s is the newest one." % self.running)
            self.program.press("Return")
            self.program.is_left_alone()

    def show_texts_in_one_line(self):
        self.server.publish(self.next, more=("--title", "Title"))
        self.server.change_feed("<title>Title<", "<title>Tarnwell&#10;&#10;is   %sup to&#x7;&#x9;date%s<"
                                .replace("&#x7;", "\u200b") % (OVERRIDE, "!" * 1000))
        self.program.check()
        self.program.sees("is available")
        heading = self.program.screen.texts(PANEL)[0]
        expect(heading.startswith("Tarnwell is up to date!!!") and heading.endswith("…") and len(heading) < 100,
               "the title is %r" % heading)
        self.program.picture("odd-title")
        self.program.press("Escape")
        self.program.is_left_alone()

    def refuse_packages(self):
        """What was fetched, and is not what was signed."""
        package = self.server.debian(self.next)
        other = self.server.debian(self.next + ".1")
        length = os.path.getsize(self.server.path(package))
        stranger = os.path.join(self.server.folder, "strangers-key")
        self.server.make_feed("key", stranger)
        mismatch = THROWN_AWAY + "the signature does not belong to this file and key."

        def says(name, value):
            return lambda: self.server.change_feed(*(name % text for text in value))

        lengths, signatures = 'length="%s"', 'edSignature="%s"'
        own = self.server.signature(package)
        old = self.server.debian("0.0.9")
        rows = (("short", None, "The connection to the server localhost was lost."),
                ("long", None, "The server localhost sends more than it should."),
                ("huge", None, "The server localhost sends more than it should."),
                ("insecure", None, "redirects to an address that is not secure. Updates are fetched over HTTPS only."),
                ("drip", None, "The server localhost takes too long to answer."),
                ("file", says(lengths, (length, length - 1)), "The server localhost sends more than it should."),
                ("file", says(lengths, (length, length + 1)), THROWN_AWAY + "it is shorter than the feed says."),
                ("file", says(signatures, (own, self.server.signature(other))), mismatch),
                ("file", says(signatures, (own, self.server.signature(package, stranger))), mismatch),
                ("file", lambda: self.flip_a_bit(package), mismatch),
                ("file", lambda: self.relabel(old, package), THROWN_AWAY + "it is version 0.0.9-1, although it was "
                 "offered as %s." % self.next),
                ("file", says("/file/%s", (package, other)), None))
        for way, change, reason in rows:
            self.server.publish(self.next, way)
            kept = content(self.server.path(package))
            if change:
                change()
            self.start_download()
            self.program.sees("Tarnwell could not be updated")
            self.reads(reason or THROWN_AWAY)
            self.program.press("Escape")
            self.program.is_left_alone()
            self.server.write(package, kept)
        self.has_done_no_harm()

    def refuse_an_app_image(self):
        """It would take the place of a file that this program does not run from."""
        self.server.publish(self.next, package=self.server.app_image(b"elsewhere"))
        self.start_download()
        self.program.sees("is ready to install")
        self.program.press("Return")
        self.reads("Tarnwell does not run from one")
        self.program.press("Escape")
        self.program.is_left_alone()
        self.has_done_no_harm()

    def start_download(self):
        self.program.check()
        self.program.sees("is available")
        self.program.press("Return")

    def flip_a_bit(self, package):
        flipped = bytearray(content(self.server.path(package)))
        flipped[len(flipped) // 2] ^= 1
        self.server.write(package, bytes(flipped))

    def relabel(self, old, package):
        """The old package is ours and its signature holds, but it is not what the item says."""
        for words, name in (("/file/%s", lambda name: name), ('edSignature="%s"', self.server.signature),
                            ('length="%d"', lambda name: os.path.getsize(self.server.path(name)))):
            self.server.change_feed(words % name(package), words % name(old))

    def reads(self, reason):
        self.program.sees(reason)
        print("  refused: " + " / ".join(self.program.screen.texts(PANEL)[1:2]))

    def fetched(self, package):
        return [line for line in self.server.requests() if line.endswith(package)]

    def has_done_no_harm(self):
        expect(not self.program.holds_a_download(), "a refused download is kept")
        expect(packages() in ([], ["tarnwell-update.deb"]), "another package was named in " + PACKAGES)
        expect(not os.path.exists(self.opened), "a refused package was opened")
