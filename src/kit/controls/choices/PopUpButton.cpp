#include "kit/controls/choices/PopUpButton.h"

namespace tarnwell::kit {

Accessible PopUpButton::ownAccessible() const {
  return {.role = AccessibleRole::popUpButton,
          .value = selectedIndex() >= 0 ? items().at(static_cast<std::size_t>(selectedIndex())).title : std::string(),
          .actions = {AccessibleAction::showMenu, AccessibleAction::choosePart}};
}

void PopUpButton::act(const AccessibleRequest& request) {
  if (request.action == AccessibleAction::choosePart) {
    ChoiceControl::act(request);
  } else if (auto* menu = dynamic_cast<MenuPeer*>(peer())) {
    menu->openMenu();
  }
}

}  // namespace tarnwell::kit
