#pragma once

#include <memory>
#include <string>

#include "kit/controls/ranges/Stepper.h"
#include "view/values/Binding.h"
#include "view/values/View.h"

namespace tarnwell::view {

/// Two arrows that step a number within a range.
struct Stepper {
  std::string title = {};  ///< Hidden: the row carries the label.
  Binding<double> value = {};
  kit::Stepper::Range range = {};
};

std::shared_ptr<MountedNode> makeNode(const Stepper& stepper, const Place& place);

}  // namespace tarnwell::view
