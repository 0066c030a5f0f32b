#pragma once

#include <cstdint>
#include <string>

namespace tarnwell::publish {

/// A version to be offered. What is empty is left out of the feed.
struct NewItem {
  /// As an element of a feed, which may stand in any feed.
  std::string xml() const;

  std::string title = {};
  std::string version = {};
  std::string shownVersion = {};
  std::string publicationDate = {};
  std::string notes = {};
  std::string channel = {};
  std::string minimumSystemVersion = {};
  bool isCritical = false;
  std::string url = {};
  std::uint64_t length = 0;           // Bytes.
  std::string signature = {};         // Of the file.
  std::string releaseSignature = {};  // Of version, length and digest.
};

}  // namespace tarnwell::publish
