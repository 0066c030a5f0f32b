#include "host/headless/HeadlessUpdater.h"

namespace tarnwell::host_headless {

void HeadlessUpdater::checkForUpdates() { journal_.note("updater: checkForUpdates"); }

void HeadlessUpdater::setAutomaticallyChecksForUpdates(bool checks) {
  journal_.note(std::string("updater: automaticallyChecksForUpdates = ") + (checks ? "1" : "0"));
  preferences_.checks = checks;
}

void HeadlessUpdater::setAutomaticallyDownloadsUpdates(bool downloads) {
  journal_.note(std::string("updater: automaticallyDownloadsUpdates = ") + (downloads ? "1" : "0"));
  preferences_.downloads = downloads;
}

}  // namespace tarnwell::host_headless
