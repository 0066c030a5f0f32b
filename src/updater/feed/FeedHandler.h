#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "release/protocol/FeedItem.h"

namespace tarnwell::updater {

/// Makes items out of the elements of a feed, as a parser meets them. A name in a namespace comes as that namespace,
/// the separator and the name.
class FeedHandler {
 public:
  using Attributes = std::vector<std::pair<std::string_view, std::string_view>>;

  /// Between a namespace and a name; stands in neither.
  static constexpr char separator = '\n';

  /// These return false when the feed is refused; `refusal` then says why, and nothing more is to come.
  bool start(std::string_view name, const Attributes& attributes);
  bool end();
  bool text(std::string_view characters);
  bool refuse(std::string reason);

  const std::optional<std::string>& refusal() const { return refusal_; }
  /// Whether there was a channel to hold items.
  bool hasChannel() const { return hasChannel_; }
  std::vector<release::FeedItem> takeItems() { return std::move(items_); }

 private:
  enum class Place { outside, feed, channel, item, field };

  Place placeOf(std::string_view name) const;
  bool startItem();
  void startField(std::string_view name, const Attributes& attributes);
  void takeEnclosure(const Attributes& attributes);
  void endField();
  void endItem();

  std::vector<Place> path_;
  std::vector<release::FeedItem> items_;
  release::FeedItem item_;
  release::FeedItem olderVersion_;  // What the enclosure says of versions.
  bool hasEnclosure_ = false;
  bool hasChannel_ = false;
  std::string* field_ = nullptr;  // Of `item_`, while its element is open.
  std::string text_;
  std::optional<std::string> refusal_;
};

}  // namespace tarnwell::updater
