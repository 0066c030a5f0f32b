#include <gtest/gtest.h>

#include "updateclient/UpdaterStage.h"

namespace tarnwell::updateclient {
namespace {

/// A stage on which the program was never launched.
struct FirstLaunch : UpdaterStage {
  FirstLaunch() { std::filesystem::remove(sandbox / "updates"); }
};

TEST(UpdaterPermission, isAskedForOnTheSecondLaunch) {
  FirstLaunch stage;
  stage.launch();
  stage.alarm.ring();
  EXPECT_TRUE(stage.driver.journal.empty());
  EXPECT_FALSE(stage.alarm.time());
  stage.launch();
  EXPECT_TRUE(stage.driver.journal.empty());
  stage.alarm.ring();
  EXPECT_EQ(stage.driver.screen, "permission");
  EXPECT_TRUE(stage.engine.addresses.empty());
  EXPECT_TRUE(stage.updater->canCheckForUpdates());
}

TEST(UpdaterPermission, turnsBothSwitchesAsItWasGiven) {
  for (const bool checks : {false, true}) {
    for (const bool downloads : {false, true}) {
      UpdaterStage stage;
      stage.launch();
      stage.alarm.ring();
      stage.driver.permit({.checks = checks, .downloads = downloads});
      EXPECT_EQ(stage.preferences.automaticChecks(), checks);
      EXPECT_EQ(stage.updater->automaticallyDownloadsUpdates(), downloads);
      EXPECT_EQ(stage.alarm.time().has_value(), checks);
      EXPECT_EQ(stage.driver.screen, "");
      stage.launch();
      EXPECT_EQ(stage.driver.journal.size(), 1U);
    }
  }
}

TEST(UpdaterPermission, leavesDownloadsOnThatWereSwitchedOnBefore) {
  for (const bool checks : {false, true}) {
    UpdaterStage stage;
    stage.launch().setAutomaticallyDownloadsUpdates(true);
    stage.alarm.ring();
    stage.driver.permit({.checks = checks, .downloads = false});
    EXPECT_TRUE(stage.updater->automaticallyDownloadsUpdates());
    EXPECT_EQ(stage.preferences.automaticChecks(), checks);
  }
}

TEST(UpdaterPermission, isNotAskedForWhereTheSwitchWasTurned) {
  FirstLaunch stage;
  stage.launch().setAutomaticallyChecksForUpdates(false);
  stage.launch();
  stage.alarm.ring();
  EXPECT_TRUE(stage.driver.journal.empty());
}

TEST(UpdaterPermission, isNoLongerAskedForOnceTheSwitchIsTurned) {
  UpdaterStage stage;
  stage.launch();
  stage.alarm.ring();
  stage.updater->setAutomaticallyChecksForUpdates(true);
  EXPECT_EQ(stage.driver.screen, "");
  EXPECT_TRUE(stage.updater->automaticallyChecksForUpdates());
}

TEST(UpdaterPermission, givesWayToACheckAndComesBackWithTheNextLaunch) {
  UpdaterStage stage;
  stage.launch();
  stage.alarm.ring();
  stage.ask(feedOf(""));
  stage.driver.acknowledge();
  EXPECT_EQ(stage.preferences.automaticChecks(), std::nullopt);
  stage.launch();
  stage.alarm.ring();
  EXPECT_EQ(stage.driver.screen, "permission");
}

TEST(UpdaterPermission, doesNotInterruptACheck) {
  UpdaterStage stage;
  stage.launch().checkForUpdates();
  stage.alarm.ring();
  EXPECT_EQ(stage.driver.screen, "checking");
}

TEST(UpdaterPermission, leavesTheScreenWithTheProgram) {
  UpdaterStage stage;
  stage.launch();
  stage.alarm.ring();
  stage.updater.reset();
  EXPECT_EQ(stage.driver.screen, "");
}

TEST(UpdaterPermission, isNotAskedForWhereThereIsNoFeed) {
  UpdaterStage stage;
  stage.launch({});
  stage.alarm.ring();
  EXPECT_TRUE(stage.driver.journal.empty());
  EXPECT_FALSE(stage.alarm.time());
}

}  // namespace
}  // namespace tarnwell::updateclient
