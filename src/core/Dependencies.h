#pragma once

#include <functional>
#include <string>

#include "core/CommandRunner.h"

namespace tarnwell::core {

/// What the settings state needs from outside.
struct Dependencies {
  /// Borrowed for the state's life.
  CommandRunner& runner;
  /// Whether the system is older than macOS 15 and so knows the single-application mode. Must be set.
  std::function<bool()> usesSingleApp = {};
  /// Opens an address in the user's browser. Must be set.
  std::function<void(const std::string&)> openURL = {};
  /// The address of the product's help page.
  std::string helpPage = {};
  /// Hears that fields have changed. May be empty.
  std::function<void()> changed = {};
};

}  // namespace tarnwell::core
