#pragma once

#include <filesystem>
#include <string>

#include "publish/Package.h"
#include "publish/SecretKey.h"
#include "release/protocol/FeedItem.h"
#include "system/base/Result.h"

namespace tarnwell::publish {

/// What a publisher says of a package. What is empty is left out.
struct Release {
  std::filesystem::path package = {};
  std::filesystem::path privateKey = {};
  std::filesystem::path notes = {};  // A file with plain or simple rich text.
  std::string title = {};            // The product's name and the shown version where it is empty.
  std::string version = {};
  std::string shownVersion = {};
  std::string url = {};
  std::string channel = {};
  std::string minimumSystemVersion = {};
  bool isCritical = false;
};

/// Fails where the updater would pass over what is said in this release, in words for the publisher.
system::Result<void> checkRelease(const Release& release);

/// Holds the item that the updater reads against the package, with the updater's own means: would it show all of the
/// notes, and believe the package?
system::Result<void> checkItem(const release::FeedItem& item, const Package& package, const SecretKey& key);

}  // namespace tarnwell::publish
