#include "host/qt/control/ControlWidget.h"

#include <QtGui/QFocusEvent>
#include <QtGui/QPainter>

#include "kit/control/Control.h"

namespace tarnwell::host_qt {
namespace {

constexpr double dimmed = 0.42;

}  // namespace

ControlWidget::ControlWidget(kit::Control& control, const Theme& theme, QWidget* parent)
    : QWidget(parent), ControlLink(control), theme_(theme) {
  if (control.takesFocus()) {
    setFocusPolicy(Qt::StrongFocus);
  }
}

bool ControlWidget::event(QEvent* event) noexcept {
  // Deferred deletion is all that still matters to a widget without a control.
  const bool heard = control() != nullptr || event->type() == QEvent::DeferredDelete;
  return heard && QWidget::event(event);
}

void ControlWidget::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setOpacity(isEnabled() ? 1 : dimmed);
  draw(painter);
}

void ControlWidget::focusInEvent(QFocusEvent* event) {
  switch (event->reason()) {
    case Qt::TabFocusReason:
    case Qt::BacktabFocusReason:
    case Qt::ShortcutFocusReason:
      reachedByKeyboard_ = true;
      break;
    case Qt::MouseFocusReason:
      reachedByKeyboard_ = false;
      break;
    default:
      // The focus comes back from a menu or another window: as it was.
      break;
  }
}

}  // namespace tarnwell::host_qt
