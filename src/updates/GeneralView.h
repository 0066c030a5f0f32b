#pragma once

#include <tuple>

#include "updates/UpdaterEnv.h"
#include "view/Composite.h"
#include "view/ObservableObject.h"
#include "view/State.h"

namespace tarnwell::updates {

/// The General tab: launch at login, and the updater's two preferences, each as the system holds it when it is shown.
struct GeneralView {
  view::EnvironmentObject<UpdaterEnv> updaterEnv = {};
  view::State<bool> checkForUpdatesAuto = false;
  view::State<bool> autoDownloadUpdates = false;

  auto stored() { return std::tie(updaterEnv, checkForUpdatesAuto, autoDownloadUpdates); }
  view::View body() const;

 private:
  view::View checkSwitch() const;
  view::View downloadSwitch() const;
};

}  // namespace tarnwell::updates
