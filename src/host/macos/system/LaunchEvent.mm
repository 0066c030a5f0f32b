#include "host/macos/system/LaunchEvent.h"

#import <AppKit/AppKit.h>

namespace tarnwell::host_macos {

std::optional<kit::AppleEvent> currentAppleEvent() {
  NSAppleEventDescriptor* event = [[NSAppleEventManager sharedAppleEventManager] currentAppleEvent];
  if (event == nil) {
    return std::nullopt;
  }
  kit::AppleEvent told = {.eventID = [event eventID]};
  if (NSAppleEventDescriptor* parameter = [event paramDescriptorForKeyword:kit::propertyDataKeyword]) {
    told.parameters[kit::propertyDataKeyword] = [parameter enumCodeValue];
  }
  return told;
}

}  // namespace tarnwell::host_macos
