#include "host/linux/LaunchArguments.h"

namespace tarnwell::host_linux {

kit::AppleEvent LaunchArguments::event() const {
  kit::AppleEvent event = {.eventID = kit::openApplicationEvent};
  if (atLogin) {
    event.parameters.emplace(kit::propertyDataKeyword, kit::launchedAsLoginItem);
  }
  return event;
}

}  // namespace tarnwell::host_linux
