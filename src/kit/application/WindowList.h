#pragma once

#include <vector>

#include "kit/turn/Observers.h"

namespace tarnwell::kit {

class Window;

/// The application's windows that are on the screen, and which of them has the keys. All are borrowed.
class WindowList {
 public:
  /// In the order in which they came.
  const std::vector<Window*>& all() const { return windows_; }
  /// At the end, unless it is there already; it becomes the key window if it takes the keyboard.
  void add(Window& window);
  void remove(Window& window);

  /// Hears of each change of the list.
  [[nodiscard]] Subscription observe(Observers<WindowList&>::Handler changed) {
    return observers_.add(std::move(changed));
  }

  /// The one that keys go to: the last that came to the front. Null without windows, and while something that is no
  /// window of the application's own has the keyboard, such as a panel of the platform's.
  Window* keyWindow() const { return keyWindow_; }
  void setKeyWindow(Window* window) { keyWindow_ = window; }

 private:
  std::vector<Window*> windows_;
  Window* keyWindow_ = nullptr;
  Observers<WindowList&> observers_;
};

}  // namespace tarnwell::kit
