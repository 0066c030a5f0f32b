#include "host/linux/publish/FeedText.h"

#include <expat.h>

#include <algorithm>
#include <memory>
#include <optional>
#include <string_view>
#include <type_traits>
#include <vector>

#include "host/linux/updates/FeedReader.h"
#include "host/linux/updates/Version.h"

namespace tarnwell::host_linux::publish {
namespace {

using updates::FeedItem;
using Items = std::vector<FeedItem>;

Result<Items> itemsIn(const std::string& feed) {
  updates::FeedReader reader;
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
    finder.takeHere(std::string_view(name) == "item" && finder.depth_ == 3);
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
  std::optional<std::size_t> place_;
};

bool hasVersion(const Items& items, const std::string& version) {
  return std::any_of(items.begin(), items.end(), [&](const FeedItem& item) {
    return updates::compareVersions(item.version, version) == std::weak_ordering::equivalent;
  });
}

}  // namespace

std::string emptyFeed() {
  return "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n"
         "<rss version=\"2.0\">\n"
         "  <channel>\n"
         "    <title>Tarnwell</title>\n"
         "  </channel>\n"
         "</rss>\n";
}

Result<std::string> withItem(const std::string& feed, const NewItem& item) {
  const auto before = itemsIn(feed);
  if (const auto* failure = std::get_if<Failure>(&before)) {
    return *failure;
  }
  if (hasVersion(std::get<Items>(before), item.version)) {
    return Failure{"the feed has version " + item.version + " already"};
  }
  const auto place = PlaceFinder(feed).place();
  std::string text = feed;
  text.insert(place.value_or(text.size()), item.xml() + "\n    ");
  const auto after = itemsIn(text);
  if (const auto* failure = std::get_if<Failure>(&after)) {
    return Failure{"the item does not fit into the feed. " + failure->message};
  }
  if (std::get<Items>(after).size() != std::get<Items>(before).size() + 1) {
    return Failure{"the feed has no place for an item"};
  }
  return text;
}

}  // namespace tarnwell::host_linux::publish
