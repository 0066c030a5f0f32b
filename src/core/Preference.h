#pragma once

#include <optional>
#include <string_view>
#include <variant>

#include "core/MinEffect.h"

namespace tarnwell::core {

class Catalogue;
class DockSettings;

/// The systems on which a preference is read, written, reset and copied.
enum class Gate { everySystem, olderThan15 };

/// Where the settings state keeps the three values of a preference, and the catalogue's operations that carry them.
template <class T>
struct ValueAccess {
  const T DockSettings::*byDefault = nullptr;
  T DockSettings::*current = nullptr;
  T DockSettings::*edited = nullptr;
  T (Catalogue::*read)() const = nullptr;
  void (*write)(const Catalogue& catalogue, std::string_view prefix, T value) = nullptr;
  /// What a reset writes instead of the default.
  std::optional<T> fixedReset = std::nullopt;
};

/// One row of the catalogue.
struct Preference {
  /// Ends with one blank; the value's text follows.
  std::string_view writePrefix = {};
  /// Starts the Dock again.
  std::string_view writeSuffix = {};
  std::string_view readCommand = {};
  /// What stands before the text that was read when it is printed on the console; none when nothing is printed.
  std::optional<std::string_view> printedLabel = std::nullopt;
  Gate gate = Gate::everySystem;
  std::variant<ValueAccess<double>, ValueAccess<bool>, ValueAccess<MinEffect>> access = {};
};

}  // namespace tarnwell::core
