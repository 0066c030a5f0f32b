#include "host/qt/KeyRoute.h"

#include "kit/Window.h"

namespace tarnwell::host::qt {

bool KeyRoute::deliver(const kit::KeyEvent& event, kit::Window& window) const {
  const bool wasEquivalent = equivalents_ && equivalents_(event);
  return wasEquivalent || window.keyDown(event);
}

}  // namespace tarnwell::host::qt
