#pragma once

#include <fcntl.h>
#include <sys/stat.h>

#include <array>
#include <iterator>
#include <memory>
#include <string>
#include <vector>

#include "fixtures/Sandbox.h"
#include "updateclient/FakeUserDriver.h"
#include "updateclient/FeedUpdater.h"
#include "updateclient/engine/FakeAlarm.h"
#include "updateclient/engine/FakeEngine.h"
#include "updateclient/installation/FakeDesktop.h"
#include "updater/feed/FeedText.h"
#include "updater/signature/SigningKey.h"

namespace tarnwell::updateclient {

using updater::feedOf;
using updater::SigningKey;
using Choice = UserDriver::Choice;

/// An updater of version 1.0 with a user, a network and a clock of the test's own. It has been launched before.
struct UpdaterStage {
  UpdaterStage() { preferences.setHasLaunchedBefore(); }
  UpdaterStage(const UpdaterStage&) = delete;
  UpdaterStage& operator=(const UpdaterStage&) = delete;
  ~UpdaterStage() = default;

  UpdaterConfiguration configuration() const {
    return {.feedAddress = "https://updates.invalid/feed.xml",
            .publicKey = key.publicText(),
            .runningVersion = "1.0",
            .shownVersion = "1.0",
            .systemVersion = "6.1.0",
            .packageFolder = sandbox / "packages"};
  }

  /// As the program does when it starts; what ran before has ended.
  FeedUpdater& launch() { return launch(configuration()); }
  FeedUpdater& launch(const UpdaterConfiguration& with) {
    updater.reset();
    updater = std::make_unique<FeedUpdater>(with, preferences, UpdaterPorts{engine, driver, desktop, alarm});
    updater->start();
    return *updater;
  }

  std::string package(const std::string& version) const { return "package of " + version; }
  /// What the feed says of `file`.
  std::string enclosure(const std::string& file) const { return enclosure(key.signatureOf(file), file.size()); }
  std::string enclosure(const std::string& signature, std::size_t length) const {
    return "<enclosure url='https://updates.invalid/package' length='" + std::to_string(length) + "' x:edSignature='" +
           signature + "'/>";
  }
  std::string item(const std::string& version, const std::string& more = "") const {
    return "<item><x:version>" + version + "</x:version>" + enclosure(package(version)) + more + "</item>";
  }
  std::string feed(const std::string& version) const { return feedOf(item(version)); }

  /// With checks switched on and the last one made just now.
  void checkedJustNow() const {
    preferences.setAutomaticChecks(true);
    preferences.setLastCheck(alarm.now());
  }
  /// A check that the user asks for, up to the feed's arrival.
  void ask(const std::string& feedText) {
    updater->checkForUpdates();
    engine.answer(feedText);
  }
  /// A check that the schedule makes, up to the feed's arrival.
  void passADay(const std::string& feedText) {
    alarm.pass(std::chrono::hours(24));
    engine.answer(feedText);
  }
  /// Up to a downloaded package.
  void askAndDownload(const std::string& version) {
    ask(feed(version));
    driver.choose(Choice::install);
    engine.answer(package(version));
  }
  /// From the start to an installation under way.
  void beginToInstall(const std::string& version) {
    checkedJustNow();
    launch();
    askAndDownload(version);
    driver.choose(Choice::install);
  }
  /// From the start to a background download.
  void beginUnasked(const std::string& version) {
    checkedJustNow();
    preferences.setAutomaticDownloads(true);
    launch();
    passADay(feed(version));
  }
  /// What an installer leaves for the desktop, as old as the clock says.
  void nameAPackage() const {
    const std::string name = "packages/tarnwell-update.deb";
    sandbox.write(name, "package of 2.0");
    const timespec time = {.tv_sec = Alarm::Clock::to_time_t(alarm.now()), .tv_nsec = 0};
    const std::array<timespec, 2> both = {time, time};
    ::utimensat(AT_FDCWD, (sandbox / name).c_str(), both.data(), 0);
  }
  bool holdsNoPackage() const { return !sandbox.holds("packages") || std::filesystem::is_empty(sandbox / "packages"); }

  fixtures::Sandbox sandbox;
  SigningKey key;
  UpdaterPreferences preferences{sandbox / "updates"};
  FakeEngine engine;
  FakeUserDriver driver;
  FakeDesktop desktop{engine};
  FakeAlarm alarm;
  std::unique_ptr<FeedUpdater> updater;
};

}  // namespace tarnwell::updateclient
