#pragma once

#include <string>

namespace tarnwell::kit {
class Control;
}

namespace tarnwell::view {

/// What stands around a control, and tells those who cannot see it what it is for.
struct AccessibleContext {
  const kit::Control* label = nullptr;  ///< The text that names it; null for none.
  std::string description = {};         ///< The texts that explain it.
};

}  // namespace tarnwell::view
