#pragma once

#include <QtGui/qwindowdefs.h>
#include <string>

namespace tarnwell::host_qt {

/// Asks an X11 window manager to activate the window with the time that is in `startupId`, and says that the start
/// which it names is complete.
void activateX11Window(WId window, const std::string& startupId);

}  // namespace tarnwell::host_qt
