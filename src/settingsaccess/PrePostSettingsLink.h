#pragma once

#include "kit/turn/Action.h"
#include "view/tree/Composite.h"

namespace tarnwell::settingsaccess {

/// A button that opens the settings window when it is pressed, with an action before and one after.
struct PrePostSettingsLink {
  view::View label;
  kit::Action preAction = [] {};
  kit::Action postAction = [] {};

  view::View body() const;
};

}  // namespace tarnwell::settingsaccess
