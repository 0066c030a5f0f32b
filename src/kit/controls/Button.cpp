#include "kit/controls/Button.h"

#include <utility>

#include "kit/host/Host.h"

namespace tarnwell::kit {

void Button::setTitle(std::string title) {
  if (title != title_) {
    title_ = std::move(title);
    changed(Aspect::title);
  }
}

void Button::setBezelStyle(BezelStyle style) {
  if (std::exchange(bezelStyle_, style) != style) {
    changed(Aspect::style);
  }
}

void Button::setRole(Role role) {
  if (std::exchange(role_, role) != role) {
    changed(Aspect::style);
  }
}

void Button::setDefault(bool isDefault) {
  if (std::exchange(default_, isDefault) != isDefault) {
    changed(Aspect::style);
  }
}

void Button::click() {
  if (!isEnabled()) {
    return;
  }
  send([action = action_] {
    if (action) {
      action();
    }
  });
}

std::unique_ptr<Peer> Button::makePeer(Host& host, Peer& parent) { return host.peer(*this, parent); }

Accessible Button::ownAccessible() const {
  return {.role = AccessibleRole::button, .name = title_, .actions = {AccessibleAction::press}, .isDefault = default_};
}

}  // namespace tarnwell::kit
