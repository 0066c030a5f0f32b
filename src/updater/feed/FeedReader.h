#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "release/protocol/FeedItem.h"
#include "system/base/Result.h"

namespace tarnwell::updater {

class FeedHandler;
struct XmlParser;

/// Reads a feed (RSS 2.0 with the extensions of its namespace) piece by piece, as it arrives. All texts come out in
/// UTF-8. Document types and the entities that they declare are refused, and so is whatever exceeds a limit: a feed is
/// not trusted, and reading it takes bounded time and memory. An item stands for itself; nothing is taken over from
/// the one before it.
class FeedReader {
 public:
  FeedReader();
  FeedReader(const FeedReader&) = delete;
  FeedReader& operator=(const FeedReader&) = delete;
  ~FeedReader();

  /// Returns why the feed cannot be used, from the first time on that this is known.
  system::Result<void> feed(std::string_view bytes);
  /// To be called once, behind the last byte: the items in the order of the feed.
  system::Result<std::vector<release::FeedItem>> finish();

 private:
  void parse(bool isLast);

  std::unique_ptr<FeedHandler> handler_;
  std::unique_ptr<XmlParser> parser_;
  std::string pending_;
  std::size_t length_ = 0;
  system::Result<void> usable_;
};

}  // namespace tarnwell::updater
