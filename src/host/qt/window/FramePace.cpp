#include "host/qt/window/FramePace.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QEvent>
#include <QtGui/QWindow>
#include <QtWidgets/QWidget>
#include <utility>

#include "host/qt/session/X11Display.h"

namespace tarnwell::host_qt {

FramePace::FramePace(QWidget& window) : window_(window) { window.installEventFilter(this); }

bool FramePace::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::UpdateRequest || x11Display() != nullptr) {
    return false;
  }
  return watched == &window_ ? waitsForFrame() : isFrameOfOurs();
}

// What is out of sight gets no frames, and paints nothing.
bool FramePace::waitsForFrame() {
  QWindow* handle = window_.windowHandle();
  if (std::exchange(isDue_, false) || handle == nullptr || !handle->isExposed()) {
    return false;
  }
  isAsked_ = true;
  handle->installEventFilter(this);
  handle->requestUpdate();
  return true;
}

// The toolkit would paint all of the window anew. Behind a size that it has heard of, but not yet accepted.
bool FramePace::isFrameOfOurs() {
  if (!std::exchange(isAsked_, false)) {
    return false;
  }
  isDue_ = true;
  QCoreApplication::postEvent(&window_, new QEvent(QEvent::UpdateRequest), Qt::LowEventPriority);
  return true;
}

}  // namespace tarnwell::host_qt
