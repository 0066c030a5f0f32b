#pragma once

#include <span>
#include <string>
#include <string_view>

#include "system/Result.h"

namespace tarnwell::updater {

/// A kind of package, known by its first bytes, which were verified, and not by what the feed says of it.
struct PackageKind {
  const char* name;
  bool (*isOne)(std::string_view firstBytes);
  /// The version that a package gives itself; null for a kind that cannot be asked without being run. Blocks for up to
  /// half a minute. A failure is a sentence for people.
  system::Result<std::string> (*ownVersion)(int descriptor);
  /// Whether a package of that version is one of the version offered.
  bool (*isVersionOf)(std::string_view own, std::string_view offered);
  /// Why it could not be put at `target`, as a sentence for people.
  system::Failure (*unplaced)(const std::string& target, const std::string& reason);
};

extern const PackageKind debianPackage;
extern const PackageKind appImage;

/// Those that this system installs.
std::span<const PackageKind* const> installedKinds();

/// Nothing for what this system does not install.
const PackageKind* packageKind(int descriptor);

}  // namespace tarnwell::updater
