#include "updateclient/ItemChooser.h"

#include <gtest/gtest.h>

namespace tarnwell::updateclient {
namespace {

using Origin = UserDriver::Origin;

release::FeedItem itemOf(const std::string& version) {
  release::FeedItem item;
  item.version = version;
  item.enclosure.url = "https://tarnwell.example/" + version + ".deb";
  return item;
}

ItemChooser::Circumstances running(const std::string& version) {
  return {.runningVersion = version, .systemVersion = "6.1.0"};
}

std::string chosenOf(const std::vector<release::FeedItem>& items, const ItemChooser::Circumstances& circumstances) {
  const auto best = ItemChooser(circumstances).best(items);
  return best ? best->version : "none";
}

TEST(ItemChooser, takesTheNewestWhereverItStands) {
  EXPECT_EQ(chosenOf({itemOf("1.1"), itemOf("1.10"), itemOf("1.9")}, running("1.0")), "1.10");
}

TEST(ItemChooser, takesNothingThatIsNotNewer) {
  EXPECT_EQ(chosenOf({}, running("1.0")), "none");
  EXPECT_EQ(chosenOf({itemOf("1.0"), itemOf("1"), itemOf("0.9"), itemOf("1.0b2")}, running("1.0")), "none");
}

TEST(ItemChooser, takesNothingOfAnOddVersion) {
  for (const std::string version : {"", "latest", "-1", "-9", "v9", "..", ".9", "9 9", "9\n", "9,9", "9/9",
                                    "9\xe2\x80\xae", "\xef\xbc\x99", "9<b>"}) {
    EXPECT_EQ(chosenOf({itemOf(version)}, running("1.0")), "none") << version;
    EXPECT_EQ(chosenOf({itemOf(version), itemOf("1.1")}, running("1.0")), "1.1") << version;
  }
  for (const std::string version : {"1.1-beta", "1.0.1b2", "1.0+5", "2~rc1", "2026.11.21"}) {
    EXPECT_EQ(chosenOf({itemOf(version)}, running("1.0")), version);
  }
}

TEST(ItemChooser, takesNoVersionThatCannotBeShown) {
  release::FeedItem item = itemOf("2.0");
  for (const std::string& shown :
       {std::string(101, '2'), std::string("2.0\nInstall this"), std::string("2\x7f"), std::string("2.0 \xe2\x80\xae"),
        std::string("2.0\xe2\x80\xa8x"), std::string("2\xff")}) {
    item.shownVersion = shown;
    EXPECT_EQ(chosenOf({item}, running("1.0")), "none");
    EXPECT_EQ(chosenOf({itemOf(shown)}, running("1.0")), "none");
  }
  item.shownVersion = "2.0 \xc3\xa4rger";
  EXPECT_EQ(chosenOf({item}, running("1.0")), "2.0");
}

TEST(ItemChooser, takesTheFirstOfEqualVersions) {
  release::FeedItem first = itemOf("2.0");
  release::FeedItem second = itemOf("2");
  first.title = "first";
  EXPECT_EQ(ItemChooser(running("1.0")).best({first, second})->title, "first");
}

TEST(ItemChooser, leavesItemsOfOtherSystems) {
  release::FeedItem item = itemOf("2.0");
  for (const std::string system : {"macos", "windows", "Linux", "linux-x64", " linux"}) {
    item.enclosure.system = system;
    EXPECT_EQ(chosenOf({item}, running("1.0")), "none") << system;
  }
  item.enclosure.system = "linux";
  EXPECT_EQ(chosenOf({item}, running("1.0")), "2.0");
}

TEST(ItemChooser, leavesItemsForANewerKernel) {
  release::FeedItem item = itemOf("2.0");
  item.minimumSystemVersion = "6.2";
  EXPECT_EQ(chosenOf({item, itemOf("1.5")}, running("1.0")), "1.5");
  item.minimumSystemVersion = "6.1";
  EXPECT_EQ(chosenOf({item, itemOf("1.5")}, running("1.0")), "2.0");
}

TEST(ItemChooser, comparesTheKernelWithTheMinimumNumberByNumber) {
  struct Row {
    std::string minimum = {};
    std::string kernel = {};
    bool runs = false;
  };
  const std::vector<Row> rows = {
      {"", "6.1.0", true},
      {"6.1.0", "6.1.0", true},
      {"6.1", "6.1.0", true},
      {"6.1.0.0", "6.1", true},
      {"5.10", "6.1.0", true},
      {"6.1.1", "6.1.0", false},
      {"6.10", "6.9", false},
      {"6.9", "6.10", true},
      {"10", "9.99", false},
      {"0", "6.1.0", true},
      {"06.01", "6.1.0", true},
      {"", "", true},
      {"0", "", true},
      {"1", "", false},
      {"5.10", "unknown", false},
      {"99999999999999999999", "6", false},
  };
  for (const auto& [minimum, kernel, runs] : rows) {
    release::FeedItem item = itemOf("2.0");
    item.minimumSystemVersion = minimum;
    const ItemChooser::Circumstances circumstances = {.runningVersion = "1.0", .systemVersion = kernel};
    EXPECT_EQ(chosenOf({item}, circumstances), runs ? "2.0" : "none") << minimum << " on " << kernel;
  }
}

TEST(ItemChooser, leavesItemsWhoseMinimumCannotBeUnderstood) {
  release::FeedItem item = itemOf("2.0");
  for (const std::string minimum : {"v9", "v1", "any", "6.x", "5.10-rc1", "5.10 or later", ">=5", "-1", ".", "..", "5.",
                                    "5..1", "5,1", "\xef\xbc\x95", "\n", "Debian 12"}) {
    item.minimumSystemVersion = minimum;
    EXPECT_EQ(chosenOf({item, itemOf("1.5")}, running("1.0")), "1.5") << minimum;
  }
}

TEST(ItemChooser, leavesChannelsThatWereNotAskedFor) {
  release::FeedItem item = itemOf("2.0");
  item.channel = "beta";
  auto circumstances = running("1.0");
  EXPECT_EQ(chosenOf({item, itemOf("1.5")}, circumstances), "1.5");
  circumstances.channels = {"beta"};
  EXPECT_EQ(chosenOf({item, itemOf("1.5")}, circumstances), "2.0");
  EXPECT_EQ(chosenOf({itemOf("1.5")}, circumstances), "1.5");
}

TEST(ItemChooser, leavesItemsThatLeadNowhere) {
  release::FeedItem empty = itemOf("2.0");
  empty.enclosure.url = "";
  EXPECT_EQ(chosenOf({empty}, running("1.0")), "none");
  empty.isInformational = true;
  for (const std::string link : {"", "file:///etc/passwd", "javascript:alert(1)", "/notes", "https://", "https:///x"}) {
    empty.link = link;
    EXPECT_EQ(chosenOf({empty}, running("1.0")), "none") << link;
  }
  empty.link = "https://tarnwell.example/notes";
  EXPECT_EQ(chosenOf({empty}, running("1.0")), "2.0");
}

TEST(ItemChooser, passesOverASkippedVersionUnlessTheUserAsks) {
  auto circumstances = running("1.0");
  circumstances.skippedVersion = "2.0";
  EXPECT_EQ(chosenOf({itemOf("2.0")}, circumstances), "2.0");
  circumstances.origin = Origin::schedule;
  EXPECT_EQ(chosenOf({itemOf("2.0"), itemOf("1.5")}, circumstances), "none");
  EXPECT_EQ(chosenOf({itemOf("2.0"), itemOf("2.1")}, circumstances), "2.1");
}

TEST(ItemChooser, neverPassesOverACriticalItem) {
  release::FeedItem critical = itemOf("2.0");
  critical.isCritical = true;
  auto circumstances = running("1.0");
  circumstances.origin = Origin::schedule;
  for (const std::string skipped : {"2.0", "3.0"}) {
    circumstances.skippedVersion = skipped;
    EXPECT_EQ(chosenOf({critical, itemOf("1.5")}, circumstances), "2.0");
  }
}

}  // namespace
}  // namespace tarnwell::updateclient
