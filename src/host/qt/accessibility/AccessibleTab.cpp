#include "host/qt/accessibility/AccessibleTab.h"

#include "host/painted/TabGeometry.h"
#include "host/qt/controls/ControlLink.h"
#include "host/qt/look/Conversions.h"
#include "kit/controls/TabBar.h"

namespace tarnwell::host_qt {

QString AccessibleTab::text(QAccessible::Text kind) const {
  return kind == QAccessible::Name && isValid() ? toQString(part()->name) : QString();
}

QRect AccessibleTab::rect() const {
  if (!isValid()) {
    return {};
  }
  const QRect inBar = toQRect(host_painted::rectOfTab(static_cast<const kit::TabBar&>(*bar()), index_));
  return {bar_->mapToGlobal(inBar.topLeft()), inBar.size()};
}

QAccessible::State AccessibleTab::state() const {
  QAccessible::State state;
  const auto shown = part();
  state.selectable = true;
  state.invalid = !shown;
  state.selected = shown && shown->selected;
  state.focusable = true;
  state.focused = state.selected && bar_->hasFocus();
  state.disabled = shown && !bar()->isEnabled();
  return state;
}

void* AccessibleTab::interface_cast(QAccessible::InterfaceType type) {
  return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this) : nullptr;
}

void AccessibleTab::doAction(const QString& name) {
  if (isValid() && name == pressAction()) {
    bar()->perform({.action = kit::AccessibleAction::choosePart, .part = index_});
  }
}

kit::Control* AccessibleTab::bar() const {
  const ControlLink* link = ControlLink::of(bar_);
  return link != nullptr ? link->control() : nullptr;
}

std::optional<kit::AccessiblePart> AccessibleTab::part() const {
  const auto parts = bar() != nullptr ? bar()->accessibleParts() : std::vector<kit::AccessiblePart>();
  const auto index = static_cast<std::size_t>(index_);
  return index < parts.size() ? std::optional(parts[index]) : std::nullopt;
}

}  // namespace tarnwell::host_qt
