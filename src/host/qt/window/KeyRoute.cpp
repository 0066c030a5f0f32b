#include "host/qt/window/KeyRoute.h"

#include "kit/controls/Window.h"

namespace tarnwell::host_qt {

bool KeyRoute::deliver(const kit::KeyEvent& event, kit::Window& window) const {
  // A copy: what the key does may replace it.
  const Equivalents equivalents = equivalents_;
  const bool wasEquivalent = equivalents && equivalents(event);
  return wasEquivalent || window.keyDown(event);
}

}  // namespace tarnwell::host_qt
