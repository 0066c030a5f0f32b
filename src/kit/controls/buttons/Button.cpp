#include "kit/controls/buttons/Button.h"

#include <utility>

namespace tarnwell::kit {

void Button::click() {
  if (isEnabled()) {
    send(deferred(action_));
  }
}

Accessible Button::ownAccessible() const {
  return {.role = AccessibleRole::button, .name = title_, .actions = {AccessibleAction::press}, .isDefault = default_};
}

}  // namespace tarnwell::kit
