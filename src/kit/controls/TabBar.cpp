#include "kit/controls/TabBar.h"

#include <utility>

#include "diagnostics/Fault.h"
#include "kit/host/Host.h"

namespace tarnwell::kit {

void TabBar::setTabs(std::vector<Tab> tabs) {
  if (tabs != tabs_) {
    tabs_ = std::move(tabs);
    changed(Aspect::title);
  }
}

void TabBar::setSelectedIndex(int index) {
  if (index < -1 || index >= static_cast<int>(tabs_.size())) {
    diagnostics::fault("a tab bar was told to select a tab that it does not have");
  }
  if (std::exchange(selected_, index) != index) {
    changed(Aspect::value);
  }
}

void TabBar::choose(int index) {
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

void TabBar::chooseBeside(int distance) {
  const int count = static_cast<int>(tabs_.size());
  if (count > 0) {
    choose(((selected_ + distance) % count + count) % count);
  }
}

std::unique_ptr<Peer> TabBar::makePeer(Host& host, Peer& parent) { return host.peer(*this, parent); }

Accessible TabBar::ownAccessible() const {
  return {.role = AccessibleRole::tabBar, .actions = {AccessibleAction::choosePart}};
}

std::vector<AccessiblePart> TabBar::accessibleParts() const {
  std::vector<AccessiblePart> parts;
  for (const Tab& tab : tabs_) {
    parts.push_back({.name = tab.title, .selected = static_cast<int>(parts.size()) == selected_});
  }
  return parts;
}

}  // namespace tarnwell::kit
