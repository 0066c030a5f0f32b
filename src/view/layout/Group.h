#pragma once

#include <memory>
#include <vector>

#include "view/values/View.h"

namespace tarnwell::view {

/// Several views where one is asked for. In a menu they follow one another; in a window they stand one under another.
struct Group {
  std::vector<View> children = {};
};

std::shared_ptr<MountedNode> makeNode(const Group& group, const Place& place);

}  // namespace tarnwell::view
