#pragma once

#include <memory>

#include "view/values/View.h"

namespace tarnwell::view {

/// Takes the room that nothing else wants.
struct Spacer {
  double minLength = 0;
  friend bool operator==(const Spacer&, const Spacer&) = default;
};

/// Nothing: no room, no gap. Stands where a row is absent, so that its neighbours keep their places.
struct EmptyView {
  friend bool operator==(const EmptyView&, const EmptyView&) = default;
};

std::shared_ptr<MountedNode> makeNode(const Spacer& spacer, const Place& place);
std::shared_ptr<MountedNode> makeNode(const EmptyView& empty, const Place& place);

}  // namespace tarnwell::view
