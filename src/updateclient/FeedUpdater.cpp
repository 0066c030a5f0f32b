#include "updateclient/FeedUpdater.h"

#include <chrono>
#include <utility>

#include "release/text/Report.h"
#include "updateclient/UpdateCheck.h"
#include "updateclient/installation/PackageFile.h"

namespace tarnwell::updateclient {
namespace {

constexpr const char* noFeed =
    "This build of " TARNWELL_NAME " has no update feed, so it cannot look for a newer version.";

}  // namespace

FeedUpdater::FeedUpdater(UpdaterConfiguration configuration, UpdaterPreferences preferences, UpdaterPorts ports)
    : configuration_(std::move(configuration)),
      preferences_(std::move(preferences)),
      ports_(ports),
      schedule_(preferences_, ports_.alarm),
      obstacle_(configuration_.hasFeed() ? "" : noFeed) {
  setCanCheckForUpdates(true);
}

FeedUpdater::~FeedUpdater() {
  ports_.alarm.cancel();
  if (check_ || saysWhyNot_ || asksForPermission_) {
    ports_.driver.dismiss();
  }
}

void FeedUpdater::start() {
  clearAway();
  const bool isFirstLaunch = !preferences_.hasLaunchedBefore();
  if (isFirstLaunch) {
    release::report(preferences_.setHasLaunchedBefore());
  }
  if (obstacle_.empty() && !isFirstLaunch && !preferences_.automaticChecks()) {
    ports_.alarm.set(ports_.alarm.now(), [this] { askForPermission(); });
  } else {
    setAlarm();
  }
}

void FeedUpdater::askForPermission() {
  if (check_ || preferences_.automaticChecks()) {
    return;
  }
  asksForPermission_ = true;
  ports_.driver.showPermission([this](UserDriver::Permission permission) { takePermission(permission); });
}

void FeedUpdater::takePermission(UserDriver::Permission permission) {
  if (!std::exchange(asksForPermission_, false)) {
    return;
  }
  // The question can only add downloads: the switch may have been turned before it came.
  if (permission.downloads) {
    setAutomaticallyDownloadsUpdates(true);
  }
  setAutomaticallyChecksForUpdates(permission.checks);
}

void FeedUpdater::setAlarm() {
  if (obstacle_.empty() && !check_) {
    schedule_.set([this] { wake(); });
  }
}

// Much may have changed since the alarm was set: the clock, the switch, another process's check.
void FeedUpdater::wake() {
  if (check_) {
    return;
  }
  if (schedule_.isDue()) {
    begin(UserDriver::Origin::schedule);
  } else {
    setAlarm();
  }
}

void FeedUpdater::checkForUpdates() {
  if (!canCheckForUpdates()) {
    return;
  }
  if (!obstacle_.empty()) {
    sayWhyNot();
  } else if (check_) {
    check_->comeForward();
  } else {
    begin(UserDriver::Origin::user);
  }
}

void FeedUpdater::sayWhyNot() {
  saysWhyNot_ = true;
  tellWhetherItCanCheck();
  const auto acknowledged = [this] {
    saysWhyNot_ = false;
    tellWhetherItCanCheck();
  };
  ports_.driver.showObstacle(obstacle_, acknowledged);
}

void FeedUpdater::begin(UserDriver::Origin origin) {
  ports_.alarm.cancel();
  asksForPermission_ = false;  // The check takes the question's place on the screen.
  clearAway();
  check_ = std::make_unique<UpdateCheck>(
      UpdateCheck::Setting{configuration_, preferences_, ports_, handedOver_}, origin,
      UpdateCheck::Listener{.began = [this] { schedule_.noteCheck(); },
                            .changed = [this] { tellWhetherItCanCheck(); },
                            .handedOver = [this](const std::string& version) { handedOver_ = version; },
                            .ended = [this] { ended(); }});
  check_->start();
}

// An installer reads its package when the user gets round to it, and does not tell us when that was.
void FeedUpdater::clearAway() {
  constexpr std::chrono::hours longEnough(24);
  removePackages(configuration_.packageFolder, ports_.alarm.now() - longEnough);
}

void FeedUpdater::ended() {
  const auto check = std::exchange(check_, nullptr);
  ports_.driver.dismiss();
  setAlarm();
  tellWhetherItCanCheck();
}

void FeedUpdater::tellWhetherItCanCheck() {
  setCanCheckForUpdates(!saysWhyNot_ && (!check_ || check_->canComeForward()));
}

bool FeedUpdater::automaticallyChecksForUpdates() const { return preferences_.automaticChecks().value_or(false); }

void FeedUpdater::setAutomaticallyChecksForUpdates(bool checks) {
  release::report(preferences_.setAutomaticChecks(checks));
  if (std::exchange(asksForPermission_, false)) {
    ports_.driver.dismiss();
  }
  setAlarm();
}

bool FeedUpdater::automaticallyDownloadsUpdates() const { return preferences_.automaticDownloads(); }

void FeedUpdater::setAutomaticallyDownloadsUpdates(bool downloads) {
  release::report(preferences_.setAutomaticDownloads(downloads));
}

}  // namespace tarnwell::updateclient
