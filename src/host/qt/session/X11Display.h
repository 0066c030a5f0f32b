#pragma once

#include <xcb/xcb.h>

#include <cstdlib>
#include <memory>
#include <string>

namespace tarnwell::host_qt {

/// What xcb gives to be freed.
struct FreeReply {
  void operator()(void* reply) const { std::free(reply); }
};
template <class T>
using XcbReply = std::unique_ptr<T, FreeReply>;

/// The toolkit's connection to an X11 display; null where the display is another.
xcb_connection_t* x11Display();

/// The screen that the connection was made for.
int x11ScreenNumber();
xcb_window_t x11RootWindow();

/// Whether keys go to a window of the toolkit's, as the server knows it.
bool x11FocusIsOurs();

// An answer can be awaited after more has been asked.

xcb_intern_atom_cookie_t askForAtom(const std::string& name);
xcb_atom_t atomOf(xcb_intern_atom_cookie_t asked);

}  // namespace tarnwell::host_qt
