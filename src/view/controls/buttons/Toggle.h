#pragma once

#include <memory>
#include <string>

#include "kit/controls/buttons/Toggle.h"
#include "view/values/Binding.h"
#include "view/values/View.h"

namespace tarnwell::view {

/// A switch, or a check box.
struct Toggle {
  std::string title = {};  ///< A switch hides it: the row carries the label.
  Binding<bool> isOn = {};
  kit::Toggle::Style style = kit::Toggle::Style::slidingSwitch;
};

std::shared_ptr<MountedNode> makeNode(const Toggle& toggle, const Place& place);

}  // namespace tarnwell::view
