#include "kit/controls/choices/TabBar.h"

namespace tarnwell::kit {

void TabBar::chooseBeside(int distance) {
  const int count = static_cast<int>(items().size());
  if (count > 0) {
    choose(((selectedIndex() + distance) % count + count) % count);
  }
}

Accessible TabBar::ownAccessible() const {
  return {.role = AccessibleRole::tabBar, .actions = {AccessibleAction::choosePart}};
}

}  // namespace tarnwell::kit
