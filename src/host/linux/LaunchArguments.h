#pragma once

#include "kit/application/AppleEvent.h"

namespace tarnwell::host_linux {

/// What the command line says about a start.
struct LaunchArguments {
  static constexpr const char* launchedAtLogin = "--launched-at-login";

  bool atLogin = false;

  /// The message with which the system would have started the application. A platform hands it out as the current one
  /// until the application has finished launching, and not again: what came later did not come from login.
  kit::AppleEvent event() const {
    kit::AppleEvent event = {.eventID = kit::openApplicationEvent};
    if (atLogin) {
      event.parameters.emplace(kit::propertyDataKeyword, kit::launchedAsLoginItem);
    }
    return event;
  }
};

}  // namespace tarnwell::host_linux
