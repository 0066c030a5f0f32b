#pragma once

#include <filesystem>
#include <span>
#include <string>
#include <string_view>

#include "system/base/Result.h"
#include "system/files/AtomicFile.h"

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
  /// Puts a verified copy of a package, which no other process has, at `target`, whose folder is open.
  system::Result<void> (*place)(system::AtomicFile& copy, int folder, const std::filesystem::path& target);
  /// Why it could not be put at `target`, as a sentence for people.
  system::Failure (*unplaced)(const std::string& target, const std::string& reason);
};

/// `place` of a kind that is a file there as well.
system::Result<void> placeFile(system::AtomicFile& copy, int folder, const std::filesystem::path& target);

extern const PackageKind debianPackage;
extern const PackageKind appImage;

/// Those that this system installs, and what a file of none of them is said to be.
std::span<const PackageKind* const> installedKinds();
extern const char* const noInstalledKind;

/// Nothing for what this system does not install.
const PackageKind* packageKind(int descriptor);
const PackageKind* packageKind(std::string_view name);

/// Says, as a sentence for people, that an update is of none of them.
system::Failure unknownKind();

}  // namespace tarnwell::updater
