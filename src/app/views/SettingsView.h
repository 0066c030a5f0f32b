#pragma once

#include <tuple>

#include "updates/UpdaterEnv.h"
#include "view/state/ObservableObject.h"
#include "view/state/State.h"
#include "view/tree/Composite.h"

namespace tarnwell::app {

/// The tabs of the settings window. No tab shows `about`.
enum class Tabs { dock, general, about };

/// The content of the settings window: its tabs, and its size. When the window closes it goes back to the Dock tab.
struct SettingsView {
  view::EnvironmentObject<updates::UpdaterEnv> updaterEnv = {};
  view::State<Tabs> selection = Tabs::dock;

  auto stored() { return std::tie(updaterEnv, selection); }
  view::View body() const;
};

}  // namespace tarnwell::app
