#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "release/protocol/FeedItem.h"
#include "system/base/Result.h"
#include "updater/signature/Signature.h"

namespace tarnwell::updater {

struct PackageKind;

/// What a feed claims of a package, in a form that can be held against the package. Failures are sentences for people.
struct PackageClaim {
  static constexpr std::uint64_t maximumLength = 512ULL * 1024 * 1024;  // Bytes.

  /// Refuses an item that leaves anything out.
  static system::Result<PackageClaim> create(const release::FeedItem& item);

  /// Whether the file behind `descriptor` is that package: its length and signature, and that it is of that version,
  /// which it names itself or `releaseSignature` vouches for. A signature of the package alone says who made it, but
  /// not that it is the one that the feed is about: an old one could be offered under a new number. Blocks for as long
  /// as reading the file takes. Returns its kind; what is of none that this system installs is refused.
  system::Result<const PackageKind*> hold(const PublicKey& key, int descriptor) const;
  /// The same without asking a package that names its version itself, which takes a tool.
  system::Result<const PackageKind*> holdSignatures(const PublicKey& key, int descriptor) const;

  std::string version = {};
  std::uint64_t length = 0;  // Bytes; at least 1.
  Signature signature;
  std::optional<Signature> releaseSignature = {};
};

/// Says, as a sentence for people, that a download is not used, and why.
system::Failure thrownAway(const std::string& reason);

/// What a release signature is made over: "tarnwell-release", the version, the length, and the SHA-256 of the file
/// behind `descriptor` in hexadecimal, a line each.
system::Result<std::string> releaseText(const std::string& version, int descriptor);

}  // namespace tarnwell::updater
