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

  void checkForUpdates() override { journal_.note("updater: checkForUpdates"); }

  bool automaticallyChecksForUpdates() const override { return preferences_.checks; }
  void setAutomaticallyChecksForUpdates(bool checks) override {
    set(preferences_.checks, checks, "automaticallyChecksForUpdates");
  }
  bool automaticallyDownloadsUpdates() const override { return preferences_.downloads; }
  void setAutomaticallyDownloadsUpdates(bool downloads) override {
    set(preferences_.downloads, downloads, "automaticallyDownloadsUpdates");
  }

  /// As kept; another program may change them.
  Preferences& preferences() { return preferences_; }

 private:
  void set(bool& preference, bool value, const std::string& name) {
    journal_.note("updater: " + name + " = " + (value ? "1" : "0"));
    preference = value;
  }

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
