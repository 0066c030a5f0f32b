#pragma once

#include <memory>
#include <optional>
#include <string>

#include "kit/controls/buttons/Button.h"
#include "kit/turn/Action.h"
#include "view/values/View.h"

namespace tarnwell::view {

enum class KeyboardShortcut { none, defaultAction };

/// A push button in a window, an entry in a menu. It is drawn by the style of its environment, if there is one.
struct Button {
  std::string title = {};
  kit::Button::Role role = kit::Button::Role::none;
  KeyboardShortcut keyboardShortcut = KeyboardShortcut::none;
  kit::Action action = {};
  /// Instead of a title. Only its text is shown.
  std::optional<View> label = std::nullopt;
};

std::shared_ptr<MountedNode> makeNode(const Button& button, const Place& place);

}  // namespace tarnwell::view
