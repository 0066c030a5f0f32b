#pragma once

#include <optional>

#include "kit/application/Application.h"
#include "kit/turn/Action.h"
#include "view/controls/buttons/ButtonStyle.h"
#include "view/values/Binding.h"
#include "view/values/View.h"

namespace tarnwell::settingsaccess {

/// Runs actions around a button's own, and hands out an action that presses the button without them.
struct PrePostActionsButtonStyle {
  std::optional<kit::Action> preAction = std::nullopt;
  std::optional<kit::Action> postAction = std::nullopt;
  /// Written on a later turn of the main queue, after each drawing. Without functions nothing is written.
  view::Binding<std::optional<kit::Action>> _performAction = {};

  view::View makeBody(const view::ButtonConfiguration& configuration) const;
};

/// Applies the style to the buttons of its content.
struct PrePostActionsButtonStyleModifier {
  std::optional<kit::Action> preAction = std::nullopt;
  std::optional<kit::Action> postAction = std::nullopt;
  view::Binding<std::optional<kit::Action>> _performAction = {};

  view::View body(const view::View& content) const;
};

}  // namespace tarnwell::settingsaccess
