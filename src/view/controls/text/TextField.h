#pragma once

#include <memory>
#include <string>

#include "view/values/Binding.h"
#include "view/values/View.h"

namespace tarnwell::view {

/// A field for a number in the user's own notation. What was typed counts when it is committed; a text that is no
/// number changes nothing, and the field shows its value again.
struct TextField {
  std::string title = {};  ///< Hidden: the row carries the label.
  Binding<double> value = {};
  int mostFractionDigits = 6;
};

std::shared_ptr<MountedNode> makeNode(const TextField& field, const Place& place);

}  // namespace tarnwell::view
