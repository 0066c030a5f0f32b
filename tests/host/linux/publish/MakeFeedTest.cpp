#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include "core/Descriptor.h"
#include "fixtures/EnvironmentScope.h"
#include "fixtures/Sandbox.h"
#include "host/linux/publish/Program.h"
#include "host/linux/updates/FeedReader.h"
#include "host/linux/updates/PackageClaim.h"
#include "host/linux/updates/PublicKey.h"

namespace tarnwell::host_linux::publish {
namespace {

using updates::FeedItem;
using Items = std::vector<FeedItem>;

/// A publisher with a key and a package.
struct Publisher {
  Publisher() {
    const ProgramEnd end = makeFeed("key " + path("private"));
    EXPECT_EQ(end.status, 0) << end.output;
    publicKey = end.output.substr(0, end.output.find('\n'));
    sandbox.write("a.deb", "the package");
  }

  std::string path(const std::string& name) const { return (sandbox / name).string(); }

  /// Adds an item for the package; `more` comes after the other arguments.
  ProgramEnd add(const std::string& version, const std::string& more = "") const {
    return makeFeed("add " + path("feed.xml") + " --private-key " + path("private") + " --package " + path("a.deb") +
                    " --url https://updates.invalid/a.deb --version " + version + " " + more);
  }

  Items items() const {
    updates::FeedReader reader;
    reader.feed(sandbox.read("feed.xml"));
    const auto items = reader.finish();
    const auto* failure = std::get_if<Failure>(&items);
    EXPECT_EQ(failure, nullptr) << failure->message;
    return failure == nullptr ? std::get<Items>(items) : Items();
  }

  /// Why the updater would refuse the package behind an item; empty when it would not.
  std::string refusalOf(const FeedItem& item, const std::string& package) const {
    const auto key = std::get<updates::PublicKey>(updates::PublicKey::parse(publicKey));
    const auto claim = std::get<updates::PackageClaim>(updates::PackageClaim::create(item));
    const core::Descriptor file(::open((sandbox / package).c_str(), O_RDONLY | O_CLOEXEC));
    const auto failure = claim.signature.verify(key, file.number(), claim.length);
    return failure ? failure->message : "";
  }

