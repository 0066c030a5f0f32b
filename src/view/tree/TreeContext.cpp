#include "view/tree/TreeContext.h"

#include "kit/host/WindowPeer.h"

namespace tarnwell::view {

double TreeContext::chromeHeight(double width) const {
  const auto* window = dynamic_cast<const kit::WindowPeer*>(rootPeer_);
  return window != nullptr ? window->chromeHeight(width) : 0;
}

}  // namespace tarnwell::view
