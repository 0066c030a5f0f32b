#pragma once

#include <plist/plist.h>

#include <filesystem>
#include <functional>
#include <memory>
#include <optional>

#include "system/Result.h"

namespace tarnwell::updater {

struct PropertyListDeleter {
  void operator()(plist_t node) const { plist_free(node); }
};

/// Owns a node and everything below it.
using PropertyList = std::unique_ptr<void, PropertyListDeleter>;

/// A dictionary that is kept in an XML property list. A file that is none is set aside under another name, which is
/// said on standard error; a file that cannot be read is left alone.
class PropertyListFile {
 public:
  /// The file need not be there yet.
  explicit PropertyListFile(std::filesystem::path path) : path_(std::move(path)) {}

  /// What is stored; empty where nothing is, or nothing that can be read, which is said on standard error.
  PropertyList dictionary() const;

  /// Stores what `change` makes of what is stored, while no other process does the same. Returns why not, and has
  /// changed nothing then.
  system::Result<void> update(const std::function<void(plist_t dictionary)>& change) const;

 private:
  std::filesystem::path path_;
};

}  // namespace tarnwell::updater
