#include "host/qt/AccessibleControl.h"

#include "host/qt/Conversions.h"
#include "kit/Control.h"

namespace tarnwell::host_qt {

QString AccessibleControl::text(QAccessible::Text kind) const {
  const auto* shown = control<kit::Control>();
  if (kind != QAccessible::Name || shown == nullptr) {
    return QAccessibleWidget::text(kind);
  }
  const QString given = toQString(shown->accessibleName());
  return given.isEmpty() ? ownName() : given;
}

}  // namespace tarnwell::host_qt
