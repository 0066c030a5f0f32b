#include "updater/feed/FeedReader.h"

#include <gtest/gtest.h>

#include "updater/feed/FeedHandler.h"
#include "updater/feed/FeedLimits.h"
#include "updater/feed/FeedNamespace.h"
#include "updater/feed/FeedText.h"

namespace tarnwell::updater {
namespace {

using Items = std::vector<release::FeedItem>;

system::Result<Items> read(const std::string& text) {
  FeedReader reader;
  if (const auto fed = reader.feed(text); !fed) {
    return fed.error();
  }
  return reader.finish();
}

Items itemsOf(const std::string& text) {
  const auto result = read(text);
  if (!result) {
    ADD_FAILURE() << result.error().message;
    return {};
  }
  return *result;
}

release::FeedItem onlyItemOf(const std::string& content) {
  const Items items = itemsOf(feedOf("<item>" + content + "</item>"));
  EXPECT_EQ(items.size(), 1U);
  return items.empty() ? release::FeedItem() : items.front();
}

std::string refusalOfFeed(const std::string& text) {
  const auto result = read(text);
  return result ? "" : result.error().message;
}

std::string repeated(const std::string& text, std::size_t times) {
  std::string all;
  while (times-- > 0) {
    all += text;
  }
  return all;
}

TEST(FeedReader, readsEveryFieldOfAnItem) {
  const release::FeedItem item = onlyItemOf(
      "<title>Version 1.2</title><link>https://tarnwell.example/1.2</link>"
      "<pubDate>Sat, 21 Nov 2026 10:00:00 +0000</pubDate><description><![CDATA[<b>Faster</b> & smaller]]></description>"
      "<x:version>120</x:version><x:shortVersionString>1.2</x:shortVersionString>"
      "<x:releaseNotesLink>https://tarnwell.example/notes</x:releaseNotesLink>"
      "<x:minimumSystemVersion>5.10</x:minimumSystemVersion><x:channel>beta</x:channel>"
      "<enclosure url='https://tarnwell.example/a.deb?x=1&amp;y=2' length='1234' type='application/octet-stream'"
      " x:edSignature='c2ln' x:os='linux'/>");
  EXPECT_EQ(item.title, "Version 1.2");
  EXPECT_EQ(item.link, "https://tarnwell.example/1.2");
  EXPECT_EQ(item.publicationDate, "Sat, 21 Nov 2026 10:00:00 +0000");
  EXPECT_EQ(item.notes, "<b>Faster</b> & smaller");
  EXPECT_EQ(item.version, "120");
  EXPECT_EQ(item.shownVersion, "1.2");
  EXPECT_EQ(item.releaseNotesLink, "https://tarnwell.example/notes");
  EXPECT_EQ(item.minimumSystemVersion, "5.10");
  EXPECT_EQ(item.channel, "beta");
  EXPECT_FALSE(item.isCritical);
  EXPECT_FALSE(item.isInformational);
  EXPECT_EQ(item.enclosure.url, "https://tarnwell.example/a.deb?x=1&y=2");
  EXPECT_EQ(item.enclosure.length, 1234U);
  EXPECT_EQ(item.enclosure.type, "application/octet-stream");
  EXPECT_EQ(item.enclosure.signature, "c2ln");
  EXPECT_EQ(item.enclosure.system, "linux");
}

TEST(FeedReader, makesOnePlainLineOfATitle) {
  EXPECT_EQ(onlyItemOf("<title> Version\n 2.0&#13;&#10;&#x9;now \xe2\x80\xae&#x2066;!</title>").title,
            "Version 2.0 now !");
  EXPECT_EQ(onlyItemOf("<title>" + std::string(4000, 't') + "</title>").title,
            std::string(FeedLimits::maximumTitleLength, 't') + "…");
  EXPECT_EQ(onlyItemOf("<title>&#x200b;</title>").title, "");
}

TEST(FeedReader, findsNothingInAFieldOfBlanks) {
  for (const std::string blanks : {"", " \t\r\n"}) {
    EXPECT_EQ(onlyItemOf("<x:version>" + blanks + "</x:version>").version, "");
  }
}

TEST(FeedReader, knowsExtensionsByTheirNamespaceAlone) {
  const std::string itemOfAnyPrefix =
      "<rss><channel><item xmlns:any='http://www.andymatuschak.org/xml-namespaces/sparkle' xmlns:x='urn:other'>"
      "<any:version>2</any:version><x:version>3</x:version><version>4</version><x:title>No</x:title>"
      "<any:title>No</any:title><enclosure any:edSignature='a' x:edSignature='b' edSignature='c'/>"
      "</item></channel></rss>";
  const Items items = itemsOf(itemOfAnyPrefix);
  ASSERT_EQ(items.size(), 1U);
  EXPECT_EQ(items[0].version, "2");
  EXPECT_EQ(items[0].title, "");
  EXPECT_EQ(items[0].enclosure.signature, "a");
}

TEST(FeedReader, takesNothingOverFromTheItemBefore) {
  const Items items =
      itemsOf(feedOf("<item><title>One</title><x:version>1</x:version><x:criticalUpdate/><x:informationalUpdate/>"
                     "<x:channel>beta</x:channel><enclosure url='u' length='5' x:edSignature='s' x:os='macos'/></item>"
                     "<item/><item><enclosure url='v'/></item>"));
  ASSERT_EQ(items.size(), 3U);
  EXPECT_TRUE(items[0].isCritical);
  EXPECT_TRUE(items[0].isInformational);
  for (const release::FeedItem& item : {items[1], items[2]}) {
    EXPECT_EQ(item.title + item.version + item.shownVersion + item.channel, "");
    EXPECT_FALSE(item.isCritical || item.isInformational);
    EXPECT_EQ(item.enclosure.length, 0U);
    EXPECT_EQ(item.enclosure.signature + item.enclosure.system, "");
  }
  EXPECT_EQ(items[2].enclosure.url, "v");
}

TEST(FeedReader, findsTheVersionOnTheEnclosureOfOlderFeeds) {
  const release::FeedItem older = onlyItemOf("<enclosure url='u' x:version='120' x:shortVersionString='1.2'/>");
  EXPECT_EQ(older.version, "120");
  EXPECT_EQ(older.shownVersion, "1.2");
  const release::FeedItem both = onlyItemOf("<enclosure url='u' x:version='1'/><x:version>2</x:version>");
  EXPECT_EQ(both.version, "2");
  EXPECT_EQ(both.shownVersion, "2");
}

TEST(FeedReader, neverMixesTwoEnclosures) {
  const release::FeedItem item =
      onlyItemOf("<enclosure url='first' length='1'/><enclosure url='second' x:edSignature='s'/>");
  EXPECT_EQ(item.enclosure.url, "first");
  EXPECT_EQ(item.enclosure.signature, "");
}

TEST(FeedReader, seesFieldsOnlyWhereTheyBelong) {
  const release::FeedItem item = onlyItemOf(
      "<x:deltas><enclosure url='delta' x:edSignature='s'/><x:version>9</x:version></x:deltas>"
      "<description>a <p>b <title>c</title></p></description><item><x:version>8</x:version></item>");
  EXPECT_EQ(item.enclosure.url, "");
  EXPECT_EQ(item.version, "");
  EXPECT_EQ(item.title, "");
  EXPECT_EQ(item.notes, "a b c");
  EXPECT_TRUE(itemsOf("<rss><item/><channel><title>T</title></channel></rss>").empty());
}

TEST(FeedReader, seesItemsInTheFeedsOwnChannelAlone) {
  const std::string item = "<item><title>one</title></item>";
  EXPECT_EQ(refusalOfFeed("<rss><other>" + item + "</other></rss>"),
            "The update feed cannot be used: it has no channel.");
  EXPECT_TRUE(itemsOf("<rss><channel><channel>" + item + "</channel></channel></rss>").empty());
  EXPECT_TRUE(itemsOf("<rss><channel/><other>" + item + "</other></rss>").empty());
  EXPECT_TRUE(itemsOf("<rss><channel/><x><channel>" + item + "</channel></x></rss>").empty());
}

TEST(FeedHandler, takesNothingBehindItsRefusal) {
  FeedHandler handler;
  EXPECT_TRUE(handler.start("rss", {}));
  EXPECT_TRUE(handler.start("channel", {}));
  EXPECT_FALSE(handler.refuse("no"));
  EXPECT_FALSE(handler.start("item", {}));
  EXPECT_FALSE(handler.text("text"));
  EXPECT_FALSE(handler.end());
  EXPECT_FALSE(handler.refuse("nor that"));
  EXPECT_EQ(handler.refusal(), "no");
}

TEST(FeedReader, readsWhatVouchesForAVersionInOurOwnNamespaceAlone) {
  const std::string element = "releaseSignature>c2ln</";
  const auto signatureIn = [&](const std::string& prefix) {
    const std::string feed = R"(<rss xmlns:o="urn:tarnwell:updates" xmlns:x=")" + std::string(feedExtensions) +
                             R"("><channel><item><)" + prefix + element + prefix +
                             "releaseSignature></item></channel></rss>";
    return itemsOf(feed).at(0).releaseSignature;
  };
  EXPECT_EQ(signatureIn("o:"), "c2ln");
  EXPECT_EQ(signatureIn("x:"), "");
  EXPECT_EQ(signatureIn(""), "");
}

