#pragma once

#include <filesystem>

#include "system/Descriptor.h"
#include "system/Result.h"

namespace tarnwell::publish {

/// Keeps everybody else who asks for it away from a feed, from the reading to the writing, as long as it lives.
class FeedLock {
 public:
  /// Waits for its turn. What is locked is the feed's folder, which is made where it is missing: no file is left there,
  /// and a feed can be replaced by another file meanwhile.
  static system::Result<FeedLock> take(const std::filesystem::path& feed);

 private:
  explicit FeedLock(system::Descriptor folder) : folder_(std::move(folder)) {}

  system::Descriptor folder_;
};

}  // namespace tarnwell::publish
