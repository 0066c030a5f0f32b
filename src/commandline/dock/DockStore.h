#pragma once

#include <string>
#include <vector>

#include "commandline/dock/Shell.h"
#include "core/StoredValue.h"
#include "profile/values/Profile.h"

namespace tarnwell::commandline {

/// The preferences of the Dock.
struct DockPreferences {
  core::StoredValues values = {};
  /// All of them, as a property list in XML that `defaults import` takes.
  std::string list = {};
};

/// Where the Dock's preferences are kept, read and written by one command line for all that is wanted. Failures are
/// sentences with the tool's own reason.
class DockStore {
 public:
  static constexpr const char* domain = "com.apple.dock";

  /// The shell is borrowed for the store's life.
  explicit DockStore(Shell& shell) : shell_(shell) {}

  system::Result<DockPreferences> read() const;

  /// What a configuration profile forces on the user, which counts before what is stored; nothing where there is none.
  system::Result<core::StoredValues> readForced() const;

  /// Stops at the first that fails.
  system::Result<void> write(const std::vector<profile::Change>& changes) const;

  /// The command line that writes them.
  static std::string lineFor(const std::vector<profile::Change>& changes);

 private:
  Shell& shell_;
};

}  // namespace tarnwell::commandline
