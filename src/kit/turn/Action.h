#pragma once

#include <functional>

namespace tarnwell::kit {

/// Something to do, once or often, on the main thread.
using Action = std::function<void()>;

/// Calls a copy of `action` with these values, if there is one.
template <class... Parameters, class... Values>
Action deferred(const std::function<void(Parameters...)>& action, Values... values) {
  return [action, values...] {
    if (action) {
      action(values...);
    }
  };
}

}  // namespace tarnwell::kit
