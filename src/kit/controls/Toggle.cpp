#include "kit/controls/Toggle.h"

#include <utility>

#include "kit/host/Host.h"

namespace tarnwell::kit {

void Toggle::setStyle(Style style) {
  if (std::exchange(style_, style) != style) {
    changed(Aspect::style);
  }
}

void Toggle::setTitle(std::string title) {
  if (title != title_) {
    title_ = std::move(title);
    changed(Aspect::title);
  }
}

void Toggle::setOn(bool on) {
  if (std::exchange(on_, on) != on) {
    changed(Aspect::value);
  }
}

void Toggle::choose(bool on) {
  if (!isEnabled() || on == on_) {
    refuse();
    return;
  }
  setOn(on);
  send([action = action_, on] {
    if (action) {
      action(on);
    }
  });
}

std::unique_ptr<Peer> Toggle::makePeer(Host& host, Peer& parent) { return host.peer(*this, parent); }

Accessible Toggle::ownAccessible() const {
  return {.role = AccessibleRole::toggle, .name = title_, .value = on_, .actions = {AccessibleAction::toggle}};
}

}  // namespace tarnwell::kit
