#include "publish/FeedText.h"

#include <expat.h>

#include <algorithm>
#include <memory>
#include <optional>
#include <string_view>
#include <tuple>
#include <type_traits>
#include <utility>
#include <vector>

#include "release/text/Version.h"
#include "updater/feed/FeedNamespace.h"
#include "updater/feed/FeedReader.h"

namespace tarnwell::publish {
namespace {

using release::FeedItem;
using Items = std::vector<FeedItem>;

system::Result<Items> itemsIn(const std::string& feed) {
  updater::FeedReader reader;
  // A refusal comes again at the end.
  reader.feed(feed);
  return reader.finish();
}

/// Where in a feed the first item starts or, without one, its channel ends.
class PlaceFinder {
 public:
  explicit PlaceFinder(const std::string& feed) : parser_(XML_ParserCreateNS(nullptr, '\n')) {
    XML_SetUserData(parser_.get(), this);
    XML_SetElementHandler(parser_.get(), start, end);
    XML_Parse(parser_.get(), feed.data(), static_cast<int>(feed.size()), 1);
  }

  std::optional<std::size_t> place() const { return place_; }

 private:
  struct Free {
    void operator()(XML_Parser parser) const { XML_ParserFree(parser); }
  };

  static void start(void* self, const XML_Char* name, const XML_Char** /*attributes*/) {
    auto& finder = *static_cast<PlaceFinder*>(self);
    ++finder.depth_;
    // The place is found before the channel ends.
    finder.isInChannel_ = finder.isInChannel_ || (std::string_view(name) == "channel" && finder.depth_ == 2);
    finder.takeHere(std::string_view(name) == "item" && finder.depth_ == 3 && finder.isInChannel_);
  }
  static void end(void* self, const XML_Char* name) {
    auto& finder = *static_cast<PlaceFinder*>(self);
    finder.takeHere(std::string_view(name) == "channel" && finder.depth_ == 2);
    --finder.depth_;
  }

  void takeHere(bool isThePlace) {
    if (isThePlace && !place_) {
      place_ = static_cast<std::size_t>(XML_GetCurrentByteIndex(parser_.get()));
    }
  }

  std::unique_ptr<std::remove_pointer_t<XML_Parser>, Free> parser_;
  int depth_ = 0;
  bool isInChannel_ = false;
  std::optional<std::size_t> place_;
};

bool hasVersion(const Items& items, const std::string& version) {
  return std::any_of(items.begin(), items.end(), [&](const FeedItem& item) {
    const std::string& system = item.enclosure.system;
    return (system.empty() || system == "linux") &&
           release::compareVersions(item.version, version) == std::weak_ordering::equivalent;
  });
}

// A feed in another encoding than ours would be read without complaint, as something else.
bool saysTheSame(const FeedItem& read, const FeedItem& meant) {
  const std::string& shownVersion = meant.shownVersion.empty() ? meant.version : meant.shownVersion;
  return std::tie(read.title, read.version, read.shownVersion, read.publicationDate, read.channel,
                  read.minimumSystemVersion, read.isCritical, read.enclosure.url, read.enclosure.length,
                  read.enclosure.signature, read.releaseSignature) ==
             std::tie(meant.title, meant.version, shownVersion, meant.publicationDate, meant.channel,
                      meant.minimumSystemVersion, meant.isCritical, meant.enclosure.url, meant.enclosure.length,
                      meant.enclosure.signature, meant.releaseSignature) &&
         meant.notes.find(read.notes) != std::string::npos;
}

std::string_view escapeOf(char c) {
  switch (c) {
    case '&':
      return "&amp;";
    case '<':
      return "&lt;";
    case '>':
      return "&gt;";
    case '"':
      return "&quot;";
    case '\r':
      return "&#13;";
    default:
      return {};
  }
}

std::string escaped(std::string_view text) {
  std::string xml;
  for (const char c : text) {
    const std::string_view escape = escapeOf(c);
    xml += escape.empty() ? std::string_view(&c, 1) : escape;
  }
  return xml;
}

std::string element(const std::string& name, const std::string& text) {
  return text.empty() ? "" : "      <" + name + ">" + escaped(text) + "</" + name + ">\n";
}

std::string attribute(const std::string& name, const std::string& value) {
  return " " + name + "=\"" + escaped(value) + "\"";
}

// The item declares the namespace itself, so that it does not depend on what the feed declares.
std::string xmlOf(const FeedItem& item) {
  return "<item" + attribute("xmlns:update", std::string(updater::feedExtensions)) +
         attribute("xmlns:tarnwell", std::string(updater::ownExtensions)) + ">\n" + element("title", item.title) +
         element("pubDate", item.publicationDate) + element("update:version", item.version) +
         element("update:shortVersionString", item.shownVersion) + element("update:channel", item.channel) +
         element("update:minimumSystemVersion", item.minimumSystemVersion) +
         (item.isCritical ? "      <update:criticalUpdate/>\n" : "") +
         element("tarnwell:releaseSignature", item.releaseSignature) + element("description", item.notes) +
         "      <enclosure" + attribute("url", item.enclosure.url) +
         attribute("length", std::to_string(item.enclosure.length)) + attribute("type", item.enclosure.type) +
         attribute("update:os", item.enclosure.system) + attribute("update:edSignature", item.enclosure.signature) +
         "/>\n    </item>";
}

}  // namespace

std::string emptyFeed() {
  return "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n"
         "<rss version=\"2.0\">\n"
         "  <channel>\n"
         "    <title>" TARNWELL_NAME
         "</title>\n"
         "  </channel>\n"
         "</rss>\n";
}

system::Result<FeedWithItem> withItem(const std::string& feed, const FeedItem& item) {
  const auto before = itemsIn(feed);
  if (!before) {
    return before.error();
  }
  if (hasVersion(*before, item.version)) {
    return system::Failure{"the feed has version " + item.version + " already"};
  }
  const auto place = PlaceFinder(feed).place();
  std::string text = feed;
  text.insert(place.value_or(text.size()), xmlOf(item) + "\n    ");
  auto after = itemsIn(text);
  if (!after) {
    return system::Failure{"the item does not fit into the feed. " + after.error().message};
  }
  auto& items = *after;
  if (items.size() != before->size() + 1) {
    return system::Failure{"the feed has no place for an item"};
  }
  if (!saysTheSame(items.front(), item)) {
    return system::Failure{"the item would not say there what it is to say; is the feed written in UTF-8?"};
  }
  return FeedWithItem{.text = std::move(text), .item = std::move(items.front())};
}

}  // namespace tarnwell::publish
