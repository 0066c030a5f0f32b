#include "view/layout/Stack.h"

#include <algorithm>

#include "view/layout/StackLayout.h"
#include "view/values/Alignment.h"
#include "view/values/PlainText.h"

namespace tarnwell::view {
namespace {

using Items = std::vector<StackLayout::Item>;

std::string gap(double spacing) { return ", spacing " + plainText(spacing); }

class HStackNode final : public MountedNode {
 public:
  using MountedNode::MountedNode;

  std::string summary() const override {
    return std::string("HStack ") + (onBaseline() ? "on baseline" : "centred") + gap(valueAs<HStack>().spacing);
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
      const double y = onBaseline() ? top(item, baseline) : (frame.height - size.height) / 2;
      item.node->place({.x = x, .y = frame.y + y, .width = size.width, .height = size.height});
      x += size.width + valueAs<HStack>().spacing;
    }
  }

 private:
  StackLayout layout() const { return {Axis::horizontal, valueAs<HStack>().spacing}; }
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
      return (height - first.size.height) / 2 + first.firstBaseline;
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
