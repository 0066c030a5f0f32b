#include <gtest/gtest.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>

#include "fixtures/EnvironmentScope.h"
#include "fixtures/EventLoop.h"
#include "fixtures/Sandbox.h"
#include "host/linux/PackageOpener.h"
#include "publish/Publishing.h"
#include "publish/SecretKey.h"
#include "updateclient/FakeUserDriver.h"
#include "updateclient/FeedUpdater.h"
#include "updateclient/engine/EngineProcess.h"
#include "updateclient/engine/TimerAlarm.h"
#include "updater/package/RealPackage.h"
#include "updater/transfer/LoopbackServer.h"

namespace tarnwell::updateclient {
namespace {

namespace fs = std::filesystem;

using Choice = UserDriver::Choice;

/// The updater with nothing of the tests' own but the user: a release is published, put on a server, and fetched.
class PublishedUpdateTest : public testing::Test {
 protected:
  PublishedUpdateTest() {
    EXPECT_TRUE(key.store(sandbox / "key"));
    sandbox.write("xdg-open", "#!/bin/sh\ncp \"$1\" '" + (sandbox / "opened").string() + "'\n");
    fs::permissions(sandbox / "xdg-open", fs::perms::owner_all);
    publish("2.0");
  }

  /// A feed with one item; its package is fetched in a way that the server knows.
  void publish(const std::string& version, const std::string& way = "file") {
    package = updater::realPackage(version, std::string(300'000, 'p'));
    sandbox.write("package.deb", package);
    server.serve("package.deb", package);
    fs::remove(sandbox / "feed.xml");
    const auto published = publish::publishRelease({.package = sandbox / "package.deb",
                                                    .privateKey = sandbox / "key",
                                                    .version = version,
                                                    .url = server.address("/" + way + "/package.deb")},
                                                   sandbox / "feed.xml");
    ASSERT_TRUE(published) << published.error().message;
    server.serve("feed.xml", sandbox.read("feed.xml"));
  }

  UpdaterConfiguration configuration(const std::string& feedPath) {
    return {.feedAddress = server.address(feedPath),
            .publicKey = publicKey,
            .runningVersion = "1.0",
            .shownVersion = "1.0",
            .stallLimit = std::chrono::seconds(1),
            .packageFolder = sandbox / "packages"};
  }

  void launch(const std::string& feedPath = "/file/feed.xml") {
    updater = std::make_unique<FeedUpdater>(configuration(feedPath), UpdaterPreferences(sandbox / "updates"),
                                            UpdaterPorts{engine, driver, opener, alarm});
    updater->start();
  }

  /// Once the engine runs, which is not the only child of this process.
  bool killsEngine() {
    return becomes([] {
      std::ifstream children("/proc/self/task/" + std::to_string(::getpid()) + "/children");
      for (pid_t child = 0; children >> child;) {
        std::string name;
        std::ifstream("/proc/" + std::to_string(child) + "/comm") >> name;
        if (name == "tarnwell-update") {
          return ::kill(child, SIGKILL) == 0;
        }
      }
      return false;
    });
  }

  bool becomes(const std::function<bool()>& condition) { return loop.runUntil(condition); }

  bool shows(const std::string& screen) {
    return becomes([&] { return driver.screen.starts_with(screen); });
  }

  /// From the check to what stands on the screen instead of "ready".
  std::string refusal() {
    updater->checkForUpdates();
    EXPECT_TRUE(becomes([&] { return driver.screen != "checking"; }));
    if (driver.screen == "found 2.0 as asked") {
      driver.choose(Choice::install);
      EXPECT_TRUE(becomes([&] { return !driver.screen.ends_with("ing 2.0"); }));
    }
    return driver.screen;
  }

  fixtures::Sandbox sandbox;
  updater::LoopbackServer server;
  fixtures::EnvironmentScope path{"PATH", sandbox.path().string() + ":/usr/bin:/bin"};
  publish::SecretKey key = publish::SecretKey::generate();
  std::string publicKey = key.publicText();
  std::string package = {};
  fixtures::EnvironmentScope authority{"CURL_CA_BUNDLE", server.authority().string()};
  fixtures::EventLoop loop;
  EngineProcess engine{UPDATE_ENGINE, loop.watch()};
  host_linux::PackageOpener opener{loop.watch()};
  TimerAlarm alarm{loop.watch()};
  FakeUserDriver driver;
  std::unique_ptr<FeedUpdater> updater;
};

TEST_F(PublishedUpdateTest, arrivesAtTheDesktop) {
  launch();
  updater->checkForUpdates();
  EXPECT_FALSE(updater->canCheckForUpdates());
  ASSERT_TRUE(shows("found 2.0 as asked")) << driver.screen;
  driver.choose(Choice::install);
  ASSERT_TRUE(shows("ready 2.0")) << driver.screen;
  EXPECT_EQ(driver.progress, std::to_string(package.size()) + " of " + std::to_string(package.size()));
  EXPECT_TRUE(fs::is_empty(sandbox / "packages"));
  driver.choose(Choice::install);
  EXPECT_EQ(driver.screen, "installing 2.0");
  EXPECT_TRUE(shows("opened 2.0")) << driver.screen;
  EXPECT_EQ(sandbox.read("opened"), package);
  driver.acknowledge();
  EXPECT_TRUE(updater->canCheckForUpdates());
}

TEST_F(PublishedUpdateTest, whatRunsAlreadyIsUpToDate) {
  publish("1.0");
  launch();
  updater->checkForUpdates();
  EXPECT_TRUE(shows("up to date 1.0")) << driver.screen;
}

TEST_F(PublishedUpdateTest, isDownloadedByScheduleWithoutAWord) {
  const UpdaterPreferences preferences(sandbox / "updates");
  preferences.setHasLaunchedBefore();
  preferences.setAutomaticChecks(true);
  preferences.setAutomaticDownloads(true);
  launch();
  EXPECT_TRUE(shows("ready 2.0 unasked")) << driver.screen;
  EXPECT_EQ(driver.journal.size(), 1U);
}

TEST_F(PublishedUpdateTest, canBeCancelledAndLeavesNothing) {
  publish("2.0", "half");
  launch();
  updater->checkForUpdates();
  driver.cancel();
  EXPECT_TRUE(updater->canCheckForUpdates());
  updater->checkForUpdates();
  ASSERT_TRUE(shows("found"));
  driver.choose(Choice::install);
  EXPECT_TRUE(becomes([&] { return driver.progress.starts_with(std::to_string(package.size() / 2)); }));
  driver.cancel();
  EXPECT_TRUE(updater->canCheckForUpdates());
  EXPECT_TRUE(fs::is_empty(sandbox / "packages"));
}

TEST_F(PublishedUpdateTest, anotherFileThanTheSignedOneIsRefused) {
  std::string changed = package;
  changed[changed.size() / 2] = 'q';
  server.serve("package.deb", changed);
  launch();
  EXPECT_NE(refusal().find("the signature does not belong to this file"), std::string::npos) << driver.screen;
  server.serve("package.deb", package.substr(1));
  driver.acknowledge();
  EXPECT_NE(refusal().find("shorter than the feed says"), std::string::npos) << driver.screen;
  server.serve("package.deb", package + "p");
  driver.acknowledge();
  EXPECT_NE(refusal().find("sends more than it should"), std::string::npos) << driver.screen;
  EXPECT_TRUE(fs::is_empty(sandbox / "packages"));
  EXPECT_FALSE(sandbox.holds("opened"));
}

TEST_F(PublishedUpdateTest, anOldPackageUnderANewVersionIsRefused) {
  publish("1.0");
  std::string feed = sandbox.read("feed.xml");
  feed.replace(feed.find(":version>1.0<"), 13, ":version>2.0<");
  server.serve("feed.xml", feed);
  launch();
  EXPECT_NE(refusal().find("it is version 1.0, although it was offered as 2.0"), std::string::npos) << driver.screen;
  EXPECT_TRUE(fs::is_empty(sandbox / "packages"));
}

TEST_F(PublishedUpdateTest, whatAnotherKeySignedIsRefused) {
  publicKey = publish::SecretKey::generate().publicText();
  launch();
  EXPECT_NE(refusal().find("the signature does not belong to this file and key"), std::string::npos) << driver.screen;
}

TEST_F(PublishedUpdateTest, aFeedThatNeverEndsIsRefused) {
  launch("/endless");
  EXPECT_EQ(refusal(), "failure: The server localhost sends more than it should.");
  launch("/drip/feed.xml");
  EXPECT_EQ(refusal(), "failure: The server localhost takes too long to answer.");
}

// As by the system when memory is short, at each stage.
TEST_F(PublishedUpdateTest, anEngineThatIsKilledIsAFailureAndCanBeTriedAgain) {
  constexpr const char* interruption = "failure: The work on the update was interrupted before it was done. Try again.";
  launch("/silent");
  updater->checkForUpdates();
  ASSERT_TRUE(killsEngine());
  EXPECT_TRUE(shows(interruption)) << driver.screen;
  driver.acknowledge();
  publish("2.0", "half");
  launch();
  updater->checkForUpdates();
  ASSERT_TRUE(shows("found"));
  driver.choose(Choice::install);
  EXPECT_TRUE(becomes([&] { return driver.progress.starts_with(std::to_string(package.size() / 2)); }));
  ASSERT_TRUE(killsEngine());
  EXPECT_TRUE(shows(interruption)) << driver.screen;
  EXPECT_TRUE(fs::is_empty(sandbox / "packages"));
  driver.retry();
  EXPECT_TRUE(shows("downloading 2.0")) << driver.screen;
}

TEST_F(PublishedUpdateTest, twoProgramsAtOnceAreNotInEachOthersWay) {
  FakeUserDriver otherDriver;
  EngineProcess otherEngine{UPDATE_ENGINE, loop.watch()};
  host_linux::PackageOpener otherOpener{loop.watch()};
  TimerAlarm otherAlarm{loop.watch()};
  launch();
  FeedUpdater other(configuration("/file/feed.xml"), UpdaterPreferences(sandbox / "updates"),
                    UpdaterPorts{otherEngine, otherDriver, otherOpener, otherAlarm});
  updater->checkForUpdates();
  other.checkForUpdates();
  for (const char* screen : {"found", "ready", "opened"}) {
    EXPECT_TRUE(becomes([&] { return driver.screen.starts_with(screen) && otherDriver.screen.starts_with(screen); }))
        << driver.screen << " and " << otherDriver.screen;
    if (screen != std::string("opened")) {
      driver.choose(Choice::install);
      otherDriver.choose(Choice::install);
    }
  }
  EXPECT_EQ(sandbox.read("opened"), package);
}

}  // namespace
}  // namespace tarnwell::updateclient
