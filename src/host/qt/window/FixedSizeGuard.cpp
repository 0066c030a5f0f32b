#include "host/qt/window/FixedSizeGuard.h"

#include <QtCore/QEvent>
#include <QtWidgets/QLayout>
#include <QtWidgets/QWidget>

#include "host/qt/session/ActivationToken.h"
#include "host/qt/session/RunLater.h"
#include "host/qt/session/X11Display.h"

namespace tarnwell::host_qt {
namespace {

// Of a user who presses the key again and again, not of a desktop that maximizes whatever comes.
constexpr int mostRefusals = 5;
constexpr int longestRow = 1000;  // Milliseconds from one refusal to the next.

}  // namespace

FixedSizeGuard::FixedSizeGuard(QWidget& window) : window_(window) { window.installEventFilter(this); }

bool FixedSizeGuard::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::WindowStateChange && paintsInTheWrongSize()) {
    window_.setUpdatesEnabled(false);
    runLater(*this, [this] { comeAnew(); });
  }
  return QObject::eventFilter(watched, event);
}

bool FixedSizeGuard::paintsInTheWrongSize() const {
  return x11Display() == nullptr && window_.isVisible() && window_.isMaximized() &&
         window_.minimumSize() == window_.maximumSize();
}

// The desktop need not answer a request to take it back, and tells its size only once.
void FixedSizeGuard::comeAnew() {
  if (paintsInTheWrongSize()) {
    const bool isInRow = sinceRefusal_.isValid() && !sinceRefusal_.hasExpired(longestRow);
    refusals_ = isInRow ? refusals_ + 1 : 1;
    window_.hide();
    window_.setWindowState(window_.windowState() & ~Qt::WindowMaximized);
    window_.resize(window_.minimumSize());
    if (refusals_ > mostRefusals) {
      liftTheLimit();
    }
    window_.show();
    bringToFront(window_);
    sinceRefusal_.start();
  }
  window_.setUpdatesEnabled(true);
}

void FixedSizeGuard::liftTheLimit() {
  if (QLayout* layout = window_.layout()) {
    layout->setSizeConstraint(QLayout::SetMinimumSize);
  }
  window_.setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
}

}  // namespace tarnwell::host_qt
