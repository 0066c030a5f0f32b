#pragma once

#include <tuple>

#include "updates/UpdaterEnv.h"
#include "view/state/ObservableObject.h"
#include "view/tree/Composite.h"

namespace tarnwell::app {

/// The menu behind the application's icon in the status bar: its permanent way in.
struct MenuBarExtraView {
  view::EnvironmentObject<updates::UpdaterEnv> updaterEnv = {};

  auto stored() { return std::tie(updaterEnv); }
  view::View body() const;
};

}  // namespace tarnwell::app
