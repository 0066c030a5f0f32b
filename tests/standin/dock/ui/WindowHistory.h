#pragma once

#include <xcb/xcb.h>

#include <map>
#include <memory>
#include <set>
#include <string>

namespace tarnwell::standin {

/// Which windows of the Dock's shape came and went on a display since this was made, in the order of the server.
class WindowHistory {
 public:
  explicit WindowHistory(const std::string& display);

  /// How many there were at once at most, until now.
  std::size_t most();

  /// How many came, until now.
  std::size_t count();

 private:
  struct Disconnect {
    void operator()(xcb_connection_t* connection) const { xcb_disconnect(connection); }
  };

  void readOn();
  void take(const xcb_generic_event_t& event);

  std::unique_ptr<xcb_connection_t, Disconnect> connection_;
  std::map<xcb_window_t, bool> docks_;  // whether it has the shape of one
  std::set<xcb_window_t> shown_;
  std::size_t most_ = 0;
  std::size_t count_ = 0;
};

}  // namespace tarnwell::standin
