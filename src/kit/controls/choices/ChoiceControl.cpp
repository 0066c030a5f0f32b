#include "kit/controls/choices/ChoiceControl.h"

#include <algorithm>
#include <utility>

#include "diagnostics/Fault.h"

namespace tarnwell::kit {

void ChoiceControl::setItems(std::vector<Item> items) {
  if (items != items_) {
    items_ = std::move(items);
    selected_ = std::min(selected_, static_cast<int>(items_.size()) - 1);
    changed(Aspect::title);
  }
}

void ChoiceControl::setSelectedIndex(int index) {
  if (index < -1 || index >= static_cast<int>(items_.size())) {
    diagnostics::fault("a control was told to select an item that it does not have");
  }
  set(selected_, index, Aspect::value);
}

void ChoiceControl::choose(int index) {
  if (!isEnabled() || index == selected_) {
    refuse();
    return;
  }
  setSelectedIndex(index);
  send(deferred(action_, index));
}

std::vector<AccessiblePart> ChoiceControl::accessibleParts() const {
  std::vector<AccessiblePart> parts;
  for (const Item& item : items_) {
    parts.push_back({.name = item.title, .selected = static_cast<int>(parts.size()) == selected_});
  }
  return parts;
}

}  // namespace tarnwell::kit
