#pragma once

#include <vector>

#include "kit/turn/Observers.h"

namespace tarnwell::kit {

class Window;

/// The windows of the application's scenes that are on the screen, and the window that has the keys. All are borrowed.
class WindowList {
 public:
  /// In the order in which they came.
  const std::vector<Window*>& all() const { return windows_; }
  /// At the end, unless it is there already.
  void add(Window& window);
  /// Also to be told of a panel that goes, which is not in the list. One that goes is not the key window any more.
  void remove(Window& window);

  /// Hears of each change of the list.
  [[nodiscard]] Subscription observe(Observers<WindowList&>::Handler changed) {
    return observers_.add(std::move(changed));
  }

  /// The one that keys go to, a panel perhaps; null for none. The host tells, and no other: a window that comes may
  /// well come behind another program's.
  Window* keyWindow() const { return keyWindow_; }
  void setKeyWindow(Window* window) { keyWindow_ = window; }

 private:
  std::vector<Window*> windows_;
  Window* keyWindow_ = nullptr;
  Observers<WindowList&> observers_;
};

}  // namespace tarnwell::kit
