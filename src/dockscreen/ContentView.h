#pragma once

#include <tuple>

#include "core/DockSettings.h"
#include "view/state/Environment.h"
#include "view/state/StateObject.h"
#include "view/tree/Composite.h"

namespace tarnwell::dockscreen {

/// The Dock tab: the settings to edit, and the buttons that save and reset them. It reads the Dock at every showing;
/// nothing reaches the Dock before Save. Needs a command runner and a number format in its environment.
struct ContentView {
  view::StateObject<core::DockSettings> settings{makeSettings};
  view::Environment<view::SystemVersionKey> systemVersion = {};

  auto stored() { return std::tie(settings, systemVersion); }
  view::View body() const;

 private:
  static std::shared_ptr<core::DockSettings> makeSettings(const view::EnvironmentValues& environment,
                                                          kit::Action changed);

  view::View speeds() const;
  view::View minimizeEffect() const;
  view::View behaviour() const;
  view::View activeApps() const;
  view::View buttons() const;
};

}  // namespace tarnwell::dockscreen
