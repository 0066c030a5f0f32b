#pragma once

#include <functional>
#include <string>
#include <utility>

#include "host/linux/UpdaterPreferences.h"
#include "kit/Action.h"
#include "kit/Updater.h"

namespace tarnwell::host_linux {

/// The updater of a build that has no feed: it keeps the two switches, and a check says plainly that there is nowhere
/// to look.
class UnconfiguredUpdater final : public kit::Updater {
 public:
  /// Shows a message to the user and returns at once; `closed` runs when the user is done with it.
  using Tell = std::function<void(const std::string& message, kit::Action closed)>;

  UnconfiguredUpdater(UpdaterPreferences preferences, Tell tell);

  /// No second check while the message of the first is on the screen.
  void checkForUpdates() override;

  bool automaticallyChecksForUpdates() const override { return preferences_.isOn(UpdaterPreferences::checksKey); }
  void setAutomaticallyChecksForUpdates(bool checks) override { keep(UpdaterPreferences::checksKey, checks); }
  bool automaticallyDownloadsUpdates() const override { return preferences_.isOn(UpdaterPreferences::downloadsKey); }
  void setAutomaticallyDownloadsUpdates(bool downloads) override { keep(UpdaterPreferences::downloadsKey, downloads); }

 private:
  void keep(const std::string& key, bool on) const;

  UpdaterPreferences preferences_;
  Tell tell_;
};

/// Owns one.
class UnconfiguredUpdaterController final : public kit::UpdaterController {
 public:
  explicit UnconfiguredUpdaterController(UnconfiguredUpdater::Tell tell)
      : updater_(UpdaterPreferences::ofUser(), std::move(tell)) {}

  kit::Updater& updater() override { return updater_; }

 private:
  UnconfiguredUpdater updater_;
};

}  // namespace tarnwell::host_linux
