#pragma once

#include <memory>

#include "kit/ports/Log.h"
#include "view/state/ObservableObject.h"

namespace tarnwell::launchatlogin {

/// Starts the application when the user logs in. There is one registration for an application, so everything here
/// speaks of the application of this process; to ask without one is a fault.
class LaunchAtLogin final {
 public:
  class Observable;
  struct Toggle;

  static constexpr kit::Logger logger = {.subsystem = "example.tarnwell.LaunchAtLogin", .category = "main"};

  LaunchAtLogin() = delete;

  /// Whether the system starts the application at login: asked afresh each time.
  static bool isEnabled();

  /// A system that refuses is only logged: read back what came of it.
  static void setEnabled(bool enabled);

  /// Whether the launch that is being handled came from login. False afterwards.
  static bool wasLaunchedAtLogin();

  /// What the application's views follow; the same one each time.
  static std::shared_ptr<Observable> observable();
};

/// Lets views follow the registration. It keeps nothing: the system does.
class LaunchAtLogin::Observable final : public view::ObservableObject {
 public:
  bool isEnabled() const { return LaunchAtLogin::isEnabled(); }

  void setEnabled(bool enabled) {
    objectWillChange();
    LaunchAtLogin::setEnabled(enabled);
  }
};

}  // namespace tarnwell::launchatlogin
