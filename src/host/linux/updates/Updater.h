#pragma once

#include <functional>
#include <memory>
#include <string>

#include "host/linux/updates/Alarm.h"
#include "host/linux/updates/Installer.h"
#include "host/linux/updates/Transport.h"
#include "host/linux/updates/UpdaterConfiguration.h"
#include "host/linux/updates/UpdaterPreferences.h"
#include "host/linux/updates/UserDriver.h"
#include "kit/Updater.h"

namespace tarnwell::host_linux::updates {

class UpdateCheck;

/// Looks for new versions when the user asks and, where that is switched on, when the last look is long enough ago.
/// Everything is called on the main thread; what it shows, it shows from the event loop.
class Updater final : public kit::Updater {
 public:
  /// What it works through. Borrowed; all of it outlives the updater.
  struct Ports {
    Transport& transport;
    UserDriver& driver;
    Installer& installer;
    Alarm& alarm;
    /// Shows a web page in the browser.
    std::function<void(const std::string& address)> openUrl = {};
  };

  Updater(UpdaterConfiguration configuration, UpdaterPreferences preferences, Ports ports);
  Updater(const Updater&) = delete;
  Updater& operator=(const Updater&) = delete;
  ~Updater() override;

  /// To be called once, when the application starts: counts the launch, asks for permission when it is the second one,
  /// and sets the alarm for the next check.
  void start();

  void checkForUpdates() override;

  bool automaticallyChecksForUpdates() const override;
  void setAutomaticallyChecksForUpdates(bool checks) override;
  bool automaticallyDownloadsUpdates() const override;
  void setAutomaticallyDownloadsUpdates(bool downloads) override;

 private:
  void begin(UserDriver::Origin origin);
  void ended();
  void sayThatThereIsNoFeed();
  void askForPermission();
  void takePermission(UserDriver::Permission permission);
  void setAlarm();
  void wake();

  UpdaterConfiguration configuration_;
  UpdaterPreferences preferences_;
  Ports ports_;
  std::unique_ptr<UpdateCheck> check_;
};

/// Owns an updater that has started.
class UpdaterController final : public kit::UpdaterController {
 public:
  UpdaterController(UpdaterConfiguration configuration, UpdaterPreferences preferences, Updater::Ports ports)
      : updater_(std::move(configuration), std::move(preferences), std::move(ports)) {
    updater_.start();
  }

  kit::Updater& updater() override { return updater_; }

 private:
  Updater updater_;
};

}  // namespace tarnwell::host_linux::updates
