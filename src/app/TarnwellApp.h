#pragma once

#include <memory>
#include <vector>

#include "updates/UpdaterEnv.h"
#include "view/Scene.h"

namespace tarnwell::app {

/// The root of the application: its three scenes and its menu commands. It owns the one updater environment, which is
/// made when the scenes are first installed and lives as long as the process.
class TarnwellApp {
 public:
  /// The launcher window, the menu-bar extra and the settings, in this order.
  std::vector<view::Scene> body();

 private:
  std::shared_ptr<updates::UpdaterEnv> updaterEnv_;
};

}  // namespace tarnwell::app
