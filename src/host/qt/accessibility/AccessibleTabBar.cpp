#include "host/qt/accessibility/AccessibleTabBar.h"

#include "host/qt/accessibility/AccessibleTab.h"
#include "kit/controls/TabBar.h"

namespace tarnwell::host_qt {

AccessibleTabBar::~AccessibleTabBar() {
  for (const QAccessible::Id tab : tabs_) {
    QAccessible::deleteAccessibleInterface(tab);
  }
}

int AccessibleTabBar::childCount() const {
  const auto* bar = control<kit::TabBar>();
  return bar != nullptr ? static_cast<int>(bar->tabs().size()) : 0;
}

QAccessibleInterface* AccessibleTabBar::child(int index) const {
  if (index < 0 || index >= childCount()) {
    return nullptr;
  }
  while (static_cast<int>(tabs_.size()) <= index) {
    auto* tab = new AccessibleTab(widget(), static_cast<int>(tabs_.size()));
    // NOLINTNEXTLINE(clang-analyzer-cplusplus.NewDeleteLeaks): what is registered belongs to the registry.
    tabs_.push_back(QAccessible::registerAccessibleInterface(tab));
  }
  return QAccessible::accessibleInterface(tabs_.at(static_cast<std::size_t>(index)));
}

QAccessibleInterface* AccessibleTabBar::childAt(int x, int y) const {
  for (int i = 0; i < childCount(); ++i) {
    if (child(i)->rect().contains(x, y)) {
      return child(i);
    }
  }
  return nullptr;
}

int AccessibleTabBar::indexOfChild(const QAccessibleInterface* child) const {
  const auto* tab = dynamic_cast<const AccessibleTab*>(child);
  return tab != nullptr ? tab->index() : -1;
}

QAccessibleInterface* AccessibleTabBar::focusChild() const {
  const auto* bar = control<kit::TabBar>();
  return bar != nullptr && widget()->hasFocus() ? child(bar->selectedIndex()) : nullptr;
}

void AccessibleTabBar::choose(int index) {
  act([&] { control<kit::TabBar>()->choose(index); });
}

}  // namespace tarnwell::host_qt
