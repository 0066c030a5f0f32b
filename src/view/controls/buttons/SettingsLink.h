#pragma once

#include <tuple>

#include "view/state/Environment.h"
#include "view/tree/Composite.h"

namespace tarnwell::view {

/// How the settings window is opened; the application's scenes set it. Does nothing where there is no settings scene.
struct OpenSettingsSceneKey {
  using Value = kit::Action;
  static Value initial() {
    return [] {};
  }
};

/// A button that opens the settings window.
struct SettingsLink {
  View label;
  Environment<OpenSettingsSceneKey> openSettings = {};

  auto stored() { return std::tie(openSettings); }
  View body() const;
};

}  // namespace tarnwell::view
