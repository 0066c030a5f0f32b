#pragma once

#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace tarnwell::kit {

/// What a control is to those who cannot see it.
enum class AccessibleRole {
  decoration,  ///< Means nothing to them; a host leaves it out.
  group,       ///< Others stand in it, and come and go with it.
  text,
  document,  ///< Longer, to be read in; its parts are links.
  image,
  button,
  toggle,
  slider,
  stepper,
  textField,
  popUpButton,
  progressBar,
  tabBar
};

/// None, on or off, a number, or a text.
using AccessibleValue = std::variant<std::monostate, bool, double, std::string>;

/// Between which numbers the value is, and how far an increment goes.
struct AccessibleRange {
  double least = 0;
  double most = 0;
  double step = 0;
  friend bool operator==(const AccessibleRange&, const AccessibleRange&) = default;
};

/// What can be done to a control without a pointer.
enum class AccessibleAction { press, toggle, showMenu, increment, decrement, setValue, choosePart };

/// An action, with what `setValue` sets or the index that `choosePart` chooses.
struct AccessibleRequest {
  AccessibleAction action = AccessibleAction::press;
  AccessibleValue value = {};
  int part = -1;
};

/// Where a request to increment, decrement or set leads from `value`.
double valueAfter(const AccessibleRequest& request, double value, double step);

/// What stands in a control and is none itself: a tab, a row of a menu, a link.
struct AccessiblePart {
  std::string name = {};
  bool selected = false;
  friend bool operator==(const AccessiblePart&, const AccessiblePart&) = default;
};

/// What a screen reader or a test is told of a control.
struct Accessible {
  AccessibleRole role = AccessibleRole::group;
  std::string name = {};
  AccessibleValue value = {};
  std::optional<AccessibleRange> range = {};
  std::vector<AccessibleAction> actions = {};
  bool isDefault = false;  ///< Answers Return.
  bool isEnabled = true;
};

}  // namespace tarnwell::kit
