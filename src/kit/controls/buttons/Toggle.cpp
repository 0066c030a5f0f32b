#include "kit/controls/buttons/Toggle.h"

#include <utility>

namespace tarnwell::kit {

void Toggle::choose(bool on) {
  if (!isEnabled() || on == on_) {
    refuse();
    return;
  }
  setOn(on);
  send(deferred(action_, on));
}

Accessible Toggle::ownAccessible() const {
  return {.role = AccessibleRole::toggle, .name = title_, .value = on_, .actions = {AccessibleAction::toggle}};
}

}  // namespace tarnwell::kit
