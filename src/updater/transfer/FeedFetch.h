#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "system/Result.h"
#include "updater/feed/FeedItem.h"
#include "updater/feed/FeedReader.h"
#include "updater/transfer/Transport.h"

namespace tarnwell::updater {

/// Gets the feed and reads it as it arrives. Under way as long as it lives and has not finished.
class FeedFetch {
 public:
  using Finished = std::function<void(const system::Result<std::vector<FeedItem>>&)>;

  /// `finished` is called once, from the event loop, and may end the fetch.
  FeedFetch(Transport& transport, const std::string& address, Finished finished);
  FeedFetch(const FeedFetch&) = delete;
  FeedFetch& operator=(const FeedFetch&) = delete;

 private:
  bool take(std::string_view bytes);
  void finish(const std::optional<system::Failure>& transportFailure);

  Finished finished_;
  FeedReader reader_;
  std::optional<system::Failure> refusal_;
  std::unique_ptr<Transport::Transfer> transfer_;
};

}  // namespace tarnwell::updater
