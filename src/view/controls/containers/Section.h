#pragma once

#include <memory>
#include <vector>

#include "view/layout/Spacer.h"
#include "view/values/View.h"

namespace tarnwell::view {

/// A group of rows in a box of their own, with an optional footer under it. Without a row there is no box, and the
/// footer stands where the box would.
struct Section {
  std::vector<View> rows = {};
  View footer = EmptyView{};
};

std::shared_ptr<MountedNode> makeNode(const Section& section, const Place& place);

}  // namespace tarnwell::view
