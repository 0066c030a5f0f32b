#include "kit/controls/TabBar.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "diagnostics/Fault.h"
#include "kit/controls/ControlMetrics.h"
#include "kit/host/Host.h"

namespace tarnwell::kit {
namespace {

// In proportion: what makes a tab higher is a larger text, which is wider as well.
double tabWidth(double height) { return std::round(metrics::tab.width * height / metrics::tab.height); }

}  // namespace

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

Rect TabBar::rectOfTab(int index) const {
  const double height = std::max(metrics::tab.height, bounds().height - 2 * metrics::tabBarInset);
  const double width = tabWidth(height);
  const double all = width * static_cast<double>(tabs_.size());
  return {.x = (bounds().width - all) / 2 + width * index, .y = metrics::tabBarInset, .width = width, .height = height};
}

std::unique_ptr<Peer> TabBar::makePeer(Host& host, Peer& parent) { return host.peer(*this, parent); }

Measurement TabBar::measure(const TextMeasurer& text, Proposal proposal) const {
  const double title = metrics::tabTitleTop + text.lineHeight(FontRole::subheadline) + metrics::tabTitleBelow;
  const double height = std::max(metrics::tab.height, title);
  const double all = tabWidth(height) * static_cast<double>(tabs_.size());
  return {.size = {.width = proposal.width.value_or(all), .height = height + 2 * metrics::tabBarInset}};
}

Accessible TabBar::ownAccessible() const {
  return {.role = AccessibleRole::tabBar, .actions = {AccessibleAction::choosePart}};
}

std::vector<AccessiblePart> TabBar::accessibleParts() const {
  std::vector<AccessiblePart> parts;
  for (const Tab& tab : tabs_) {
    const int index = static_cast<int>(parts.size());
    parts.push_back({.name = tab.title, .selected = index == selected_, .frame = rectOfTab(index)});
  }
  return parts;
}

}  // namespace tarnwell::kit
