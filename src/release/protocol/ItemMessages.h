#pragma once

#include <functional>
#include <vector>

#include "release/protocol/FeedItem.h"
#include "release/protocol/Message.h"

namespace tarnwell::release {

/// Says an item: "item", then a line for each of its fields that is not empty.
void sayItem(const FeedItem& item, const std::function<void(const Message&)>& say);

/// Makes items of such lines.
class ItemReader {
 public:
  static constexpr std::size_t maximumItems = 1000;

  /// False for what is no line of an item, or one that was there already.
  bool take(const Message& message);
  std::vector<FeedItem> takeItems() { return std::move(items_); }

 private:
  std::vector<FeedItem> items_;
};

}  // namespace tarnwell::release
