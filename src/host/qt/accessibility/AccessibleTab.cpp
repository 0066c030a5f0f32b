#include "host/qt/accessibility/AccessibleTab.h"

#include "host/qt/accessibility/AccessibleTabBar.h"
#include "host/qt/controls/ControlLink.h"
#include "host/qt/look/Conversions.h"
#include "kit/controls/TabBar.h"

namespace tarnwell::host_qt {

bool AccessibleTab::isValid() const { return bar() != nullptr; }

QString AccessibleTab::text(QAccessible::Text kind) const {
  const kit::TabBar* shown = bar();
  if (kind != QAccessible::Name || shown == nullptr) {
    return {};
  }
  return toQString(shown->tabs().at(static_cast<std::size_t>(index_)).title);
}

QRect AccessibleTab::rect() const {
  const kit::TabBar* shown = bar();
  if (shown == nullptr) {
    return {};
  }
  const QRect inBar = toQRect(shown->rectOfTab(index_));
  return {bar_->mapToGlobal(inBar.topLeft()), inBar.size()};
}

QAccessible::State AccessibleTab::state() const {
  QAccessible::State state;
  const kit::TabBar* shown = bar();
  state.selectable = true;
  state.invalid = shown == nullptr;
  state.selected = shown != nullptr && shown->selectedIndex() == index_;
  state.focusable = true;
  state.focused = state.selected && bar_->hasFocus();
  state.disabled = shown != nullptr && !shown->isEnabled();
  return state;
}

void* AccessibleTab::interface_cast(QAccessible::InterfaceType type) {
  return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this) : nullptr;
}

void AccessibleTab::doAction(const QString& name) {
  if (bar() != nullptr && name == pressAction()) {
    static_cast<AccessibleTabBar*>(parent())->choose(index_);
  }
}

kit::TabBar* AccessibleTab::bar() const {
  const ControlLink* link = ControlLink::of(bar_);
  auto* shown = link != nullptr ? static_cast<kit::TabBar*>(link->control()) : nullptr;
  const bool exists = shown != nullptr && index_ < static_cast<int>(shown->tabs().size());
  return exists ? shown : nullptr;
}

}  // namespace tarnwell::host_qt
