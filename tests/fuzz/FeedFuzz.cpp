#include <cstddef>
#include <cstdint>
#include <string_view>
#include <variant>
#include <vector>

#include "fuzz/Require.h"
#include "updateclient/ItemChooser.h"
#include "updater/feed/FeedLimits.h"
#include "updater/feed/FeedReader.h"
#include "updater/package/PackageClaim.h"

namespace tarnwell::fuzz {
namespace {

using release::FeedItem;
using system::Result;
using updateclient::ItemChooser;
using updater::FeedLimits;
using updater::FeedReader;
using updater::PackageClaim;

using Items = std::vector<release::FeedItem>;

Result<Items> read(std::string_view text, std::size_t piece) {
  FeedReader reader;
  for (std::size_t at = 0; at < text.size(); at += piece) {
    reader.feed(text.substr(at, piece));
  }
  return reader.finish();
}

void check(const release::FeedItem& item) {
  for (const auto* text : {&item.title, &item.version, &item.shownVersion, &item.link, &item.channel}) {
    require(text->size() <= FeedLimits::maximumFieldLength);
  }
  require(item.notes.size() <= FeedLimits::maximumNotesLength);
  const auto claim = PackageClaim::create(item);
  if (claim) {
    require(claim->length > 0 && claim->length <= PackageClaim::maximumLength);
  }
}

void run(std::string_view text) {
  const auto whole = read(text, text.size() + 1);
  const auto pieces = read(text, 13);
  require(static_cast<bool>(whole) == static_cast<bool>(pieces));
  if (!whole) {
    return;
  }
  require(whole->size() <= FeedLimits::maximumItems && whole->size() == pieces->size());
  for (const release::FeedItem& item : *whole) {
    check(item);
  }
  const auto best = ItemChooser({.runningVersion = "1.0", .systemVersion = "6.1"}).best(*whole);
  require(!best || !best->version.empty());
}

}  // namespace
}  // namespace tarnwell::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  tarnwell::fuzz::run({reinterpret_cast<const char*>(data), size});
  return 0;
}
