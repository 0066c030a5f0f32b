#pragma once

#include <functional>
#include <utility>

#include "kit/host/KeyEvent.h"

namespace tarnwell::kit {
class Window;
}

namespace tarnwell::host_qt {

/// Where a key goes that the focused control has no use for: first to the key equivalents of the main menu, then to the
/// window. This is the only place that asks either.
class KeyRoute {
 public:
  /// True for a key that was an equivalent and has done its work.
  using Equivalents = std::function<bool(const kit::KeyEvent&)>;

  void setEquivalents(Equivalents equivalents) { equivalents_ = std::move(equivalents); }

  /// Whether the key meant something. May close and end the window.
  bool deliver(const kit::KeyEvent& event, kit::Window& window) const;

 private:
  Equivalents equivalents_;
};

}  // namespace tarnwell::host_qt
