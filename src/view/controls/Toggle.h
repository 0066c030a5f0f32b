#pragma once

#include <memory>
#include <string>

#include "view/values/Binding.h"
#include "view/values/View.h"

namespace tarnwell::view {

/// A switch.
struct Toggle {
  std::string title = {};  ///< Hidden: the row carries the label.
  Binding<bool> isOn = {};
};

std::shared_ptr<MountedNode> makeNode(const Toggle& toggle, const Place& place);

}  // namespace tarnwell::view
