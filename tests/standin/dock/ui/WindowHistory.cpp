#include "standin/dock/ui/WindowHistory.h"

#include <algorithm>
#include <cstdlib>

#include "standin/dock/ui/Display.h"

namespace tarnwell::standin {
namespace {

struct FreeEvent {
  void operator()(void* event) const { std::free(event); }
};

// As wide as the display, and neither its whole height nor that of the edge.
bool hasDockShape(int width, int height) { return width == Display::width && height > 60 && height < 300; }

}  // namespace

WindowHistory::WindowHistory(const std::string& display) : connection_(xcb_connect(display.c_str(), nullptr)) {
  const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(connection_.get())).data->root;
  constexpr std::uint32_t events = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
  xcb_change_window_attributes(connection_.get(), root, XCB_CW_EVENT_MASK, &events);
  readOn();
}

std::size_t WindowHistory::most() {
  readOn();
  return most_;
}

std::size_t WindowHistory::count() {
  readOn();
  return count_;
}

// An answer of the server comes behind everything that has happened before.
void WindowHistory::readOn() {
  std::free(xcb_get_input_focus_reply(connection_.get(), xcb_get_input_focus(connection_.get()), nullptr));
  while (const std::unique_ptr<xcb_generic_event_t, FreeEvent> event{xcb_poll_for_event(connection_.get())}) {
    take(*event);
  }
}

void WindowHistory::take(const xcb_generic_event_t& event) {
  switch (event.response_type & 0x7f) {
    case XCB_CREATE_NOTIFY: {
      const auto& created = reinterpret_cast<const xcb_create_notify_event_t&>(event);
      docks_[created.window] = hasDockShape(created.width, created.height);
      break;
    }
    case XCB_CONFIGURE_NOTIFY: {
      const auto& configured = reinterpret_cast<const xcb_configure_notify_event_t&>(event);
      docks_[configured.window] = hasDockShape(configured.width, configured.height);
      break;
    }
    case XCB_MAP_NOTIFY: {
      const xcb_window_t window = reinterpret_cast<const xcb_map_notify_event_t&>(event).window;
      if (docks_[window] && shown_.insert(window).second) {
        ++count_;
        most_ = std::max(most_, shown_.size());
      }
      break;
    }
    case XCB_UNMAP_NOTIFY:
      shown_.erase(reinterpret_cast<const xcb_unmap_notify_event_t&>(event).window);
      break;
    case XCB_DESTROY_NOTIFY:
      shown_.erase(reinterpret_cast<const xcb_destroy_notify_event_t&>(event).window);
      break;
    default:
      break;
  }
}

}  // namespace tarnwell::standin
