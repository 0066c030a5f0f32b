#pragma once

#include <cmath>
#include <functional>
#include <map>
#include <string>
#include <type_traits>
#include <utility>

#include "core/Catalogue.h"
#include "core/CommandRunner.h"
#include "core/DockValues.h"
#include "core/MinEffect.h"

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

/// The settings state: loads, saves and compares the values, and tells of each change.
class DockSettings : public DockValues {
 public:
  explicit DockSettings(Dependencies dependencies);

  /// Reads all preferences, one after another, and edits what was read. Blocks until the last command has answered.
  void loadFromDock();
  /// Writes all edited values, changed or not, and takes them for current.
  void save();
  /// Writes the defaults and takes them for edited and current.
  void resetToDefaults();
  void openHelp() const;

  /// Exact comparisons: no tolerance, and a nan equals nothing.
  bool matchesCurrent() const;
  bool matchesDefaults() const;

  /// How a control changes one field, `set(&DockSettings::delaySpeed, 0.3)`: the listener is told where that is another
  /// value. The two zeros are two values.
  template <class T>
  void set(T DockValues::*field, std::type_identity_t<T> value) {
    const T before = std::exchange(this->*field, value);
    bool isAnother = before != value;
    if constexpr (std::is_floating_point_v<T>) {
      isAnother |= std::signbit(before) != std::signbit(value);
    }
    if (isAnother) {
      notify();
    }
  }

  const std::map<MinEffect, std::string> menuBarActions;
  const std::function<void(const std::string&)> openURL;

 private:
  /// Whether `test(preference, edited, current, byDefault)` holds for each preference; stops at the first that fails
  /// it.
  template <class Settings, class Test>
  static bool allOf(Settings& self, const Test& test);
  /// Calls `action` with the same for each row that this system knows.
  template <class Action>
  void forEachInUse(const Action& action);
  void copyEditedToCurrent();
  void notify() const;

  const std::string helpPage_;
  Catalogue catalogue_;
  std::function<bool()> usesSingleApp_;
  std::function<void()> changed_;
};

}  // namespace tarnwell::core
