#pragma once

#include <tuple>

#include "updates/UpdaterEnv.h"
#include "view/state/ObservableObject.h"
#include "view/state/State.h"
#include "view/tree/Composite.h"

namespace tarnwell::updates {

/// The General tab: launch at login, and the updater's two preferences, each as the system holds it when it is shown.
struct GeneralView {
  view::EnvironmentObject<UpdaterEnv> _updaterEnv = {};
  view::State<bool> _checkForUpdatesAuto = false;
  view::State<bool> _autoDownloadUpdates = false;

  auto stored() { return std::tie(_updaterEnv, _checkForUpdatesAuto, _autoDownloadUpdates); }
  view::View body() const;

 private:
  view::View checkSwitch() const;
  view::View downloadSwitch() const;
};

}  // namespace tarnwell::updates
