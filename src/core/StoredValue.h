#pragma once

#include <array>
#include <string>
#include <tuple>
#include <variant>

#include "core/Preference.h"

namespace tarnwell::core {

/// The key is not there: the Dock decides.
struct Absent {
  bool operator==(const Absent&) const = default;
};

/// A value of a type that no setting has.
struct OtherValue {
  /// As `defaults read-type` names it: "integer", "array".
  std::string type = {};
  /// What `defaults read` prints of an integer or a date; empty for everything that has parts.
  std::string text = {};
  /// The value as an element of a property list in XML, as the library writes it.
  std::string element = {};

  bool operator==(const OtherValue&) const = default;
};

/// What the preferences of the Dock hold for a key, with its type, which the text that `defaults read` prints does not
/// tell.
using StoredValue = std::variant<Absent, double, bool, std::string, OtherValue>;

/// In the order of `preferences`.
using StoredValues = std::array<StoredValue, std::tuple_size_v<decltype(preferences)>>;

}  // namespace tarnwell::core
