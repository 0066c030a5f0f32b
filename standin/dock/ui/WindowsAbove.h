#pragma once

#include <xcb/xcb.h>

#include <set>

namespace tarnwell::standin {

/// Which windows of the screen are above one of them, as far as the server's events about them tell.
class WindowsAbove {
 public:
  /// Of a window that is on top now.
  explicit WindowsAbove(xcb_window_t base = XCB_WINDOW_NONE) : base_(base) {}

  /// Wants each event about the screen's windows, in their order.
  void take(const xcb_generic_event_t& event);

  bool contains(xcb_window_t window) const { return above_.contains(window); }

 private:
  void move(const xcb_configure_notify_event_t& configured);

  xcb_window_t base_;
  std::set<xcb_window_t> above_;
};

}  // namespace tarnwell::standin