  fixtures::Sandbox sandbox;
  std::string publicKey;
};

mode_t modeOf(const std::filesystem::path& path) {
  struct stat status = {};
  return ::stat(path.c_str(), &status) == 0 ? status.st_mode & 07777U : 0;
}

bool contains(const std::string& text, const std::string& part) { return text.find(part) != std::string::npos; }

TEST(MakeFeed, makesAKeyForItsOwnerAlone) {
  const Publisher publisher;
  EXPECT_EQ(modeOf(publisher.sandbox / "private"), 0600U);
  EXPECT_TRUE(std::holds_alternative<updates::PublicKey>(updates::PublicKey::parse(publisher.publicKey)));
  EXPECT_EQ(makeFeed("public " + publisher.path("private")).output, publisher.publicKey + "\n");
  EXPECT_NE(Publisher().publicKey, publisher.publicKey);
}

TEST(MakeFeed, neverOverwritesAKey) {
  const Publisher publisher;
  const std::string before = publisher.sandbox.read("private");
  const ProgramEnd end = makeFeed("key " + publisher.path("private"));
  EXPECT_EQ(end.status, 1);
  EXPECT_EQ(end.output, "make-feed: cannot make " + publisher.path("private") + ": File exists\n");
  EXPECT_EQ(publisher.sandbox.read("private"), before);
}

TEST(MakeFeed, takesNoKeyThatOthersCanReadOrThatIsNone) {
  const Publisher publisher;
  std::filesystem::permissions(publisher.sandbox / "private", std::filesystem::perms(0640));
  EXPECT_TRUE(contains(publisher.add("2.0").output, "others can read"));
  publisher.sandbox.write("private", "no key");
  std::filesystem::permissions(publisher.sandbox / "private", std::filesystem::perms(0600));
  EXPECT_TRUE(contains(publisher.add("2.0").output, "is not a private key"));
  std::filesystem::remove(publisher.sandbox / "private");
  EXPECT_TRUE(contains(publisher.add("2.0").output, "No such file"));
  EXPECT_FALSE(publisher.sandbox.holds("feed.xml"));
}

TEST(MakeFeed, makesAFeedThatTheUpdaterReadsAndBelieves) {
  const Publisher publisher;
  const fixtures::EnvironmentScope time("SOURCE_DATE_EPOCH", "1795255200");
  publisher.sandbox.write("notes", "<b>Faster</b> & \"smaller\"\r\n]]> \xc3\xa4");
  const ProgramEnd end =
      publisher.add("120",
                    "--shown-version 1.2 --title 'Tarnwell <1.2>' --channel beta --critical --minimum-system 5.10 "
                    "--notes " +
                        publisher.path("notes"));
  ASSERT_EQ(end.status, 0) << end.output;
  const Items items = publisher.items();
  ASSERT_EQ(items.size(), 1U);
  EXPECT_EQ(items[0].title, "Tarnwell <1.2>");
  EXPECT_EQ(items[0].version, "120");
  EXPECT_EQ(items[0].shownVersion, "1.2");
  EXPECT_EQ(items[0].notes, "<b>Faster</b> & \"smaller\"\r\n]]> \xc3\xa4");
  EXPECT_EQ(items[0].channel, "beta");
  EXPECT_EQ(items[0].minimumSystemVersion, "5.10");
  EXPECT_EQ(items[0].publicationDate, "Sat, 21 Nov 2026 10:00:00 +0000");
  EXPECT_TRUE(items[0].isCritical);
  EXPECT_EQ(items[0].enclosure.url, "https://updates.invalid/a.deb");
  EXPECT_EQ(items[0].enclosure.length, 11U);
  EXPECT_EQ(items[0].enclosure.system, "linux");
  EXPECT_EQ(items[0].enclosure.type, "application/vnd.debian.binary-package");
  EXPECT_EQ(publisher.refusalOf(items[0], "a.deb"), "");
  publisher.sandbox.write("a.deb", "the Package");
  EXPECT_EQ(publisher.refusalOf(items[0], "a.deb"), "the signature does not belong to this file and key");
}

TEST(MakeFeed, signsThePackageAsTheItemSays) {
  const Publisher publisher;
  ASSERT_EQ(publisher.add("2.0").status, 0);
  const ProgramEnd end = makeFeed("sign " + publisher.path("private") + " " + publisher.path("a.deb"));
  EXPECT_EQ(end.output, publisher.items().at(0).enclosure.signature + "\n");
}

TEST(MakeFeed, putsTheNewestItemFirst) {
  const Publisher publisher;
  ASSERT_EQ(publisher.add("1.1").status, 0);
  ASSERT_EQ(publisher.add("1.2").status, 0);
  const Items items = publisher.items();
  ASSERT_EQ(items.size(), 2U);
  EXPECT_EQ(items[0].version, "1.2");
  EXPECT_EQ(items[0].title, "Tarnwell 1.2");
  EXPECT_FALSE(items[0].isCritical);
  EXPECT_EQ(items[1].version, "1.1");
}

TEST(MakeFeed, leavesTheRestOfAFeedAsItIs) {
  const Publisher publisher;
  const std::string head =
      "<rss xmlns:y='http://www.andymatuschak.org/xml-namespaces/sparkle'>\n\t<channel><!-- <item> "
      "--><title>Mine</title>";
  const std::string tail = "<item><y:version>1.0</y:version></item>\r\n<odd/></channel>\n</rss>";
  publisher.sandbox.write("feed.xml", head + tail);
  ASSERT_EQ(publisher.add("2.0").status, 0);
  const std::string text = publisher.sandbox.read("feed.xml");
  EXPECT_TRUE(text.starts_with(head + "<item "));
  EXPECT_TRUE(text.ends_with("</item>\n    " + tail));
}

TEST(MakeFeed, refusesToOfferAVersionTwice) {
  const Publisher publisher;
  ASSERT_EQ(publisher.add("2.0").status, 0);
  const std::string before = publisher.sandbox.read("feed.xml");
  const ProgramEnd end = publisher.add("2");
  EXPECT_EQ(end.status, 1);
  EXPECT_EQ(end.output, "make-feed: " + publisher.path("feed.xml") + ": the feed has version 2 already\n");
  EXPECT_EQ(publisher.sandbox.read("feed.xml"), before);
}

TEST(MakeFeed, leavesAFeedAloneThatItCannotRead) {
  for (const std::string feed :
       {"", "no feed", "<rss/>", "<rss><channel/></rss>", "<!DOCTYPE rss><rss><channel></channel></rss>",
        "<rss><channel><item></channel></rss>"}) {
    const Publisher publisher;
    publisher.sandbox.write("feed.xml", feed);
    const ProgramEnd end = publisher.add("2.0");
    EXPECT_EQ(end.status, 1) << feed;
    EXPECT_TRUE(end.output.starts_with("make-feed: " + publisher.path("feed.xml") + ": ")) << end.output;
    EXPECT_EQ(publisher.sandbox.read("feed.xml"), feed);
  }
}

TEST(MakeFeed, refusesWhatTheUpdaterWouldRefuse) {
  const Publisher publisher;
  publisher.sandbox.write("long", std::string(300'000, 'x'));
  publisher.sandbox.write("binary", std::string("\x01\x02\xff", 3));
  publisher.sandbox.write("empty", "");
  const std::vector<std::pair<ProgramEnd, std::string>> rows = {
      {publisher.add("v2.0"), "would never be offered"},
      {publisher.add("''"), "would never be offered"},
      {publisher.add("2.0 --url http://updates.invalid/a.deb"), "--url"},
      {publisher.add("2.0 --notes " + publisher.path("long")), "one of its texts is too long"},
      {publisher.add("2.0 --notes " + publisher.path("binary")), "the item does not fit into the feed"},
      {publisher.add("2.0 --notes " + publisher.path("absent")), "No such file"},
      {publisher.add("2.0 --notes " + publisher.path("")), "it is a folder"},
      {makeFeed("add " + publisher.path("feed.xml") + " --private-key " + publisher.path("private") + " --package " +
                publisher.path("empty") + " --url https://updates.invalid/ --version 2.0"),
       "how long it is"},
      {makeFeed("add " + publisher.path("feed.xml") + " --private-key " + publisher.path("private") + " --package " +
                publisher.path("a.deb") + " --url http://updates.invalid/ --version 2.0"),
       "is not an address that starts with https://"},
  };
  for (const auto& [end, reason] : rows) {
    EXPECT_NE(end.status, 0);
    EXPECT_TRUE(contains(end.output, reason)) << reason << " in " << end.output;
  }
  EXPECT_FALSE(publisher.sandbox.holds("feed.xml"));
}

TEST(MakeFeed, explainsItself) {
  EXPECT_EQ(makeFeed("--help").status, 0);
  EXPECT_TRUE(contains(makeFeed("--help").output, "Make a key pair"));
  EXPECT_EQ(makeFeed("").status, 2);
  EXPECT_EQ(makeFeed("add").status, 2);
  EXPECT_EQ(makeFeed("nonsense").status, 2);
}

}  // namespace
}  // namespace tarnwell::host_linux::publish
