#include "view/StackLayout.h"

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
      item.measurement = item.node->measure(along(std::nullopt, proposal));
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
  if (node.isSpacer()) {
    return 2 * unbounded;
  }
  return length(node.measure(along(unbounded, proposal)).size) - length(node.measure(along(0, proposal)).size);
}

void StackLayout::share(std::vector<Item>& items, double room, kit::Proposal proposal) const {
  std::vector<std::pair<double, Item*>> order;
  for (Item& item : items) {
    order.emplace_back(flexibility(*item.node, proposal), &item);
    if (item.node->isSpacer()) {
      // Its least length is not the others' to take.
      room -= length(item.node->measure(along(0, proposal)).size);
    }
  }
  std::ranges::stable_sort(order, {}, [](const auto& entry) { return entry.first; });
  for (std::size_t i = 0; i < order.size(); ++i) {
    Item& item = *order[i].second;
    const double reserved = item.node->isSpacer() ? length(item.node->measure(along(0, proposal)).size) : 0;
    const double part = std::max(0.0, room) / static_cast<double>(order.size() - i) + reserved;
    item.measurement = item.node->measure(along(part, proposal));
    room -= length(item.measurement.size) - reserved;
  }
}

}  // namespace tarnwell::view
