#pragma once

#include "host/headless/Journal.h"
#include "kit/ports/Updater.h"

namespace tarnwell::host_headless {

/// An updater that never finds anything and notes what it was asked. It starts able to check, both switches off.
class HeadlessUpdater final : public kit::Updater {
 public:
  struct Preferences {
    bool checks = false;
    bool downloads = false;
  };

  explicit HeadlessUpdater(Journal& journal) : journal_(journal) { setCanCheckForUpdates(true); }

  using Updater::setCanCheckForUpdates;

  void checkForUpdates() override;

  bool automaticallyChecksForUpdates() const override { return preferences_.checks; }
  void setAutomaticallyChecksForUpdates(bool checks) override;
  bool automaticallyDownloadsUpdates() const override { return preferences_.downloads; }
  void setAutomaticallyDownloadsUpdates(bool downloads) override;

  /// As kept; another program may change them.
  Preferences& preferences() { return preferences_; }

 private:
  Journal& journal_;
  Preferences preferences_;
};

/// Hands out the one updater of a headless platform.
class HeadlessUpdaterController final : public kit::UpdaterController {
 public:
  /// Borrowed.
  explicit HeadlessUpdaterController(HeadlessUpdater& updater) : updater_(updater) {}

  kit::Updater& updater() override { return updater_; }

 private:
  HeadlessUpdater& updater_;
};

}  // namespace tarnwell::host_headless
