#pragma once

#include <concepts>
#include <memory>
#include <string>
#include <tuple>
#include <utility>

#include "launchatlogin/LaunchAtLogin.h"
#include "view/state/ObservableObject.h"
#include "view/values/LocalizedStringKey.h"
#include "view/values/View.h"

namespace tarnwell::launchatlogin {

/// A switch with a label, for a row of a form: on while the application starts at login. A system that refuses lets it
/// spring back.
struct LaunchAtLogin::Toggle {
  view::ObservedObject<Observable> _launchAtLogin = LaunchAtLogin::observable();
  view::View label;

  /// With the label "Launch at login".
  Toggle();
  /// A view and nothing that converts to one: a toggle does, and would be asked for its own label.
  template <std::same_as<view::View> L>
  explicit Toggle(L shownLabel) : label(std::move(shownLabel)) {}
  explicit Toggle(const view::LocalizedStringKey& titleKey);
  explicit Toggle(std::string title);

  auto stored() { return std::tie(_launchAtLogin); }
  view::View body() const;
};

}  // namespace tarnwell::launchatlogin
