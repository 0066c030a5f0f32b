#pragma once

#include <memory>
#include <vector>

#include "view/values/View.h"

namespace tarnwell::view {

/// A page of settings in the grouped style: sections one under another, which scroll where they lack room.
struct Form {
  std::vector<View> sections = {};
};

std::shared_ptr<MountedNode> makeNode(const Form& form, const Place& place);

}  // namespace tarnwell::view
