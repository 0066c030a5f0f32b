// The program on macOS.
#include "app/Composition.h"
#include "app/Product.h"
#include "diagnostics/StandardStreams.h"
#include "host/macos/MacPlatform.h"
#include "host/macos/system/ServiceLoginItem.h"
#include "host/macos/system/UnifiedLog.h"

int main() {
  using namespace tarnwell;
  diagnostics::prepareStandardStreams();
  @autoreleasepool {
    host_macos::ServiceLoginItem loginItem;
    host_macos::UnifiedLog log;
    host_macos::MacPlatform platform(app::product(), {.loginItem = &loginItem, .log = &log});
    return app::run(platform);
  }
}
