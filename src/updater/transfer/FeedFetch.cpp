#include "updater/transfer/FeedFetch.h"

#include <chrono>
#include <utility>

namespace tarnwell::updater {
namespace {

/// Of the largest feed at the speed of a bad connection. A check waits for it, with its button switched off.
constexpr std::chrono::minutes feedLimit(2);

}  // namespace

FeedFetch::FeedFetch(Transport& transport, const std::string& address, Finished finished)
    : finished_(std::move(finished)) {
  transfer_ = transport.get(
      {.address = address, .maximumLength = FeedReader::maximumLength, .limit = feedLimit},
      [this](std::string_view bytes) { return take(bytes); },
      [this](const std::optional<system::Failure>& failure) { finish(failure); });
}

bool FeedFetch::take(std::string_view bytes) {
  refusal_ = reader_.feed(bytes);
  return !refusal_;
}

void FeedFetch::finish(const std::optional<system::Failure>& transportFailure) {
  const auto failure = refusal_ ? refusal_ : transportFailure;
  const system::Result<std::vector<FeedItem>> result = failure ? *failure : reader_.finish();
  // The one who is told may end us.
  const Finished finished = std::move(finished_);
  finished(result);
}

}  // namespace tarnwell::updater
