#pragma once

#include <memory>

#include "view/values/View.h"

namespace tarnwell::view {

/// A line between entries of a menu.
struct Divider {};

std::shared_ptr<MountedNode> makeNode(const Divider& divider, const Place& place);

}  // namespace tarnwell::view
