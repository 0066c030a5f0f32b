#pragma once

#include <string>

namespace tarnwell::kit {
class Control;
}

namespace tarnwell::view {

class MountedNode;

/// What stands around a control, and tells those who cannot see it what it is for.
struct AccessibleContext {
  const kit::Control* label = nullptr;  ///< The text that names it; null for none.
  std::string description = {};         ///< The texts that explain it.

  /// The same with another text before the others.
  AccessibleContext describedBy(const MountedNode& text) const;
};

/// The first control below `node` that is only read; null for none.
const kit::Control* firstTextIn(const MountedNode& node);

}  // namespace tarnwell::view
