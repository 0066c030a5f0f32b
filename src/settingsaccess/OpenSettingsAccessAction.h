#pragma once

#include <exception>
#include <functional>
#include <memory>
#include <optional>

#include "kit/application/Application.h"
#include "kit/turn/Action.h"
#include "view/values/Binding.h"

namespace tarnwell::settingsaccess {

/// Opens the settings window from code. From system 14 on it presses a hidden settings link, once one has connected
/// itself; before, it asks the application's delegate. Shared by reference.
class OpenSettingsAccessAction : public std::enable_shared_from_this<OpenSettingsAccessAction> {
 public:
  /// An action that takes and returns nothing and may fail: what it fails with, or null.
  using FallibleAction = std::function<std::exception_ptr()>;

  /// The application is borrowed and outlives the action.
  static std::shared_ptr<OpenSettingsAccessAction> create(kit::Application& application);

  /// Calls the closure. Failures of the legacy opener come out as OpenSettingsError, all others as they are; without a
  /// closure it fails with `settingsLinkNotConnected`. Null on success.
  std::exception_ptr operator()() const;

  /// Empty while not connected.
  FallibleAction closure = {};
  /// The same for an action that cannot fail. It never keeps this object alive.
  view::Binding<std::optional<kit::Action>> closureBinding = {};

 private:
  OpenSettingsAccessAction() = default;

  view::Binding<std::optional<kit::Action>> liveBinding();
};

}  // namespace tarnwell::settingsaccess
