#pragma once

#include <memory>
#include <string>

#include "kit/controls/Button.h"
#include "kit/turn/Action.h"
#include "view/values/View.h"

namespace tarnwell::view {

/// A button that no style draws any more.
struct PlainButton {
  std::string title = {};
  kit::Button::Role role = kit::Button::Role::none;
  bool isDefault = false;
  kit::Action action = {};
};

std::shared_ptr<MountedNode> makeNode(const PlainButton& button, const Place& place);

}  // namespace tarnwell::view
