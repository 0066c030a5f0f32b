#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace tarnwell::updater {

/// One version on offer, as the feed describes it. Texts are as they stand in the feed, but for the title; what was
/// absent is empty.
struct FeedItem {
  /// What the feed says of the file to download.
  struct Enclosure {
    std::string url = {};
    std::uint64_t length = 0;  // Bytes.
    std::string type = {};
    std::string signature = {};  // Base64 of 64 bytes.
    std::string system = {};     // "linux", "macos", ...; empty where the feed does not say.
  };

  /// How much of the notes people get to see, in characters.
  static constexpr std::size_t shownNotes = 16UL * 1024;

  std::string title = {};         // One plain line.
  std::string version = {};       // What is compared.
  std::string shownVersion = {};  // What people read; `version` where the feed has none.
  std::string link = {};
  std::string publicationDate = {};
  std::string notes = {};  // Plain or simple rich text. Never trusted.
  std::string releaseNotesLink = {};
  std::string minimumSystemVersion = {};
  std::string channel = {};
  bool isCritical = false;
  bool isInformational = false;  // There is nothing to install, only something to read at `link`.
  Enclosure enclosure = {};
};

}  // namespace tarnwell::updater
