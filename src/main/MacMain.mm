// The program on macOS.
#include "app/Composition.h"
#include "app/Product.h"
#include "diagnostics/StandardStreams.h"
#include "host/macos/MacServices.h"

int main() {
  using namespace tarnwell;
  diagnostics::prepareStandardStreams();
  const auto pool = host_macos::Retained<NSAutoreleasePool*>::adopt([[NSAutoreleasePool alloc] init]);
  const kit::Product product = app::product();
  host_macos::MacServices services(product, updateclient::updateSource());
  host_macos::MacPlatform platform(product, services.services());
  return app::run(platform);
}
