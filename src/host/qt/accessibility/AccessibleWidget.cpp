#include "host/qt/accessibility/AccessibleWidget.h"

#include <algorithm>

#include "host/qt/controls/ControlLink.h"
#include "kit/controls/Control.h"

namespace tarnwell::host_qt {
namespace {

bool isDecoration(QObject* object) {
  const ControlLink* link = ControlLink::of(object);
  return link != nullptr && link->control() != nullptr && link->control()->isDecoration();
}

}  // namespace

int AccessibleWidget::childCount() const { return static_cast<int>(meaningful().size()); }

QAccessibleInterface* AccessibleWidget::child(int index) const { return meaningful().value(index); }

int AccessibleWidget::indexOfChild(const QAccessibleInterface* child) const {
  const auto children = meaningful();
  const auto found = std::find(children.begin(), children.end(), child);
  return found != children.end() ? static_cast<int>(found - children.begin()) : -1;
}

QList<QAccessibleInterface*> AccessibleWidget::meaningful() const {
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
