#include "updater/UpdateSource.h"

namespace tarnwell::updater {

UpdateSource updateSource() {
  UpdateSource source = {.configuration = UpdaterConfiguration::compiledIn()};
  source.transport.userAgent = "Tarnwell/" + source.configuration.shownVersion;
  return source;
}

}  // namespace tarnwell::updater
