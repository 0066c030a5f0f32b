#include "host/linux/updates/ItemChooser.h"

#include <gtest/gtest.h>

namespace tarnwell::host_linux::updates {
namespace {

using Origin = UserDriver::Origin;

FeedItem itemOf(const std::string& version) {
  FeedItem item;
  item.version = version;
  item.enclosure.url = "https://tarnwell.example/" + version + ".deb";
  return item;
}

ItemChooser::Circumstances running(const std::string& version) {
  return {.runningVersion = version, .systemVersion = "6.1.0"};
}

std::string chosenOf(const std::vector<FeedItem>& items, const ItemChooser::Circumstances& circumstances) {
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
  EXPECT_EQ(chosenOf({itemOf(""), itemOf("latest"), itemOf("-1"), itemOf("v9"), itemOf("..")}, running("1.0")), "none");
}

TEST(ItemChooser, takesNoVersionThatCannotBeShown) {
  FeedItem item = itemOf("2.0");
  for (const std::string& shown : {std::string(101, '2'), std::string("2.0\nInstall this"), std::string("2\x7f")}) {
    item.shownVersion = shown;
    EXPECT_EQ(chosenOf({item}, running("1.0")), "none");
    EXPECT_EQ(chosenOf({itemOf(shown)}, running("1.0")), "none");
  }
  item.shownVersion = "2.0 \xc3\xa4rger";
  EXPECT_EQ(chosenOf({item}, running("1.0")), "2.0");
}

TEST(ItemChooser, takesTheFirstOfEqualVersions) {
  FeedItem first = itemOf("2.0");
  FeedItem second = itemOf("2");
  first.title = "first";
  EXPECT_EQ(ItemChooser(running("1.0")).best({first, second})->title, "first");
}

TEST(ItemChooser, leavesItemsOfOtherSystems) {
  FeedItem item = itemOf("2.0");
  for (const std::string system : {"macos", "windows", "Linux", "linux-x64", " linux"}) {
    item.enclosure.system = system;
    EXPECT_EQ(chosenOf({item}, running("1.0")), "none") << system;
  }
  item.enclosure.system = "linux";
  EXPECT_EQ(chosenOf({item}, running("1.0")), "2.0");
}

TEST(ItemChooser, leavesItemsForANewerKernel) {
  FeedItem item = itemOf("2.0");
  item.minimumSystemVersion = "6.2";
  EXPECT_EQ(chosenOf({item, itemOf("1.5")}, running("1.0")), "1.5");
  item.minimumSystemVersion = "6.1";
  EXPECT_EQ(chosenOf({item, itemOf("1.5")}, running("1.0")), "2.0");
}

TEST(ItemChooser, leavesChannelsThatWereNotAskedFor) {
  FeedItem item = itemOf("2.0");
  item.channel = "beta";
  auto circumstances = running("1.0");
  EXPECT_EQ(chosenOf({item, itemOf("1.5")}, circumstances), "1.5");
  circumstances.channels = {"beta"};
  EXPECT_EQ(chosenOf({item, itemOf("1.5")}, circumstances), "2.0");
  EXPECT_EQ(chosenOf({itemOf("1.5")}, circumstances), "1.5");
}

TEST(ItemChooser, leavesItemsThatLeadNowhere) {
  FeedItem empty = itemOf("2.0");
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
  FeedItem critical = itemOf("2.0");
  critical.isCritical = true;
  auto circumstances = running("1.0");
  circumstances.origin = Origin::schedule;
  for (const std::string skipped : {"2.0", "3.0"}) {
    circumstances.skippedVersion = skipped;
    EXPECT_EQ(chosenOf({critical, itemOf("1.5")}, circumstances), "2.0");
  }
}

}  // namespace
}  // namespace tarnwell::host_linux::updates
