#pragma once

#include <memory>
#include <string>

#include "kit/Action.h"
#include "kit/Button.h"
#include "view/View.h"

namespace tarnwell::view {

enum class KeyboardShortcut { none, defaultAction };

struct Button {
  std::string title = {};
  kit::Button::Role role = kit::Button::Role::none;
  KeyboardShortcut keyboardShortcut = KeyboardShortcut::none;
  kit::Action action = {};
};

std::shared_ptr<MountedNode> makeNode(const Button& button, const Place& place);

}  // namespace tarnwell::view
