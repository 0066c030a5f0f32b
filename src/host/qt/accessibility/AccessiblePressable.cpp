#include "host/qt/accessibility/AccessiblePressable.h"

#include <QtGui/QKeyEvent>
#include <QtWidgets/QApplication>
#include <QtWidgets/QMenu>
#include <QtWidgets/QWidget>

#include "host/qt/look/Conversions.h"
#include "kit/controls/Button.h"
#include "kit/controls/PopUpButton.h"
#include "kit/controls/Toggle.h"

namespace tarnwell::host_qt {

void AccessiblePressable::perform(const QString& name) {
  if (name == actionName()) {
    press();
  } else {
    AccessibleControl::perform(name);
  }
}

QAccessible::State AccessibleButton::state() const {
  QAccessible::State state = AccessiblePressable::state();
  const auto* button = control<kit::Button>();
  state.defaultButton = button != nullptr && button->isDefault();
  return state;
}

QString AccessibleButton::ownName() const { return toQString(control<kit::Button>()->title()); }

void AccessibleButton::press() { control<kit::Button>()->click(); }

QAccessible::State AccessibleToggle::state() const {
  QAccessible::State state = AccessiblePressable::state();
  const auto* toggle = control<kit::Toggle>();
  state.checkable = true;
  state.checked = toggle != nullptr && toggle->isOn();
  return state;
}

void AccessibleToggle::press() { control<kit::Toggle>()->press(); }

QString AccessiblePopUpButton::text(QAccessible::Text kind) const {
  QString told = AccessiblePressable::text(kind);
  const auto* button = control<kit::PopUpButton>();
  const bool tellsChoice = kind == QAccessible::Value || kind == QAccessible::Description;
  if (!tellsChoice || button == nullptr || button->selectedIndex() < 0) {
    return told;
  }
  const QString chosen = toQString(button->items().at(static_cast<std::size_t>(button->selectedIndex())).title);
  return told.isEmpty() ? chosen : chosen + ". " + told;
}

QAccessible::State AccessiblePopUpButton::state() const {
  QAccessible::State state = AccessiblePressable::state();
  state.hasPopup = true;
  return state;
}

QAccessibleInterface* AccessiblePopUpButton::child(int index) const {
  return index == 0 && childCount() == 1 ? QAccessible::queryAccessibleInterface(openMenu()) : nullptr;
}

int AccessiblePopUpButton::indexOfChild(const QAccessibleInterface* child) const {
  return child != nullptr && childCount() == 1 && child->object() == openMenu() ? 0 : -1;
}

QMenu* AccessiblePopUpButton::openMenu() const {
  auto* menu = widget()->findChild<QMenu*>(QString(), Qt::FindDirectChildrenOnly);
  return menu != nullptr && menu->isVisible() ? menu : nullptr;
}

void AccessiblePopUpButton::press() {
  // The widget opens its menu for the space bar; there is no second way to open it.
  QKeyEvent space(QEvent::KeyPress, Qt::Key_Space, Qt::NoModifier, " ");
  QApplication::sendEvent(widget(), &space);
}

}  // namespace tarnwell::host_qt
