#include "host/linux/LaunchArguments.h"

#include <string>

namespace tarnwell::host_linux {

Result<LaunchArguments> LaunchArguments::parse(const std::vector<std::string_view>& arguments) {
  LaunchArguments parsed;
  for (const std::string_view argument : arguments) {
    if (argument != launchedAtLogin) return Failure{"unknown argument " + std::string(argument)};
    parsed.atLogin = true;
  }
  return parsed;
}

kit::AppleEvent LaunchArguments::event() const {
  kit::AppleEvent event = {.eventID = kit::openApplicationEvent};
  if (atLogin) {
    event.parameters.emplace(kit::propertyDataKeyword, kit::launchedAsLoginItem);
  }
  return event;
}

}  // namespace tarnwell::host_linux
