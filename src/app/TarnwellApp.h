#pragma once

#include <memory>
#include <vector>

#include "updates/UpdaterEnv.h"
#include "view/scenes/Scene.h"

namespace tarnwell::app {

/// The root of the application: its three scenes and its menu commands.
class TarnwellApp {
 public:
  /// The launcher window, the menu-bar extra and the settings, in this order.
  std::vector<view::Scene> body();

  /// The one updater environment, made when it or the scenes are first asked for; it lives as long as the process.
  const std::shared_ptr<updates::UpdaterEnv>& updaterEnv();

 private:
  std::shared_ptr<updates::UpdaterEnv> updaterEnv_;
};

}  // namespace tarnwell::app
