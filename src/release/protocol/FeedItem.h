#pragma once

#include <cstdint>
#include <string>

#include "release/protocol/ReleaseNotes.h"

namespace tarnwell::release {

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

  std::string title = {};         // One plain line.
  std::string version = {};       // What is compared.
  std::string shownVersion = {};  // What people read; `version` where the feed has none.
  std::string link = {};
  std::string publicationDate = {};
  std::string notes = {};       // Plain text or HTML. Never trusted, and never shown.
  ReleaseNotes readNotes = {};  // What the engine made of them.
  std::string releaseNotesLink = {};
  std::string minimumSystemVersion = {};
  std::string channel = {};
  bool isCritical = false;
  bool isInformational = false;  // There is nothing to install, only something to read at `link`.
  Enclosure enclosure = {};
  /// Vouches for the file's being of that version: base64 of a signature over version, length and digest together.
  std::string releaseSignature = {};
  /// Why it cannot be installed, as a sentence for people; empty where it can.
  std::string objection = {};
};

}  // namespace tarnwell::release
