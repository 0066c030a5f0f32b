#pragma once

#include <cstddef>

namespace tarnwell::updater {

/// What a feed may hold.
struct FeedLimits {
  static constexpr std::size_t maximumLength = 1024UL * 1024;  // Bytes.
  static constexpr std::size_t maximumItems = 1000;
  static constexpr std::size_t maximumDepth = 32;  // Of elements within each other.
  static constexpr std::size_t maximumAttributes = 32;
  static constexpr std::size_t maximumAttributeLength = 4096;
  static constexpr std::size_t maximumFieldLength = 4096;
  static constexpr std::size_t maximumTitleLength = 200;  // Characters; a longer one is cut.
  static constexpr std::size_t maximumNotesLength = 256UL * 1024;
};

}  // namespace tarnwell::updater
