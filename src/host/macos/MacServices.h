#pragma once

#include "host/macos/MacPlatform.h"
#include "host/macos/system/ServiceLoginItem.h"
#include "host/macos/system/UnifiedLog.h"
#include "updateclient/settings/UpdateSource.h"

namespace tarnwell::host_macos {

/// What macOS itself answers besides windows and controls.
class MacServices {
 public:
  MacServices(kit::Product product, updateclient::UpdateSource updates);

  /// What is pointed to in it lives as long as this object.
  MacPlatform::Services services();

 private:
  kit::Product product_;
  updateclient::UpdateSource updates_;
  ServiceLoginItem loginItem_;
  UnifiedLog log_;
};

}  // namespace tarnwell::host_macos
