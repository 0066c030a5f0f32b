#include "host/qt/accessibility/Accessibility.h"

#include <QtGui/QAccessible>
#include <QtWidgets/QLineEdit>

#include "host/qt/accessibility/AccessibleControl.h"
#include "host/qt/accessibility/AccessibleTextField.h"
#include "host/qt/controls/Announcement.h"
#include "host/qt/controls/ControlLink.h"
#include "host/qt/controls/ScrollBarOverlay.h"
#include "host/qt/window/WindowWidget.h"

namespace tarnwell::host_qt {
namespace {

QAccessibleInterface* accessibleFor(QWidget* widget, ControlLink& link) {
  auto* edit = qobject_cast<QLineEdit*>(widget);
  return edit != nullptr ? new AccessibleTextField(edit, link) : new AccessibleControl(widget, link);
}

QAccessibleInterface* accessible(const QString& className, QObject* object) {
  ControlLink* link = ControlLink::of(object);
  // Asked for each class of an object, from its own up; the toolkit has an answer of its own for line edits.
  const bool isField = link != nullptr && className == QLatin1String("QLineEdit");
  if (!isField && className != QLatin1String("QWidget")) {
    return nullptr;
  }
  if (dynamic_cast<WindowWidget*>(object) != nullptr) {
    return new AccessibleWidget(static_cast<QWidget*>(object), QAccessible::Window);
  }
  if (dynamic_cast<ScrollBarOverlay*>(object) != nullptr) {
    return new QAccessibleWidget(static_cast<QWidget*>(object), QAccessible::ScrollBar);
  }
  auto* widget = static_cast<QWidget*>(object);
  if (widget->windowType() == Qt::Dialog) {
    return new QAccessibleWidget(widget, QAccessible::Dialog);
  }
  const bool shows = link != nullptr && link->control() != nullptr;
  return shows ? accessibleFor(widget, *link) : new AccessibleWidget(widget);
}

// Where a screen reader is active, every event goes through here.
void deliver(QAccessibleEvent* event) {
  if (isWorthTelling(*event)) {
    const auto again = QAccessible::installUpdateHandler(nullptr);
    QAccessible::updateAccessibility(event);
    QAccessible::installUpdateHandler(again);
  }
}

}  // namespace

void installAccessibility() {
  QAccessible::installFactory(&accessible);
  QAccessible::installUpdateHandler(&deliver);
}

}  // namespace tarnwell::host_qt
