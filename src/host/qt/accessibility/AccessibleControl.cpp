#include "host/qt/accessibility/AccessibleControl.h"

#include "host/qt/controls/WidgetPeer.h"
#include "host/qt/look/Conversions.h"
#include "host/qt/window/WindowPeer.h"
#include "kit/controls/Control.h"
#include "kit/controls/Window.h"

namespace tarnwell::host_qt {

QString AccessibleControl::text(QAccessible::Text kind) const {
  const auto* shown = control<kit::Control>();
  if (shown != nullptr && kind == QAccessible::Name) {
    const QString given = toQString(shown->accessibleName());
    return given.isEmpty() ? ownName() : given;
  }
  if (shown != nullptr && kind == QAccessible::Description) {
    return toQString(shown->accessibleDescription());
  }
  return QAccessibleWidget::text(kind);
}

QVector<AccessibleControl::Relation> AccessibleControl::relations(QAccessible::Relation match) const {
  QVector<Relation> found = QAccessibleWidget::relations(match);
  const auto* shown = control<kit::Control>();
  const kit::Control* label = shown != nullptr ? shown->label() : nullptr;
  QWidget* widget = label != nullptr ? WidgetPeer::widgetOf(*label) : nullptr;
  if (widget != nullptr && match.testFlag(QAccessible::Label)) {
    found.append({QAccessible::queryAccessibleInterface(widget), QAccessible::Label});
  }
  return found;
}

void AccessibleControl::doAction(const QString& name) {
  act([&] { perform(name); });
}

void AccessibleControl::act(const kit::Action& action) const {
  if (kit::Window* window = WindowPeer::windowOf(*widget())) {
    window->endEditing();
  }
  if (link_.control() != nullptr) {
    action();
  }
}

}  // namespace tarnwell::host_qt
