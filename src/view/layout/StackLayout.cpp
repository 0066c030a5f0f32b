#include "view/layout/StackLayout.h"

#include <algorithm>
#include <utility>

namespace tarnwell::view {
namespace {

/// More than any window has, and still exact as a whole number of points.
constexpr double unbounded = 100000;

}  // namespace

std::vector<StackLayout::Item> StackLayout::measure(const std::vector<std::shared_ptr<MountedNode>>& children,
                                                    kit::Proposal proposal) const {
  std::vector<Item> items;
  items.reserve(children.size());
  for (const auto& child : children) {
    if (!child->isEmpty()) {
      items.push_back({.node = child.get()});
    }
  }
  const std::optional<double> room = axis_ == Axis::horizontal ? proposal.width : proposal.height;
  if (room) {
    const double gaps = items.empty() ? 0 : spacing_ * static_cast<double>(items.size() - 1);
    share(items, *room - gaps, proposal);
  } else {
    for (Item& item : items) {
      take(item, std::nullopt, proposal);
    }
  }
  return items;
}

double StackLayout::totalLength(const std::vector<Item>& items) const {
  double total = items.empty() ? 0 : spacing_ * static_cast<double>(items.size() - 1);
  for (const Item& item : items) {
    total += length(item.measurement.size);
  }
  return total;
}

kit::Proposal StackLayout::along(std::optional<double> length, kit::Proposal proposal) const {
  if (axis_ == Axis::horizontal) {
    return {.width = length, .height = proposal.height};
  }
  return {.width = proposal.width, .height = length};
}

double StackLayout::flexibility(MountedNode& node, kit::Proposal proposal) const {
  return length(node.measure(along(unbounded, proposal)).size) - length(node.measure(along(0, proposal)).size);
}

void StackLayout::take(Item& item, std::optional<double> length, kit::Proposal proposal) const {
  item.measurement = item.node->measure(along(length, proposal));
  if (item.node->isSpacer()) {
    (axis_ == Axis::horizontal ? item.measurement.size.height : item.measurement.size.width) = 0;
  }
}

void StackLayout::share(std::vector<Item>& items, double room, kit::Proposal proposal) const {
  std::vector<std::pair<double, Item*>> takers;
  takers.reserve(items.size());
  double spacers = 0;
  for (Item& item : items) {
    if (item.node->isSpacer()) {
      // Its least length is not the others' to take.
      take(item, 0, proposal);
      room -= length(item.measurement.size);
      ++spacers;
    } else {
      takers.emplace_back(flexibility(*item.node, proposal), &item);
    }
  }
  // Of two that give way alike, the first takes first.
  std::ranges::sort(takers);
  std::size_t left = takers.size();
  for (const auto& [flexibility, item] : takers) {
    take(*item, std::max(0.0, room) / static_cast<double>(left--), proposal);
    room -= length(item->measurement.size);
  }
  if (spacers > 0) {
    shareAmongSpacers(items, std::max(0.0, room) / spacers, proposal);
  }
}

void StackLayout::shareAmongSpacers(std::vector<Item>& items, double part, kit::Proposal proposal) const {
  for (Item& item : items) {
    if (item.node->isSpacer()) {
      take(item, length(item.measurement.size) + part, proposal);
    }
  }
}

}  // namespace tarnwell::view
