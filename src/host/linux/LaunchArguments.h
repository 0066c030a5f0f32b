#pragma once

#include <string_view>
#include <vector>

#include "host/linux/Result.h"
#include "kit/AppleEvent.h"

namespace tarnwell::host_linux {

/// What the command line says about a start.
struct LaunchArguments {
  static constexpr const char* launchedAtLogin = "--launched-at-login";

  bool atLogin = false;

  /// The arguments behind the program's name. A failure for one that is unknown.
  static Result<LaunchArguments> parse(const std::vector<std::string_view>& arguments);

  /// The message with which the system would have started the application. A platform hands it out as the current one
  /// until the application has finished launching, and not again: what came later did not come from login.
  kit::AppleEvent event() const;
};

}  // namespace tarnwell::host_linux
