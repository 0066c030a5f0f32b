#include "host/qt/session/X11Display.h"

#include <QtGui/QGuiApplication>
#include <cstdint>

namespace tarnwell::host_qt {

xcb_connection_t* x11Display() {
  const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
  return x11 != nullptr ? x11->connection() : nullptr;
}

int x11ScreenNumber() {
  char* host = nullptr;
  int displayNumber = 0;
  int screen = 0;
  if (xcb_parse_display(nullptr, &host, &displayNumber, &screen) != 0) {
    std::free(host);
  }
  return screen;
}

xcb_window_t x11RootWindow() {
  xcb_screen_iterator_t screens = xcb_setup_roots_iterator(xcb_get_setup(x11Display()));
  for (int i = x11ScreenNumber(); i > 0 && screens.rem > 1; --i) {
    xcb_screen_next(&screens);
  }
  return screens.data->root;
}

bool x11FocusIsOurs() {
  const XcbReply<xcb_get_input_focus_reply_t> reply(
      xcb_get_input_focus_reply(x11Display(), xcb_get_input_focus(x11Display()), nullptr));
  const xcb_setup_t* setup = xcb_get_setup(x11Display());
  return reply && (reply->focus & ~setup->resource_id_mask) == setup->resource_id_base;
}

xcb_intern_atom_cookie_t askForAtom(const std::string& name) {
  return xcb_intern_atom(x11Display(), 0, static_cast<std::uint16_t>(name.size()), name.data());
}

xcb_atom_t atomOf(xcb_intern_atom_cookie_t asked) {
  const XcbReply<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(x11Display(), asked, nullptr));
  return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
}

}  // namespace tarnwell::host_qt
