#include "release/protocol/ItemMessages.h"

#include <gtest/gtest.h>

namespace tarnwell::release {
namespace {

std::vector<Message> messagesOf(const FeedItem& item) {
  std::vector<Message> messages;
  sayItem(item, [&messages](const Message& message) { messages.push_back(message); });
  return messages;
}

FeedItem fullItem() {
  return {.title = "Tarnwell 2",
          .version = "2.0",
          .shownVersion = "2",
          .link = "https://updates.invalid/2",
          .notes = "<b>new</b>\nand more",
          .releaseNotesLink = "https://updates.invalid/notes",
          .minimumSystemVersion = "6.1",
          .channel = "beta",
          .isCritical = true,
          .isInformational = true,
          .enclosure = {.url = "https://updates.invalid/p",
                        .length = 1234567890123,
                        .signature = "c2ln",
                        .system = "linux"},
          .releaseSignature = "cmVs",
          .objection = "The update cannot be trusted."};
}

TEST(ItemMessages, carryEveryFieldThatCounts) {
  ItemReader reader;
  for (const FeedItem& item : {fullItem(), FeedItem(), fullItem()}) {
    for (const Message& message : messagesOf(item)) {
      EXPECT_TRUE(reader.take(message)) << message.word;
    }
  }
  const auto items = reader.takeItems();
  ASSERT_EQ(items.size(), 3U);
  for (const std::size_t index : {0U, 2U}) {
    const FeedItem& item = items.at(index);
    const FeedItem meant = fullItem();
    EXPECT_EQ(item.title, meant.title);
    EXPECT_EQ(item.version, meant.version);
    EXPECT_EQ(item.shownVersion, meant.shownVersion);
    EXPECT_EQ(item.link, meant.link);
    EXPECT_EQ(item.notes, meant.notes);
    EXPECT_EQ(item.releaseNotesLink, meant.releaseNotesLink);
    EXPECT_EQ(item.minimumSystemVersion, meant.minimumSystemVersion);
    EXPECT_EQ(item.channel, meant.channel);
    EXPECT_TRUE(item.isCritical);
    EXPECT_TRUE(item.isInformational);
    EXPECT_EQ(item.enclosure.url, meant.enclosure.url);
    EXPECT_EQ(item.enclosure.length, meant.enclosure.length);
    EXPECT_EQ(item.enclosure.signature, meant.enclosure.signature);
    EXPECT_EQ(item.enclosure.system, meant.enclosure.system);
    EXPECT_EQ(item.releaseSignature, meant.releaseSignature);
    EXPECT_EQ(item.objection, meant.objection);
  }
  EXPECT_TRUE(messagesOf(items.at(1)).size() == 1 && items.at(1).version.empty());
}

TEST(ItemMessages, areOfAsManyItemsAsAFeedMayHold) {
  ItemReader reader;
  for (std::size_t item = 0; item < ItemReader::maximumItems; ++item) {
    ASSERT_TRUE(reader.take({"item", ""}));
  }
  EXPECT_FALSE(reader.take({"item", ""}));
}

TEST(ItemMessages, thatMakeNoSenseAreRefused) {
  EXPECT_FALSE(ItemReader().take({"version", "2.0"}));
  for (const Message& message :
       {Message{"length", "12x"}, Message{"length", "-1"}, Message{"length", "99999999999999999999"},
        Message{"critical", "no"}, Message{"paragraph", "body 0 0"}, Message{"", ""}}) {
    ItemReader reader;
    EXPECT_TRUE(reader.take({"item", ""}));
    EXPECT_FALSE(reader.take(message)) << message.word << " " << message.text;
  }
  ItemReader twice;
  EXPECT_TRUE(twice.take({"item", ""}));
  EXPECT_TRUE(twice.take({"version", "2.0"}));
  EXPECT_FALSE(twice.take({"version", "3.0"}));
}

}  // namespace
}  // namespace tarnwell::release
