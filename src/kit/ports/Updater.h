#pragma once

#include <cstddef>
#include <functional>

#include "kit/turn/Observers.h"

namespace tarnwell::kit {

/// Looks for new versions of the application (`SPUUpdater`). It keeps its preferences itself.
class Updater {
 public:
  virtual ~Updater() = default;

  /// True when a check may start now.
  bool canCheckForUpdates() const { return canCheck_; }
  /// Hears of each change from now on, on the main thread.
  [[nodiscard]] Subscription observeCanCheckForUpdates(std::function<void(bool)> changed) {
    return observers_.add(std::move(changed));
  }

  /// Starts a check that the user asked for; shows its own progress and result.
  virtual void checkForUpdates() = 0;

  virtual bool automaticallyChecksForUpdates() const = 0;
  virtual void setAutomaticallyChecksForUpdates(bool checks) = 0;
  virtual bool automaticallyDownloadsUpdates() const = 0;
  virtual void setAutomaticallyDownloadsUpdates(bool downloads) = 0;

 protected:
  void setCanCheckForUpdates(bool canCheck) {
    if (std::exchange(canCheck_, canCheck) != canCheck) {
      observers_.tell(canCheck);
    }
  }

 private:
  Observers<bool> observers_;
  bool canCheck_ = false;
};

/// Owns an updater (`SPUStandardUpdaterController`).
class UpdaterController {
 public:
  virtual ~UpdaterController() = default;

  virtual Updater& updater() = 0;
};

/// What an updater controller is made with.
struct UpdaterControllerArguments {
  /// Whether scheduled checks begin at once.
  bool startingUpdater = true;
  /// There is none to be had: the updater decides by itself, and shows its standard windows.
  std::nullptr_t updaterDelegate = nullptr;
  std::nullptr_t userDriverDelegate = nullptr;
};

}  // namespace tarnwell::kit
