#include "host/linux/updates/UpdateSource.h"

namespace tarnwell::host_linux::updates {

UpdateSource updateSource() {
  UpdateSource source = {.configuration = UpdaterConfiguration::compiledIn()};
  source.transport.userAgent = "Tarnwell/" + source.configuration.shownVersion;
  return source;
}

}  // namespace tarnwell::host_linux::updates
