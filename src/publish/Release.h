#pragma once

#include <filesystem>
#include <optional>
#include <string>

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

/// Signs the package and puts an item for it into the feed in that file, which is made where there is none, once no
/// other publisher is at it. Wholly or not at all: not where the updater would not offer the item or not believe the
/// package. Returns why not.
system::Result<void> publishRelease(const Release& release, const std::filesystem::path& feed);

}  // namespace tarnwell::publish
