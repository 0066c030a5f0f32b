#include "kit/controls/PopUpButton.h"

#include <algorithm>
#include <utility>

#include "diagnostics/Fault.h"
#include "kit/host/Host.h"

namespace tarnwell::kit {

void PopUpButton::setItems(std::vector<Item> items) {
  if (items != items_) {
    items_ = std::move(items);
    selected_ = std::min(selected_, static_cast<int>(items_.size()) - 1);
    changed(Aspect::title);
  }
}

void PopUpButton::setSelectedIndex(int index) {
  if (index < -1 || index >= static_cast<int>(items_.size())) {
    diagnostics::fault("a pop-up button was told to select an item that it does not have");
  }
  if (std::exchange(selected_, index) != index) {
    changed(Aspect::value);
  }
}

void PopUpButton::choose(int index) {
  if (!isEnabled() || index == selected_) {
    return;
  }
  setSelectedIndex(index);
  send([action = action_, index] {
    if (action) {
      action(index);
    }
  });
}

std::unique_ptr<Peer> PopUpButton::makePeer(Host& host, Peer& parent) { return host.peer(*this, parent); }

Accessible PopUpButton::ownAccessible() const {
  return {.role = AccessibleRole::popUpButton,
          .value = selected_ >= 0 ? items_.at(static_cast<std::size_t>(selected_)).title : std::string(),
          .actions = {AccessibleAction::showMenu, AccessibleAction::choosePart}};
}

std::vector<AccessiblePart> PopUpButton::accessibleParts() const {
  std::vector<AccessiblePart> parts;
  for (const Item& item : items_) {
    parts.push_back({.name = item.title, .selected = static_cast<int>(parts.size()) == selected_});
  }
  return parts;
}

void PopUpButton::act(const AccessibleRequest& request) {
  if (request.action == AccessibleAction::choosePart) {
    choose(request.part);
  } else if (auto* menu = dynamic_cast<MenuPeer*>(peer())) {
    menu->openMenu();
  }
}

}  // namespace tarnwell::kit