TEST(FeedReader, countsNoLengthThatIsNotOne) {
  for (const std::string length : {"", "-1", "+5", " 5", "5 ", "0x10", "1e3", "18446744073709551616", "12KB"}) {
    EXPECT_EQ(onlyItemOf("<enclosure length='" + length + "'/>").enclosure.length, 0U) << length;
  }
  EXPECT_EQ(onlyItemOf("<enclosure length='18446744073709551615'/>").enclosure.length, 18446744073709551615U);
}

TEST(FeedReader, readsTheSameInPiecesOfAnySize) {
  const std::string text = feedOf("<item><title>\xc3\x84pfel &amp; &#x42;irnen</title></item>" +
                                  repeated("<item><x:version>1.0</x:version></item>", 900));
  for (const std::size_t size : {std::size_t{1}, std::size_t{7}, std::size_t{16384}, text.size()}) {
    FeedReader reader;
    for (std::size_t at = 0; at < text.size(); at += size) {
      ASSERT_TRUE(reader.feed(std::string_view(text).substr(at, size)));
    }
    const auto items = reader.finish();
    ASSERT_EQ(items->size(), 901U);
    EXPECT_EQ(items->front().title, "\xc3\x84pfel & Birnen");
  }
}

TEST(FeedReader, givesUtf8WhateverTheFeedIsWrittenIn) {
  const Items items = itemsOf(
      "<?xml version='1.0' encoding='iso-8859-1'?><rss><channel><item><title>\xe4</title></item></channel></rss>");
  ASSERT_EQ(items.size(), 1U);
  EXPECT_EQ(items[0].title, "\xc3\xa4");
  EXPECT_NE(refusalOfFeed(feedOf("<item><title>\xe4</title></item>")), "");
  EXPECT_NE(refusalOfFeed("<?xml version='1.0' encoding='ebcdic'?><rss><channel/></rss>"), "");
}

