#include "view/layout/Stack.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "view/tree/MountedNode.h"
#include "view/values/Alignment.h"
#include "view/values/PlainText.h"

namespace tarnwell::view {
namespace {

/// More than any window has, and still exact as a whole number of points.
constexpr double unbounded = 100000;

enum class Axis { horizontal, vertical };

/// Shares a length out among children: first to the least flexible, each taking what it wants of an even share of what
/// is left, so that the flexible ones end up alike; spacers get what remains.
class StackLayout {
 public:
  struct Item {
    MountedNode* node = nullptr;
    kit::Measurement measurement = {};
  };

  StackLayout(Axis axis, double spacing) : axis_(axis), spacing_(spacing) {}

  /// The children that take part, measured for `proposal`, in their order.
  std::vector<Item> measure(const std::vector<std::shared_ptr<MountedNode>>& children, kit::Proposal proposal) const;

  double length(kit::Size size) const { return axis_ == Axis::horizontal ? size.width : size.height; }
  double totalLength(const std::vector<Item>& items) const;

 private:
  kit::Proposal along(std::optional<double> length, kit::Proposal proposal) const;
  double flexibility(MountedNode& node, kit::Proposal proposal) const;
  /// Measures the item for that length.
  void take(Item& item, std::optional<double> length, kit::Proposal proposal) const;
  void share(std::vector<Item>& items, double room, kit::Proposal proposal) const;
  void shareAmongSpacers(std::vector<Item>& items, double part, kit::Proposal proposal) const;

  Axis axis_;
  double spacing_;
};

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
      takers.emplace_back(0, &item);
    }
  }
  if (takers.size() > 1) {
    for (auto& [flexible, item] : takers) {
      flexible = flexibility(*item->node, proposal);
    }
    // Of two that give way alike, the first takes first.
    std::ranges::sort(takers);
  }
  std::size_t left = takers.size();
  for (const auto& [flexible, item] : takers) {
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

using Items = std::vector<StackLayout::Item>;

std::string gap(double spacing) { return ", spacing " + plainText(spacing); }

class HStackNode final : public MountedNode {
 public:
  using MountedNode::MountedNode;

  std::string summary() const override {
    const std::string notCentred = onBaseline() ? "on baseline" : "at the top";
    return "HStack " + (isCentred() ? "centred" : notCentred) + gap(valueAs<HStack>().spacing);
  }

 protected:
  void apply() override { updateChildren(valueAs<HStack>().children, environment()); }

  bool laysOutLike(const Description& next) const override {
    const auto& stack = valueOf<HStack>(next);
    return stack.alignment == valueAs<HStack>().alignment && stack.spacing == valueAs<HStack>().spacing;
  }

  kit::Measurement layOut(kit::Proposal proposal) override {
    const Items items = layout().measure(children(), proposal);
    const double baseline = sharedBaseline(items);
    double height = 0;
    for (const auto& item : items) {
      height = std::max(height, top(item, baseline) + item.measurement.size.height);
    }
    return {.size = {.width = layout().totalLength(items), .height = height}, .firstBaseline = baseline};
  }

  void placeContent(const kit::Rect& frame) override {
    const Items items = layout().measure(children(), {.width = frame.width, .height = frame.height});
    const double baseline = sharedBaseline(items);
    double x = frame.x;
    for (const auto& item : items) {
      const kit::Size size = item.measurement.size;
      const double y = isCentred() ? (frame.height - size.height) / 2 : top(item, baseline);
      item.node->place({.x = x, .y = frame.y + y, .width = size.width, .height = size.height});
      x += size.width + valueAs<HStack>().spacing;
    }
  }

 private:
  StackLayout layout() const { return {Axis::horizontal, valueAs<HStack>().spacing}; }
  bool isCentred() const { return valueAs<HStack>().alignment == VerticalAlignment::center; }
  bool onBaseline() const { return valueAs<HStack>().alignment == VerticalAlignment::firstTextBaseline; }

  double sharedBaseline(const Items& items) const {
    double height = 0;
    double baseline = 0;
    for (const auto& item : items) {
      height = std::max(height, item.measurement.size.height);
      baseline = std::max(baseline, item.measurement.firstBaseline);
    }
    if (!onBaseline() && !items.empty()) {
      const auto& first = items.front().measurement;
      return (isCentred() ? (height - first.size.height) / 2 : 0) + first.firstBaseline;
    }
    return baseline;
  }

  double top(const StackLayout::Item& item, double baseline) const {
    return onBaseline() ? baseline - item.measurement.firstBaseline : 0;
  }
};

class VStackNode final : public MountedNode {
 public:
  using MountedNode::MountedNode;

  std::string summary() const override {
    return "VStack " + alignmentName(valueAs<VStack>().alignment) + gap(valueAs<VStack>().spacing);
  }

 protected:
  void apply() override { updateChildren(valueAs<VStack>().children, environment()); }

  bool laysOutLike(const Description& next) const override {
    const auto& stack = valueOf<VStack>(next);
    return stack.alignment == valueAs<VStack>().alignment && stack.spacing == valueAs<VStack>().spacing;
  }

  kit::Measurement layOut(kit::Proposal proposal) override {
    const Items items = layout().measure(children(), proposal);
    double width = 0;
    for (const auto& item : items) {
      width = std::max(width, item.measurement.size.width);
    }
    return {.size = {.width = width, .height = layout().totalLength(items)},
            .firstBaseline = items.empty() ? 0 : items.front().measurement.firstBaseline};
  }

  void placeContent(const kit::Rect& frame) override {
    const Items items = layout().measure(children(), {.width = frame.width, .height = frame.height});
    double y = frame.y;
    for (const auto& item : items) {
      const kit::Size size = item.measurement.size;
      const double x = aligned(valueAs<VStack>().alignment, size.width, frame.width);
      item.node->place({.x = frame.x + x, .y = y, .width = size.width, .height = size.height});
      y += size.height + valueAs<VStack>().spacing;
    }
  }

 private:
  StackLayout layout() const { return {Axis::vertical, valueAs<VStack>().spacing}; }
};

}  // namespace

std::shared_ptr<MountedNode> makeNode(const HStack& /*stack*/, const Place& place) {
  return std::make_shared<HStackNode>(place);
}

std::shared_ptr<MountedNode> makeNode(const VStack& /*stack*/, const Place& place) {
  return std::make_shared<VStackNode>(place);
}

}  // namespace tarnwell::view
