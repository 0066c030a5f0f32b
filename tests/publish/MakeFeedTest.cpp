#include <gtest/gtest.h>
#include <sys/stat.h>

#include <fstream>
#include <future>
#include <set>

#include "fixtures/EnvironmentScope.h"
#include "fixtures/WaitFor.h"
#include "publish/Publisher.h"
#include "system/files/FileLock.h"
#include "updateclient/ItemChooser.h"
#include "updater/signature/PublicKey.h"

namespace tarnwell::publish {
namespace {

mode_t modeOf(const std::filesystem::path& path) {
  struct stat status = {};
  return ::stat(path.c_str(), &status) == 0 ? status.st_mode & 07777U : 0;
}

/// Whether a process waits for a lock on that file.
bool isWaitedFor(ino_t file) {
  std::ifstream locks("/proc/locks");
  for (std::string line; std::getline(locks, line);) {
    if (contains(line, "-> FLOCK") && contains(line, ":" + std::to_string(file) + " ")) {
      return true;
    }
  }
  return false;
}

TEST(MakeFeed, makesAKeyForItsOwnerAlone) {
  const Publisher publisher;
  EXPECT_EQ(modeOf(publisher.sandbox / "private"), 0600U);
  EXPECT_TRUE(updater::PublicKey::parse(publisher.publicKey));
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

TEST(MakeFeed, leavesNoKeyBehindThatCouldNotBeWritten) {
  const fixtures::Sandbox sandbox;
  const std::string file = (sandbox / "private").string();
  const ProgramEnd end = makeFeed("key " + file, "ulimit -f 0; ");
  EXPECT_EQ(end.status, 1);
  EXPECT_EQ(end.output, "make-feed: cannot write " + file + ": File too large\n");
  EXPECT_FALSE(sandbox.holds("private"));
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
  std::filesystem::create_directory(publisher.sandbox / "private");
  std::filesystem::permissions(publisher.sandbox / "private", std::filesystem::perms(0700));
  EXPECT_TRUE(contains(publisher.add("2.0").output, "is not a private key"));
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
  EXPECT_EQ(items[0].enclosure.length, publisher.sandbox.read("a.deb").size());
  EXPECT_EQ(items[0].releaseSignature.size(), 88U);
  EXPECT_EQ(items[0].enclosure.system, "linux");
  EXPECT_EQ(items[0].enclosure.type, "application/vnd.debian.binary-package");
  EXPECT_EQ(publisher.refusalOf(items[0], "a.deb"), "");
  const updateclient::ItemChooser offers({.runningVersion = "119",
                                          .systemVersion = "5.10",
                                          .channels = {"beta"},
                                          .origin = updateclient::UserDriver::Origin::user});
  EXPECT_TRUE(offers.best(items));
  publisher.offer("120-2");
  EXPECT_EQ(publisher.refusalOf(items[0], "a.deb"), "the signature does not belong to this file and key");
}

TEST(MakeFeed, signsThePackageAsTheItemSays) {
  const Publisher publisher;
  ASSERT_EQ(publisher.add("2.0").status, 0);
  const ProgramEnd end = makeFeed("sign " + publisher.path("private") + " " + publisher.path("a.deb"));
  EXPECT_EQ(end.output, publisher.items().at(0).enclosure.signature + "\n");
}

TEST(MakeFeed, saysWhatItCannotRead) {
  const Publisher publisher;
  const std::string absent = publisher.path("absent");
  const std::string reason = "make-feed: cannot read " + absent + ": No such file or directory\n";
  for (const std::string& arguments : {"public " + absent, "sign " + absent + " " + publisher.path("a.deb"),
                                       "sign " + publisher.path("private") + " " + absent}) {
    const ProgramEnd end = makeFeed(arguments);
    EXPECT_EQ(end.status, 1) << arguments;
    EXPECT_EQ(end.output, reason);
  }
  const ProgramEnd end = makeFeed("sign " + publisher.path("private") + " " + publisher.path(""));
  EXPECT_EQ(end.output, "make-feed: " + publisher.path("") + ": cannot read the file: No such device\n");
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

TEST(MakeFeed, makesTheFoldersOfAFeedWhereItCan) {
  const Publisher publisher;
  const auto addTo = [&publisher](const std::string& feed) {
    return makeFeed("add " + publisher.path(feed) + " --private-key " + publisher.path("private") + " --package " +
                    publisher.path("a.deb") + " --url https://updates.invalid/a.deb --version 2.0");
  };
  EXPECT_EQ(addTo("site/updates/feed.xml").status, 0);
  EXPECT_TRUE(contains(publisher.sandbox.read("site/updates/feed.xml"), "Tarnwell 2.0"));
  for (const std::string folder : {"a.deb", "a.deb/below"}) {
    const ProgramEnd refused = addTo(folder + "/feed.xml");
    EXPECT_EQ(refused.status, 1);
    EXPECT_EQ(refused.output, "make-feed: cannot lock " + publisher.path(folder) + ": Not a directory\n");
  }
}

TEST(MakeFeed, leavesTheRestOfAFeedAsItIs) {
  const Publisher publisher;
  const std::string head =
      "<rss "
      "xmlns:y='http://www.andymatuschak.org/xml-namespaces/sparkle'>\n\t<other><some/><item/></other><channel><!-- "
      "<item> "
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

TEST(MakeFeed, countsOnlyVersionsForLinux) {
  const Publisher publisher;
  publisher.sandbox.write("feed.xml",
                          "<rss xmlns:y='http://www.andymatuschak.org/xml-namespaces/sparkle'><channel><item>"
                          "<y:version>2.0</y:version><enclosure y:os='macos'/></item></channel></rss>");
  EXPECT_EQ(publisher.add("2.0").status, 0);
  EXPECT_EQ(publisher.items().size(), 2U);
  EXPECT_EQ(publisher.add("2.0").status, 1);
}

TEST(MakeFeed, writesThroughALinkToTheFeed) {
  const Publisher publisher;
  std::filesystem::create_directory(publisher.sandbox / "site");
  publisher.sandbox.write("site/real.xml", "<rss><channel></channel></rss>");
  std::filesystem::create_symlink("site/real.xml", publisher.sandbox / "feed.xml");
  ASSERT_EQ(publisher.add("2.0").status, 0);
  EXPECT_TRUE(std::filesystem::is_symlink(publisher.sandbox / "feed.xml"));
  EXPECT_TRUE(contains(publisher.sandbox.read("site/real.xml"), "2.0"));
}

TEST(MakeFeed, leavesAFeedAloneInWhichTheItemWouldSaySomethingElse) {
  const Publisher publisher;
  const std::string feed =
      "<?xml version='1.0' encoding='iso-8859-1'?><rss><channel><title>\xe4</title></channel></rss>";
  publisher.sandbox.write("feed.xml", feed);
  publisher.sandbox.write("notes",
                          "gr\xc3\xb6\xc3\x9f"
                          "er");
  const ProgramEnd end = publisher.add("2.0", "--notes " + publisher.path("notes"));
  EXPECT_EQ(end.status, 1);
  EXPECT_TRUE(contains(end.output, "is the feed written in UTF-8?")) << end.output;
  EXPECT_EQ(publisher.sandbox.read("feed.xml"), feed);
  // What both encodings have in common is no harm.
  EXPECT_EQ(publisher.add("2.0").status, 0);
}

TEST(MakeFeed, takesTurnsWithAnotherPublisher) {
  const Publisher publisher;
  ASSERT_EQ(publisher.add("1.0").status, 0);
  std::future<ProgramEnd> second;
  {
    const auto lock = system::FileLock::takeFolder(publisher.sandbox.path(), {});
    ASSERT_TRUE(lock);
    struct stat folder = {};
    ASSERT_EQ(::stat(publisher.sandbox.path().c_str(), &folder), 0);
    second = std::async(std::launch::async, [&] { return publisher.add("3.0"); });
    ASSERT_TRUE(fixtures::waitFor([&] { return isWaitedFor(folder.st_ino); }));
    // Between the other's reading and its writing, were there no turns.
    std::string text = publisher.sandbox.read("feed.xml");
    text.insert(text.find("<item "), "<item><title>of the first</title></item>");
    publisher.sandbox.write("feed.xml", text);
  }
  const ProgramEnd end = second.get();
  EXPECT_EQ(end.status, 0) << end.output;
  const Items items = publisher.items();
  ASSERT_EQ(items.size(), 3U);
  EXPECT_EQ(items[0].version, "3.0");
  EXPECT_EQ(items[1].title, "of the first");
  EXPECT_EQ(items[2].version, "1.0");
}

TEST(MakeFeed, refusesAPackageThatWasChangedAfterItWasSigned) {
  const Publisher publisher;
  publisher.sandbox.write("a.AppImage",
                          "\x7f"
                          "ELF0123AI\x02 signed");
  std::future<ProgramEnd> end;
  {
    const auto lock = system::FileLock::takeFolder(publisher.sandbox.path(), {});
    ASSERT_TRUE(lock);
    struct stat folder = {};
    ASSERT_EQ(::stat(publisher.sandbox.path().c_str(), &folder), 0);
    end = std::async(std::launch::async,
                     [&] { return publisher.addPackage("a.AppImage", "https://updates.invalid/a.AppImage"); });
    ASSERT_TRUE(fixtures::waitFor([&] { return isWaitedFor(folder.st_ino); }));
    publisher.sandbox.write("a.AppImage",
                            "\x7f"
                            "ELF0123AI\x02 forged");
  }
  EXPECT_TRUE(contains(end.get().output, "cannot be trusted"));
  EXPECT_FALSE(publisher.sandbox.holds("feed.xml"));
}

TEST(MakeFeed, leavesNothingBesideTheFeed) {
  const Publisher publisher;
  ASSERT_EQ(publisher.add("2.0").status, 0);
  std::set<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(publisher.sandbox.path())) {
    names.insert(entry.path().filename());
  }
  EXPECT_EQ(names, (std::set<std::string>{"a.deb", "feed.xml", "private"}));
}

TEST(MakeFeed, explainsItself) {
  EXPECT_EQ(makeFeed("--help").status, 0);
  EXPECT_TRUE(contains(makeFeed("--help").output, "Make a key pair"));
  EXPECT_EQ(makeFeed("").status, 2);
  EXPECT_EQ(makeFeed("add").status, 2);
  EXPECT_EQ(makeFeed("nonsense").status, 2);
}

}  // namespace
}  // namespace tarnwell::publish
