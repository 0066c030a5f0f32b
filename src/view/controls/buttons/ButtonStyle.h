#pragma once

#include <functional>
#include <optional>

#include "kit/controls/buttons/Button.h"
#include "kit/turn/Action.h"
#include "view/values/View.h"

namespace tarnwell::view {

/// What a style is given of the button that it draws. `trigger` performs the button's own action, and may be kept.
struct ButtonConfiguration {
  View label;
  std::optional<kit::Button::Role> role = std::nullopt;
  kit::Action trigger = {};
};

/// Makes the view that stands for a button. It is called once for each mounting or update, and its result sees no
/// style: a button in it is plain.
using PrimitiveButtonStyle = std::function<View(const ButtonConfiguration&)>;

/// Null for none.
struct ButtonStyleKey : KeyOf<PrimitiveButtonStyle> {};

}  // namespace tarnwell::view
