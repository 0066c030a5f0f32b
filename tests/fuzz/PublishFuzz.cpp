#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

#include "fuzz/Require.h"
#include "publish/FeedText.h"
#include "updater/feed/FeedReader.h"

namespace tarnwell::fuzz {
namespace {

using release::FeedItem;

std::vector<FeedItem> itemsIn(const std::string& feed) {
  updater::FeedReader reader;
  reader.feed(feed);
  auto items = reader.finish();
  require(static_cast<bool>(items));
  return *std::move(items);
}

bool isSame(const FeedItem& one, const FeedItem& other) {
  const auto parts = [](const FeedItem& item) {
    return std::tie(item.title, item.version, item.notes, item.link, item.channel, item.minimumSystemVersion,
                    item.isCritical, item.enclosure.url, item.enclosure.length, item.enclosure.signature,
                    item.enclosure.system, item.releaseSignature);
  };
  return parts(one) == parts(other);
}

FeedItem newItem() {
  return {.title = "Example & <more> 9.0",
          .version = "9.0",
          .publicationDate = "Sun, 22 Nov 2026 10:00:00 +0000",
          .notes = "New: \"nothing\" & <b>more</b>",
          .channel = "beta",
          .isCritical = true,
          .enclosure = {.url = "https://updates.test/a?b&c",
                        .length = 7,
                        .type = "application/octet-stream",
                        .signature = "c2ln",
                        .system = "linux"},
          .releaseSignature = "c2ln"};
}

/// The text is the feed that is there. It is refused, or has one more item and is otherwise as it was, to the byte.
void run(std::string_view text) {
  const std::string feed(text);
  const FeedItem item = newItem();
  const auto longer = publish::withItem(feed, item);
  if (!longer) {
    require(!longer.error().message.empty());
    return;
  }
  const auto same = std::mismatch(feed.begin(), feed.end(), longer->text.begin(), longer->text.end()).first;
  require(longer->text.ends_with(std::string(same, feed.end())));

  const auto before = itemsIn(feed);
  const auto after = itemsIn(longer->text);
  require(after.size() == before.size() + 1 && isSame(after.front(), longer->item));
  require(std::equal(before.begin(), before.end(), after.begin() + 1, isSame));
  require(longer->item.enclosure.url == item.enclosure.url && longer->item.title == item.title);
  require(!publish::withItem(longer->text, item));
}

}  // namespace
}  // namespace tarnwell::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  tarnwell::fuzz::run({reinterpret_cast<const char*>(data), size});
  return 0;
}
