#include "host/linux/UnconfiguredUpdater.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>
#include <vector>

#include "fixtures/Sandbox.h"

namespace tarnwell::host_linux {
namespace {

/// An updater over a file in a sandbox, whose messages are kept until the test closes them.
struct Setting {
  std::string fileText() const {
    std::ostringstream text;
    text << std::ifstream(file).rdbuf();
    return text.str();
  }

  fixtures::Sandbox sandbox;
  std::filesystem::path file = sandbox.path() / "config" / "updates.conf";
  std::vector<std::string> messages = {};
  kit::Action close = {};
  UnconfiguredUpdater updater{UpdaterPreferences(file), [this](const std::string& message, kit::Action closed) {
                                messages.push_back(message);
                                close = std::move(closed);
                              }};
};

TEST(UnconfiguredUpdater, startsWithBothSwitchesOff) {
  const Setting setting;
  EXPECT_FALSE(setting.updater.automaticallyChecksForUpdates());
  EXPECT_FALSE(setting.updater.automaticallyDownloadsUpdates());
}

TEST(UnconfiguredUpdater, keepsTheSwitchesApartAndOverARestart) {
  Setting setting;
  setting.updater.setAutomaticallyDownloadsUpdates(true);
  EXPECT_FALSE(setting.updater.automaticallyChecksForUpdates());
  const UnconfiguredUpdater next(UpdaterPreferences(setting.file), {});
  EXPECT_TRUE(next.automaticallyDownloadsUpdates());
  EXPECT_EQ(setting.fileText(), "SUAutomaticallyUpdate=1\n");
}

TEST(UnconfiguredUpdater, seesWhatSomebodyElseWrote) {
  Setting setting;
  setting.updater.setAutomaticallyChecksForUpdates(true);
  UpdaterPreferences(setting.file).set(UpdaterPreferences::checksKey, false);
  EXPECT_FALSE(setting.updater.automaticallyChecksForUpdates());
}

TEST(UnconfiguredUpdater, leavesLinesThatAreNotItsOwn) {
  Setting setting;
  std::filesystem::create_directories(setting.file.parent_path());
  std::ofstream(setting.file) << "# mine\nSULastCheckTime=12\n";
  setting.updater.setAutomaticallyChecksForUpdates(true);
  EXPECT_EQ(setting.fileText(), "# mine\nSULastCheckTime=12\nSUEnableAutomaticChecks=1\n");
}

TEST(UnconfiguredUpdater, saysPlainlyThatThereIsNoFeed) {
  Setting setting;
  setting.updater.checkForUpdates();
  ASSERT_EQ(setting.messages.size(), 1U);
  EXPECT_NE(setting.messages.front().find("no update feed"), std::string::npos);
}

TEST(UnconfiguredUpdater, startsNoSecondCheckWhileTheMessageStands) {
  Setting setting;
  std::vector<bool> told;
  const auto subscription =
      setting.updater.observeCanCheckForUpdates([&told](bool canCheck) { told.push_back(canCheck); });
  setting.updater.checkForUpdates();
  setting.updater.checkForUpdates();
  EXPECT_EQ(setting.messages.size(), 1U);
  setting.close();
  EXPECT_TRUE(setting.updater.canCheckForUpdates());
  EXPECT_EQ(told, (std::vector<bool>{false, true}));
}

}  // namespace
}  // namespace tarnwell::host_linux
