#include "host/qt/control/WidgetPeer.h"

#include "host/qt/control/Announcement.h"
#include "host/qt/control/ControlLink.h"
#include "host/qt/look/Conversions.h"
#include "kit/control/Control.h"

namespace tarnwell::host_qt {
namespace {

// Else Qt hands the focus to the next control as if the user had gone there.
void giveUpFocus(QWidget& widget) {
  if (widget.hasFocus()) {
    widget.window()->setFocus(Qt::OtherFocusReason);
  }
}

}  // namespace

WidgetPeer::WidgetPeer(kit::Control& control, QWidget* widget) : control_(control), widget_(widget) {}

WidgetPeer::~WidgetPeer() {
  if (!widget_) {
    return;
  }
  ControlLink::of(widget_)->cut();
  giveUpFocus(*widget_);
  widget_->hide();
  widget_->deleteLater();
}

void WidgetPeer::show(kit::Aspect aspect) noexcept {
  if (!widget_) {
    return;
  }
  switch (aspect) {
    case kit::Aspect::enabled:
      showEnabled();
      break;
    case kit::Aspect::accessibleName:
    case kit::Aspect::accessibleDescription:
      break;
    default:
      ControlLink::of(widget_)->showState();
      ControlLink::of(widget_)->stateChanged();
      break;
  }
  announceChange(*widget_, control_, aspect);
}

void WidgetPeer::place(const kit::Rect& frame) noexcept {
  if (widget_) {
    widget_->setGeometry(toQRect(frame));
    widget_->setVisible(true);
    placed();
  }
}

QWidget* WidgetPeer::widgetOf(const kit::Control& control) {
  const auto* peer = dynamic_cast<const WidgetPeer*>(control.peer());
  return peer != nullptr ? peer->widget() : nullptr;
}

bool WidgetPeer::canEdit(const kit::Selector& command) const {
  return widget_ && ControlLink::of(widget_)->canEdit(command);
}

void WidgetPeer::edit(const kit::Selector& command) {
  if (canEdit(command)) {
    ControlLink::of(widget_)->edit(command);
  }
}

void WidgetPeer::showEnabled() {
  const auto* link = ControlLink::of(widget_);
  // With the keyboard the user goes on from the next control; a press with the mouse was no step to anywhere.
  if (!control_.isEnabled() && !link->showsFocus()) {
    giveUpFocus(*widget_);
  }
  widget_->setEnabled(control_.isEnabled());
}

}  // namespace tarnwell::host_qt
