#include "host/linux/UnconfiguredUpdater.h"

#include "diagnostics/Console.h"

namespace tarnwell::host_linux {

UnconfiguredUpdater::UnconfiguredUpdater(UpdaterPreferences preferences, Tell tell)
    : preferences_(std::move(preferences)), tell_(std::move(tell)) {
  setCanCheckForUpdates(true);
}

void UnconfiguredUpdater::checkForUpdates() {
  if (!canCheckForUpdates()) {
    return;
  }
  setCanCheckForUpdates(false);
  tell_("This build of Tarnwell has no update feed, so it cannot look for a newer version.",
        [this] { setCanCheckForUpdates(true); });
}

void UnconfiguredUpdater::keep(const std::string& key, bool on) const {
  if (const auto failure = preferences_.set(key, on)) {
    diagnostics::printErrorLine("tarnwell: " + failure->message);
  }
}

}  // namespace tarnwell::host_linux
