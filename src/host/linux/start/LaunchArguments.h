#pragma once

#include <span>

#include "kit/events/AppleEvent.h"
#include "system/base/Result.h"

namespace tarnwell::host_linux {

/// What the window's program is told about a start.
struct LaunchArguments {
  bool atLogin = false;

  /// Of the arguments without the program's name. The program that users start passes on nothing else.
  static system::Result<LaunchArguments> parse(std::span<const char* const> arguments);

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
