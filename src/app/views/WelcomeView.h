#pragma once

#include <functional>
#include <memory>
#include <string>

#include "settingsaccess/OpenSettingsAccessAction.h"
#include "view/tree/Composite.h"

namespace tarnwell::app {

/// The content of the launcher window, which stands for a moment at most: when it appears, it brings the application to
/// the front, has the settings opened by their key, and closes itself.
struct WelcomeView {
  static constexpr const char* launcherIdentifier = "settingslauncher";

  /// Held; the key press is what opens the settings.
  std::shared_ptr<settingsaccess::OpenSettingsAccessAction> openSettingsLegacy = {};
  std::function<void(const std::string&)> dismissWindow = {};

  view::View body() const;
};

}  // namespace tarnwell::app
