#pragma once

#include "kit/ports/Updater.h"

namespace tarnwell::host_macos {

/// The updater of a program that gets its updates elsewhere: it can never check, and remembers nothing.
class AbsentUpdater final : public kit::UpdaterController, public kit::Updater {
 public:
  kit::Updater& updater() override { return *this; }

  void checkForUpdates() override {}
  bool automaticallyChecksForUpdates() const override { return false; }
  void setAutomaticallyChecksForUpdates(bool /*checks*/) override {}
  bool automaticallyDownloadsUpdates() const override { return false; }
  void setAutomaticallyDownloadsUpdates(bool /*downloads*/) override {}
};

}  // namespace tarnwell::host_macos
