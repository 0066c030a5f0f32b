#pragma once

#include <memory>
#include <string>

#include "view/values/View.h"

namespace tarnwell::view {

/// A text in the font and colour of its environment, broken into lines where it lacks room.
struct Text {
  std::string text = {};
  friend bool operator==(const Text&, const Text&) = default;
};

std::shared_ptr<MountedNode> makeNode(const Text& text, const Place& place);

}  // namespace tarnwell::view
