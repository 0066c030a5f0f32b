#pragma once

#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "kit/ports/Updater.h"
#include "updateclient/UpdaterPorts.h"
#include "updateclient/settings/CheckSchedule.h"
#include "updateclient/settings/UpdaterConfiguration.h"
#include "updateclient/settings/UpdaterPreferences.h"

namespace tarnwell::updateclient {

class UpdateCheck;

/// Looks for new versions when the user asks and, where that is switched on, when the last look is long enough ago.
/// Everything is called on the main thread; what it shows, it shows from the event loop.
class FeedUpdater final : public kit::Updater {
 public:
  FeedUpdater(UpdaterConfiguration configuration, UpdaterPreferences preferences, UpdaterPorts ports);
  FeedUpdater(const FeedUpdater&) = delete;
  FeedUpdater& operator=(const FeedUpdater&) = delete;
  ~FeedUpdater() override;

  /// To be called once, when the application starts: counts the launch, asks for permission when it is the second one,
  /// and sets the alarm for the next check.
  void start();

  /// Where an update is being downloaded in the background, or on the screen, it comes to the front instead.
  void checkForUpdates() override;

  bool automaticallyChecksForUpdates() const override;
  void setAutomaticallyChecksForUpdates(bool checks) override;
  bool automaticallyDownloadsUpdates() const override;
  void setAutomaticallyDownloadsUpdates(bool downloads) override;

 private:
  void begin(UserDriver::Origin origin);
  void clearAway();
  void ended();
  void sayWhyNot();
  void askForPermission();
  void takePermission(UserDriver::Permission permission);
  void setAlarm();
  void wake();
  void tellWhetherItCanCheck();

  UpdaterConfiguration configuration_;
  UpdaterPreferences preferences_;
  UpdaterPorts ports_;
  CheckSchedule schedule_;
  /// Why no check is possible with this configuration; empty where one is.
  std::string obstacle_;
  /// Remembered until the next start, which will be of that version or of one that still wants it.
  std::string handedOver_;
  std::unique_ptr<UpdateCheck> check_;
  bool saysWhyNot_ = false;
  bool asksForPermission_ = false;
};

/// Owns an updater, which starts with it if it is told to.
class UpdaterController final : public kit::UpdaterController {
 public:
  UpdaterController(const kit::UpdaterControllerArguments& arguments, UpdaterConfiguration configuration,
                    UpdaterPreferences preferences, UpdaterPorts ports)
      : updater_(std::move(configuration), std::move(preferences), ports) {
    if (arguments.startingUpdater) {
      updater_.start();
    }
  }

  kit::Updater& updater() override { return updater_; }

 private:
  FeedUpdater updater_;
};

}  // namespace tarnwell::updateclient
