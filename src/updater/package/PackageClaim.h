#pragma once

#include <cstdint>
#include <string>

#include "system/Result.h"
#include "updater/feed/FeedItem.h"
#include "updater/signature/Signature.h"

namespace tarnwell::updater {

/// What a feed claims of a package, in a form that can be held against the package.
struct PackageClaim {
  static constexpr std::uint64_t maximumLength = 512ULL * 1024 * 1024;  // Bytes.

  /// Refuses an item that leaves anything out, as a sentence for people.
  static system::Result<PackageClaim> create(const FeedItem& item);

  std::string address = {};
  std::uint64_t length = 0;  // Bytes; at least 1.
  Signature signature;
};

}  // namespace tarnwell::updater
