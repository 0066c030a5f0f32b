#include "host/qt/AccessibleControl.h"

#include "host/qt/Conversions.h"
#include "host/qt/WindowPeer.h"
#include "kit/Control.h"
#include "kit/Window.h"

namespace tarnwell::host_qt {

QString AccessibleControl::text(QAccessible::Text kind) const {
  const auto* shown = control<kit::Control>();
  if (kind != QAccessible::Name || shown == nullptr) {
    return QAccessibleWidget::text(kind);
  }
  const QString given = toQString(shown->accessibleName());
  return given.isEmpty() ? ownName() : given;
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
