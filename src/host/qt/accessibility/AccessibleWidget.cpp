#include "host/qt/accessibility/AccessibleWidget.h"

#include <algorithm>

#include "host/qt/control/ControlLink.h"
#include "kit/control/Control.h"

namespace tarnwell::host_qt {
namespace {

bool isDecoration(QObject* object) {
  const ControlLink* link = ControlLink::of(object);
  const kit::Control* control = link != nullptr ? link->control() : nullptr;
  return control != nullptr && control->accessible().role == kit::AccessibleRole::decoration;
}

}  // namespace

int AccessibleWidget::childCount() const { return static_cast<int>(children().size()); }

QAccessibleInterface* AccessibleWidget::child(int index) const { return children().value(index); }

int AccessibleWidget::indexOfChild(const QAccessibleInterface* child) const {
  const auto all = children();
  const auto found = std::find(all.begin(), all.end(), child);
  return found != all.end() ? static_cast<int>(found - all.begin()) : -1;
}

QList<QAccessibleInterface*> AccessibleWidget::children() const {
  QList<QAccessibleInterface*> found;
  for (int i = 0; i < QAccessibleWidget::childCount(); ++i) {
    QAccessibleInterface* child = QAccessibleWidget::child(i);
    if (child != nullptr && !isDecoration(child->object())) {
      found += child;
    }
  }
  return found;
}

}  // namespace tarnwell::host_qt
