#include "host/linux/start/LaunchArguments.h"

#include <string>
#include <string_view>

#include "installation/LaunchedAtLogin.h"

namespace tarnwell::host_linux {

system::Result<LaunchArguments> LaunchArguments::parse(std::span<const char* const> arguments) {
  LaunchArguments launch;
  for (const std::string_view argument : arguments) {
    if (argument != installation::launchedAtLogin) {
      return system::Failure{"the window takes no argument \"" + std::string(argument) + '"'};
    }
    launch.atLogin = true;
  }
  return launch;
}

}  // namespace tarnwell::host_linux
