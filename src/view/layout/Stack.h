#pragma once

#include <memory>
#include <vector>

#include "kit/host/TextStyle.h"
#include "view/values/View.h"

namespace tarnwell::view {

enum class VerticalAlignment { top, center, firstTextBaseline };

/// Children side by side.
struct HStack {
  VerticalAlignment alignment = VerticalAlignment::center;
  double spacing = 8;
  std::vector<View> children = {};
};

/// Children one under another.
struct VStack {
  kit::TextAlignment alignment = kit::TextAlignment::center;
  double spacing = 2;
  std::vector<View> children = {};
};

std::shared_ptr<MountedNode> makeNode(const HStack& stack, const Place& place);
std::shared_ptr<MountedNode> makeNode(const VStack& stack, const Place& place);

}  // namespace tarnwell::view
