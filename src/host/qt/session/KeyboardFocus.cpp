#include "host/qt/session/KeyboardFocus.h"

#include <QtWidgets/QApplication>

#include "host/qt/session/X11Display.h"

namespace tarnwell::host_qt {

bool hasKeyboard() { return QApplication::activeWindow() != nullptr && (x11Display() == nullptr || x11FocusIsOurs()); }

void admitLossOfKeyboard() {
  if (!hasKeyboard()) {
    QApplication::setActiveWindow(nullptr);
  }
}

}  // namespace tarnwell::host_qt
