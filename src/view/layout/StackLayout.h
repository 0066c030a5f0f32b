#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "view/tree/MountedNode.h"

namespace tarnwell::view {

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
  double breadth(kit::Size size) const { return axis_ == Axis::horizontal ? size.height : size.width; }
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

}  // namespace tarnwell::view
