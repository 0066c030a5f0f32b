#include "kit/application/WindowList.h"

#include <algorithm>

namespace tarnwell::kit {

void WindowList::add(Window& window) {
  if (std::ranges::find(windows_, &window) == windows_.end()) {
    windows_.push_back(&window);
    observers_.tell(*this);
  }
}

void WindowList::remove(Window& window) {
  const bool wasListed = std::erase(windows_, &window) > 0;
  if (keyWindow_ == &window) {
    keyWindow_ = nullptr;
  }
  if (wasListed) {
    observers_.tell(*this);
  }
}

}  // namespace tarnwell::kit
