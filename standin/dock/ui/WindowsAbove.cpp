#include "standin/dock/ui/WindowsAbove.h"

#include <cstdint>

namespace tarnwell::standin {

void WindowsAbove::take(const xcb_generic_event_t& event) {
  constexpr std::uint8_t sentByClient = 0x80;
  switch (event.response_type & ~sentByClient) {
    case XCB_CREATE_NOTIFY:
      // A window begins on top.
      above_.insert(reinterpret_cast<const xcb_create_notify_event_t&>(event).window);
      break;
    case XCB_DESTROY_NOTIFY:
      above_.erase(reinterpret_cast<const xcb_destroy_notify_event_t&>(event).window);
      break;
    case XCB_REPARENT_NOTIFY: {
      const auto& moved = reinterpret_cast<const xcb_reparent_notify_event_t&>(event);
      above_.erase(moved.window);
      if (moved.parent == moved.event) {
        above_.insert(moved.window);
      }
      break;
    }
    case XCB_CONFIGURE_NOTIFY:
      move(reinterpret_cast<const xcb_configure_notify_event_t&>(event));
      break;
    default:
      break;
  }
}

void WindowsAbove::move(const xcb_configure_notify_event_t& configured) {
  const xcb_window_t below = configured.above_sibling;
  if (configured.window == base_) {
    if (above_.contains(below)) {
      // It never goes anywhere but to the top, or below everything for a moment.
      above_.clear();
    }
  } else if (below == base_ || above_.contains(below)) {
    above_.insert(configured.window);
  } else {
    above_.erase(configured.window);
  }
}

}  // namespace tarnwell::standin
