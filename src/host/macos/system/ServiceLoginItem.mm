#include "host/macos/system/ServiceLoginItem.h"

#import <ServiceManagement/ServiceManagement.h>

#include "host/macos/look/Conversions.h"

namespace tarnwell::host_macos {
namespace {

std::optional<std::string> failure(BOOL done, NSError* error) {
  return done ? std::nullopt : std::optional(toString([error localizedDescription]));
}

}  // namespace

// The numbers are the platform's.
ServiceLoginItem::Status ServiceLoginItem::status() const {
  return static_cast<Status>([[SMAppService mainAppService] status]);
}

std::optional<std::string> ServiceLoginItem::registerItem() {
  NSError* error = nil;
  const BOOL done = [[SMAppService mainAppService] registerAndReturnError:&error];
  return failure(done, error);
}

std::optional<std::string> ServiceLoginItem::unregisterItem() {
  NSError* error = nil;
  const BOOL done = [[SMAppService mainAppService] unregisterAndReturnError:&error];
  return failure(done, error);
}

}  // namespace tarnwell::host_macos
