#pragma once

#include <functional>
#include <string>
#include <tuple>

#include "view/controls/buttons/Button.h"
#include "view/state/State.h"
#include "view/tree/Composite.h"

namespace tarnwell::view {

/// A button called `name` that shows how often it was pressed.
struct Counter {
  std::string name = "count";
  State<int> count = 0;

  auto stored() { return std::tie(count); }
  View body() const {
    return View(Button{.title = std::to_string(count.get()), .action = [count = count] { count.set(count.get() + 1); }})
        .accessibilityLabel(name);
  }
};

/// A composite that is shows what a function makes of a number that belongs to the place.
struct Numbered {
  std::function<View(const State<int>&)> make = {};
  State<int> number = 0;

  auto stored() { return std::tie(number); }
  View body() const { return make(number); }
};

}  // namespace tarnwell::view
