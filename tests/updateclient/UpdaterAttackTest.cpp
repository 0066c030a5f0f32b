#include <gtest/gtest.h>

#include "fixtures/EnvironmentScope.h"
#include "updateclient/UpdaterStage.h"
#include "updater/package/PackageClaim.h"
#include "updater/package/RealPackage.h"

namespace tarnwell::updateclient {
namespace {

std::string itemWith(const std::string& enclosure) {
  return feedOf("<item><x:version>2.0</x:version>" + enclosure + "</item>");
}

/// What the user is told of a feed whose item is refused before anything is downloaded.
std::string refusalOf(UpdaterStage& stage, const std::string& feed) {
  stage.launch();
  stage.ask(feed);
  EXPECT_EQ(stage.engine.addresses.size(), 1U);
  const std::string told = stage.driver.screen;
  return told;
}

/// What the user is told when the package behind an item turns out to be `content`.
std::string refusalOf(UpdaterStage& stage, const std::string& feed, const std::string& content) {
  stage.launch();
  stage.ask(feed);
  EXPECT_EQ(stage.driver.screen, "found 2.0 as asked");
  stage.driver.choose(Choice::install);
  stage.engine.answer(content);
  EXPECT_EQ(stage.desktop.calls, 0);
  EXPECT_TRUE(stage.holdsNoPackage());
  return stage.driver.screen;
}

constexpr const char* thrownAway = "failure: The downloaded update was thrown away, because it cannot be trusted: ";

TEST(UpdaterAttack, anUpdateWithoutAProperSignatureIsNotEvenDownloaded) {
  const std::vector<std::pair<std::string, std::string>> rows = {
      {"<enclosure url='https://updates.invalid/p' length='14'/>", "the signature is missing"},
      {"<enclosure url='https://updates.invalid/p' length='14' edSignature='AAAA'/>", "the signature is missing"},
      {UpdaterStage().enclosure("", 14), "the signature is missing"},
      {UpdaterStage().enclosure("c2hvcnQ=", 14), "the signature is not 64 bytes in base64"},
      {UpdaterStage().enclosure(std::string(88, 'A'), 14), "the signature is not 64 bytes in base64"},
      {UpdaterStage().enclosure(std::string(85, 'A') + "/==", 14), "the signature is not 64 bytes in base64"},
      {UpdaterStage().enclosure(std::string(85, '/') + "w==", 14), "the signature is not in its canonical form"},
  };
  for (const auto& [enclosure, reason] : rows) {
    UpdaterStage stage;
    EXPECT_EQ(refusalOf(stage, itemWith(enclosure)), "failure: The update cannot be trusted: " + reason + ".");
  }
}

TEST(UpdaterAttack, aSignatureOfAnotherItemIsNoSignature) {
  UpdaterStage stage;
  const std::string feed = feedOf("<item><x:version>1.5</x:version>" + stage.enclosure("package of 1.5") +
                                  "</item><item><x:version>2.0</x:version>"
                                  "<enclosure url='https://updates.invalid/p' length='14'/></item>");
  EXPECT_EQ(refusalOf(stage, feed), "failure: The update cannot be trusted: the signature is missing.");
  UpdaterStage other;
  EXPECT_EQ(refusalOf(other, itemWith(other.enclosure(other.key.signatureOf("package of 1.5"), 14)), "package of 2.0"),
            thrownAway + std::string("the signature does not belong to this file and key."));
}

TEST(UpdaterAttack, anotherFileOfTheRightLengthIsThrownAway) {
  UpdaterStage stage;
  EXPECT_EQ(refusalOf(stage, stage.feed("2.0"), "malware of 2.0"),
            thrownAway + std::string("the signature does not belong to this file and key."));
}

TEST(UpdaterAttack, aSignatureByAnotherKeyIsThrownAway) {
  UpdaterStage stage;
  const std::string signature = SigningKey(2).signatureOf("package of 2.0");
  EXPECT_EQ(refusalOf(stage, itemWith(stage.enclosure(signature, 14)), "package of 2.0"),
            thrownAway + std::string("the signature does not belong to this file and key."));
}

TEST(UpdaterAttack, aFlippedBitInThePackageIsSeen) {
  const std::string package = UpdaterStage().package("2.0");
  for (std::size_t bit = 0; bit < package.size() * 8; bit += 9) {
    UpdaterStage stage;
    std::string changed = package;
    changed[bit / 8] = static_cast<char>(changed[bit / 8] ^ (1 << (bit % 8)));
    ASSERT_TRUE(refusalOf(stage, stage.feed("2.0"), changed).starts_with(thrownAway)) << bit;
  }
}

TEST(UpdaterAttack, aLengthThatLiesEitherWayIsSeen) {
  UpdaterStage stage;
  const std::string signature = stage.key.signatureOf("package of 2.0");
  EXPECT_EQ(refusalOf(stage, itemWith(stage.enclosure(signature, 15)), "package of 2.0"),
            thrownAway + std::string("it is shorter than the feed says."));
  UpdaterStage longer;
  EXPECT_EQ(refusalOf(longer, itemWith(longer.enclosure(signature, 13)), "package of 2.0"),
            thrownAway + std::string("it is longer than the feed says."));
}

TEST(UpdaterAttack, anAbsurdLengthIsNotEvenDownloaded) {
  const std::string signature = SigningKey().signatureOf("");
  for (const std::size_t length : {std::size_t{updater::PackageClaim::maximumLength} + 1, SIZE_MAX}) {
    UpdaterStage stage;
    EXPECT_EQ(refusalOf(stage, itemWith(stage.enclosure(signature, length))),
              "failure: The update cannot be trusted: it is larger than 512 MiB.");
  }
  UpdaterStage stage;
  EXPECT_EQ(refusalOf(stage, itemWith(stage.enclosure(signature, 0))),
            "failure: The update cannot be trusted: the feed does not say how long it is.");
}

TEST(UpdaterAttack, anOlderSignedItemIsNoUpdate) {
  UpdaterStage stage;
  stage.launch();
  for (const std::string version : {"0.9", "1.0", "1", "1.0.0", "1.0b9", "v2.0", "-1", "", "two", "\xef\xbc\x92.0"}) {
    stage.ask(feedOf(stage.item(version)));
    EXPECT_EQ(stage.driver.screen, "up to date 1.0") << version;
    stage.driver.acknowledge();
  }
}

// It is ours and its signature holds, but it is not what the feed says.
TEST(UpdaterAttack, anOldPackageUnderANewVersionIsThrownAway) {
  const std::string old = updater::realPackage("1.1");
  UpdaterStage stage;
  EXPECT_EQ(refusalOf(stage, itemWith(stage.enclosure(old)), old),
            thrownAway + std::string("it is version 1.1, although it was offered as 2.0."));
}

TEST(UpdaterAttack, aPackageOfTheVersionThatWasOfferedIsTaken) {
  for (const char* version : {"2.0", "2.0-3"}) {
    const std::string package = updater::realPackage(version);
    UpdaterStage stage;
    EXPECT_EQ(refusalOf(stage, itemWith(stage.enclosure(package)), package), "ready 2.0 as asked");
  }
}

TEST(UpdaterAttack, aPackageThatCannotBeInspectedIsThrownAway) {
  const std::string package = updater::realPackage("2.0");
  const fixtures::EnvironmentScope path("PATH", "/nowhere");
  UpdaterStage stage;
  const std::string told = refusalOf(stage, itemWith(stage.enclosure(package)), package);
  EXPECT_NE(told.find("this system has no dpkg-deb"), std::string::npos) << told;
}

TEST(UpdaterAttack, aVersionOfAnyLengthIsRefusedByTheFeed) {
  UpdaterStage stage;
  stage.launch();
  stage.ask(feedOf(stage.item(std::string(100'000, '9'))));
  EXPECT_EQ(stage.driver.screen, "failure: The update feed cannot be used: one of its texts is too long.");
}

TEST(UpdaterAttack, anItemOnlyToBeReadOpensNothingButPagesOfTheWeb) {
  UpdaterStage stage;
  stage.launch();
  for (const std::string link : {"file:///bin/sh", "javascript:alert(1)", "ssh://host", "", "mailto:a@b"}) {
    stage.ask(feedOf("<item><x:version>2.0</x:version><x:informationalUpdate/><link>" + link + "</link></item>"));
    EXPECT_EQ(stage.driver.screen, "up to date 1.0") << link;
    stage.driver.acknowledge();
  }
  EXPECT_TRUE(stage.driver.openedPages.empty());
}

}  // namespace
}  // namespace tarnwell::updateclient
