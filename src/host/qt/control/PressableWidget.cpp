#include "host/qt/control/PressableWidget.h"

#include <QtGui/QKeyEvent>
#include <QtGui/QMouseEvent>
#include <utility>

namespace tarnwell::host_qt {

void PressableWidget::mousePressEvent(QMouseEvent* event) {
  held_ = event->button() == Qt::LeftButton;
  setPressed(held_);
}

void PressableWidget::mouseMoveEvent(QMouseEvent* event) {
  if (held_) {
    setPressed(rect().contains(event->position().toPoint()));
  }
}

void PressableWidget::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton || !std::exchange(held_, false)) {
    return;
  }
  const bool inside = rect().contains(event->position().toPoint());
  setPressed(false);
  if (inside) {
    activated();
  }
}

void PressableWidget::keyPressEvent(QKeyEvent* event) {
  if (event->key() != Qt::Key_Space || event->modifiers() != Qt::NoModifier) {
    event->ignore();
  } else if (!event->isAutoRepeat()) {
    setPressed(true);
  }
}

void PressableWidget::keyReleaseEvent(QKeyEvent* event) {
  if (event->key() != Qt::Key_Space) {
    event->ignore();
  } else if (!event->isAutoRepeat() && pressed_) {
    setPressed(false);
    activated();
  }
}

void PressableWidget::focusOutEvent(QFocusEvent* /*event*/) {
  held_ = false;
  setPressed(false);
}

void PressableWidget::changeEvent(QEvent* event) {
  if (event->type() == QEvent::EnabledChange && !isEnabled()) {
    held_ = false;
    setPressed(false);
  }
  ControlWidget::changeEvent(event);
}

void PressableWidget::setPressed(bool pressed) {
  if (std::exchange(pressed_, pressed) != pressed) {
    update();
  }
}

}  // namespace tarnwell::host_qt
