#include "host/qt/session/X11Activation.h"

#include <algorithm>
#include <charconv>
#include <cstdint>

#include "host/qt/session/X11Display.h"

namespace tarnwell::host_qt {
namespace {

constexpr std::uint32_t fromApplication = 1;
constexpr std::size_t chunkSize = 20;

// The time of the user's action, which stands at the end of the identifier.
xcb_timestamp_t timeOf(const std::string& startupId) {
  const std::string mark = "_TIME";
  const std::size_t found = startupId.rfind(mark);
  xcb_timestamp_t time = XCB_CURRENT_TIME;
  if (found != std::string::npos) {
    std::from_chars(startupId.data() + found + mark.size(), startupId.data() + startupId.size(), time);
  }
  return time;
}

void sendToRoot(const xcb_client_message_event_t& event, std::uint32_t mask) {
  xcb_send_event(x11Display(), 0, x11RootWindow(), mask, reinterpret_cast<const char*>(&event));
}

void askToActivate(xcb_window_t window, xcb_timestamp_t time) {
  xcb_client_message_event_t event = {};
  event.response_type = XCB_CLIENT_MESSAGE;
  event.format = 32;
  event.window = window;
  event.type = atomOf(askForAtom("_NET_ACTIVE_WINDOW"));
  event.data.data32[0] = fromApplication;
  event.data.data32[1] = time;
  sendToRoot(event, XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT);
}

std::string quoted(const std::string& text) {
  std::string quoted = "\"";
  for (const char c : text) {
    if (c == '"' || c == '\\') {
      quoted += '\\';
    }
    quoted += c;
  }
  return quoted + '"';
}

// The message is cut into pieces; the last one holds the zero at its end.
void sayThatStartIsComplete(xcb_window_t window, const std::string& startupId) {
  const auto first = askForAtom("_NET_STARTUP_INFO_BEGIN");
  const auto further = askForAtom("_NET_STARTUP_INFO");
  xcb_client_message_event_t event = {};
  event.response_type = XCB_CLIENT_MESSAGE;
  event.format = 8;
  event.window = window;
  event.type = atomOf(first);
  const xcb_atom_t furtherType = atomOf(further);
  const std::string message = "remove: ID=" + quoted(startupId) + '\0';
  for (std::size_t at = 0; at < message.size(); at += chunkSize) {
    std::ranges::fill(event.data.data8, std::uint8_t{0});
    std::ranges::copy(message.substr(at, chunkSize), event.data.data8);
    sendToRoot(event, XCB_EVENT_MASK_PROPERTY_CHANGE);
    event.type = furtherType;
  }
}

}  // namespace

void activateX11Window(WId window, const std::string& startupId) {
  askToActivate(static_cast<xcb_window_t>(window), timeOf(startupId));
  sayThatStartIsComplete(static_cast<xcb_window_t>(window), startupId);
  xcb_flush(x11Display());
}

}  // namespace tarnwell::host_qt
