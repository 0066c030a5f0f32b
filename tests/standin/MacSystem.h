#pragma once

#include <filesystem>
#include <string>

#include "fixtures/DockCommands.h"
#include "fixtures/Sandbox.h"
#include "standin/Process.h"
#include "standin/store/lists/PropertyList.h"

namespace tarnwell::standin {

/// A MACOS_ROOT of a test's own, and the tools that work in it.
class MacSystem {
 public:
  /// Runs the tool; `arguments` starts with the verb.
  Outcome defaults(const Words& arguments) const;

  /// Runs a shell text in which "$D" is the tool.
  Outcome shell(const std::string& text) const;

  /// Runs command lines of the application's, with a `killall` that ends nothing.
  void runWrites(const fixtures::Commands& commands) const;

  /// Runs the tool and gives what it printed on standard output without the last line feed.
  std::string value(const std::string& key) const;

  Words environment() const;
  std::string root() const { return folder_.path().string() + "/root"; }

  /// The store of the domain com.apple.dock.
  std::string dockStore() const { return preferences() + "/com.apple.dock.plist"; }
  std::string preferences() const { return root() + "/Library/Preferences"; }
  std::string dockLog() const { return root() + "/Library/Logs/Dock.log"; }

  /// Puts bytes in the place of the Dock's store.
  void store(const std::string& bytes) const;

  /// The names in the preferences folder, sorted, without the lock.
  Words preferenceNames() const;

  const fixtures::Sandbox& folder() const { return folder_; }

 private:
  fixtures::Sandbox folder_;
};

std::string fileContent(const std::string& path);

/// A list as the bytes of a binary one; empty when it cannot be written.
std::string binaryOf(const PropertyList& list);

/// What the bytes hold; none when they are no property list.
PropertyList listIn(std::string_view bytes);

/// A dictionary that has one key of every type, with values that a careless writer would change.
PropertyList everyType();

}  // namespace tarnwell::standin
