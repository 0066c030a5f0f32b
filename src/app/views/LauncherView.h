#pragma once

#include <tuple>

#include "settingsaccess/OpenSettingsKey.h"
#include "view/scenes/SceneRunner.h"
#include "view/state/Environment.h"
#include "view/tree/Composite.h"

namespace tarnwell::app {

/// Builds the launcher's view with what it takes from the environment, inside the view that connects the settings.
struct LauncherView {
  view::Environment<settingsaccess::OpenSettingsKey> openSettingsLegacy = {};
  view::Environment<view::DismissWindowKey> dismissWindow = {};

  auto stored() { return std::tie(openSettingsLegacy, dismissWindow); }
  view::View body() const;
};

}  // namespace tarnwell::app
