#pragma once

#include <string>

#include "release/protocol/FeedItem.h"
#include "system/base/Result.h"

namespace tarnwell::publish {

struct FeedWithItem {
  std::string text = {};
  /// As the updater reads it there.
  release::FeedItem item = {};
};

/// A feed without items.
std::string emptyFeed();

/// `feed` with one more item, without what is empty in it, before its first one; everything else in it stays as it is,
/// to the byte. Refuses a feed that the updater could not read, before or after, one that has this version for Linux
/// already, and one in which the item would not say what it is to say.
system::Result<FeedWithItem> withItem(const std::string& feed, const release::FeedItem& item);

}  // namespace tarnwell::publish