TEST(FeedReader, saysWhatIsWrongWithAFeed) {
  const std::vector<std::pair<std::string, std::string>> rows = {
      {"", "line 1: no element found"},
      {"no feed", "line 1: syntax error"},
      {"<html><body/></html>", "it is not a feed"},
      {"<x:rss xmlns:x='urn:x'><channel/></x:rss>", "it is not a feed"},
      {"<rss/>", "it has no channel"},
      {"<rss><channel>\n<item></channel></rss>", "line 2: mismatched tag"},
      {"<rss><channel/></rss><rss/>", "line 1: junk after document element"},
      {"<rss><channel><item>", "line 1: no element found"},
      {"<rss><channel><item a='1' a='2'/></channel></rss>", "line 1: duplicate attribute"},
      {"<rss><channel>&unknown;</channel></rss>", "line 1: undefined entity"},
      {"<!DOCTYPE rss><rss><channel/></rss>", "it declares a document type"},
      {"<!DOCTYPE rss SYSTEM 'file:///etc/passwd'><rss><channel/></rss>", "it declares a document type"},
  };
  for (const auto& [text, reason] : rows) {
    EXPECT_EQ(refusalOfFeed(text), "The update feed cannot be used: " + reason + ".") << text;
  }
}

TEST(FeedReader, staysWithItsFirstRefusal) {
  FeedReader reader;
  reader.feed("<html>" + std::string(20'000, ' '));
  const auto again = reader.feed(feedOf("<item/>"));
  ASSERT_FALSE(again);
  EXPECT_EQ(again.error().message, "The update feed cannot be used: it is not a feed.");
  EXPECT_EQ(reader.finish().error().message, again.error().message);
}

TEST(FeedReader, takesAsMuchAsItsLimitsSay) {
  EXPECT_EQ(itemsOf(feedOf(repeated("<item/>", FeedLimits::maximumItems))).size(), FeedLimits::maximumItems);
  const std::string notes(FeedLimits::maximumNotesLength, 'n');
  EXPECT_EQ(onlyItemOf("<description>" + notes + "</description>").notes, notes);
  const std::string field(FeedLimits::maximumFieldLength, 'f');
  EXPECT_EQ(onlyItemOf("<link>" + field + "</link>").link, field);
  const std::string title(FeedLimits::maximumTitleLength, 't');
  EXPECT_EQ(onlyItemOf("<title>" + title + "</title>").title, title);
  const std::string url(FeedLimits::maximumAttributeLength, 'u');
  EXPECT_EQ(onlyItemOf("<enclosure url='" + url + "'/>").enclosure.url, url);
  const std::size_t within = FeedLimits::maximumDepth - 2;
  EXPECT_TRUE(itemsOf(feedOf(repeated("<a>", within) + repeated("</a>", within))).empty());
}

TEST(FeedReader, takesNotAByteMore) {
  const auto more = [](std::size_t length) { return std::string(length + 1, 'm'); };
  const std::size_t within = FeedLimits::maximumDepth - 1;
  std::string attributes;
  for (std::size_t number = 0; number <= FeedLimits::maximumAttributes; ++number) {
    attributes += " a" + std::to_string(number) + "=''";
  }
  const std::vector<std::pair<std::string, std::string>> rows = {
      {repeated("<item/>", FeedLimits::maximumItems + 1), "it has more than 1000 items"},
      {"<item><description>" + more(FeedLimits::maximumNotesLength) + "</description></item>",
       "one of its texts is too long"},
      {"<item><title>" + more(FeedLimits::maximumFieldLength) + "</title></item>", "one of its texts is too long"},
      {"<item a='" + more(FeedLimits::maximumAttributeLength) + "'/>", "one of its attributes is too long"},
      {"<item" + attributes + "/>", "one of its elements has too many attributes"},
      {repeated("<a>", within) + repeated("</a>", within), "its elements are nested too deep"},
      {std::string(FeedLimits::maximumLength, ' '), "it is larger than 1024 KiB"},
  };
  for (const auto& [content, reason] : rows) {
    EXPECT_EQ(refusalOfFeed(feedOf(content)), "The update feed cannot be used: " + reason + ".");
  }
}

}  // namespace
}  // namespace tarnwell::updater
