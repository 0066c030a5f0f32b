#include "host/macos/system/Relaunch.h"

#import <AppKit/AppKit.h>

#include "host/macos/look/Conversions.h"
#include "system/processes/Process.h"

namespace tarnwell::host_macos {

void relaunchAfterEnd(kit::Log& log, const kit::Product& product) {
  // A new one, though this process still stands for a moment.
  const auto started = system::Process::start({
      .words = {"/usr/bin/open", "-n", toString([[NSBundle mainBundle] bundlePath])},
      .hasOwnSession = true,
  });
  if (!started) {
    log.error(product.identifier, "main", started.error().message);
  }
}

}  // namespace tarnwell::host_macos
