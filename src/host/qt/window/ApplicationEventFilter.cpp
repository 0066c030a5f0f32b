#include "host/qt/window/ApplicationEventFilter.h"

#include <QtCore/QEvent>
#include <QtGui/QKeyEvent>
#include <QtWidgets/QApplication>
#include <QtWidgets/QMenuBar>

#include "host/qt/control/ControlLink.h"
#include "host/qt/controls/containers/ScrollAreaPeer.h"
#include "host/qt/window/WindowPeer.h"
#include "kit/control/Window.h"
#include "kit/controls/text/TextField.h"

namespace tarnwell::host_qt {
namespace {

bool isFieldInEditing(QObject* object) {
  const ControlLink* link = ControlLink::of(object);
  const auto* field = link != nullptr ? dynamic_cast<const kit::TextField*>(link->control()) : nullptr;
  return field != nullptr && field->isEditing();
}

// Only where the keyboard is: what a field does not take goes on to what it stands in. Escape takes an edit back.
bool isKeyForControl(const QObject* object, const QEvent& event) {
  return event.type() == QEvent::KeyPress && object == QApplication::focusWidget() &&
         static_cast<const QKeyEvent&>(event).key() != Qt::Key_Escape;
}

bool isPress(const QEvent& event) {
  return event.type() == QEvent::MouseButtonPress || event.type() == QEvent::MouseButtonDblClick;
}

// Commands of the main menu are about what is being typed.
bool isMenuBar(const QWidget* widget) { return qobject_cast<const QMenuBar*>(widget) != nullptr; }

}  // namespace

ApplicationEventFilter::ApplicationEventFilter(const Theme& theme) : theme_(theme) {
  qApp->installEventFilter(this);
  connect(qApp, &QApplication::focusChanged, this, [this](QWidget* /*from*/, QWidget* to) noexcept { focusMoved(to); });
}

bool ApplicationEventFilter::eventFilter(QObject* object, QEvent* event) noexcept {
  if (isPress(*event) || isKeyForControl(object, *event)) {
    endEditing(object);
  } else if (event->type() == QEvent::ApplicationFontChange && object == qApp && fontChanged_) {
    fontChanged_();
  }
  return false;
}

void ApplicationEventFilter::endEditing(QObject* target) {
  const auto* widget = qobject_cast<QWidget*>(target);
  if (widget == nullptr || isFieldInEditing(target) || isMenuBar(widget)) {
    return;
  }
  if (kit::Window* window = WindowPeer::windowOf(*widget)) {
    window->endEditing();
  }
}

void ApplicationEventFilter::focusMoved(QWidget* to) {
  // A menu only borrows the focus.
  if (to != nullptr && (to->window()->windowType() == Qt::Popup || isMenuBar(to))) {
    return;
  }
  delete ring_;
  ControlLink* link = ControlLink::of(to);
  if (kit::Window* window = to != nullptr ? WindowPeer::windowOf(*to) : nullptr) {
    window->setFocusedControl(link != nullptr ? link->control() : nullptr);
  }
  if (link == nullptr || link->control() == nullptr || !link->showsFocus()) {
    return;
  }
  ring_ = new FocusRing(*to, *link, theme_);
  ScrollAreaPeer::reveal(*to, link->focusShape());
}

}  // namespace tarnwell::host_qt
