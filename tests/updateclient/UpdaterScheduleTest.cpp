#include <gtest/gtest.h>

#include "updateclient/UpdaterStage.h"

namespace tarnwell::updateclient {
namespace {

using std::chrono::hours;

TEST(UpdaterSchedule, checksAnIntervalAfterTheLastCheck) {
  UpdaterStage stage;
  stage.checkedJustNow();
  stage.launch();
  EXPECT_EQ(stage.alarm.time(), stage.alarm.now() + hours(24));
  stage.alarm.pass(hours(24) - std::chrono::seconds(1));
  EXPECT_FALSE(stage.engine.isBusy());
  stage.alarm.pass(std::chrono::seconds(1));
  EXPECT_TRUE(stage.engine.isBusy());
  EXPECT_FALSE(stage.updater->canCheckForUpdates());
  EXPECT_EQ(stage.preferences.lastCheck(), stage.alarm.now());
  stage.engine.answer(feedOf(""));
  EXPECT_EQ(stage.alarm.time(), stage.alarm.now() + hours(24));
  EXPECT_TRUE(stage.driver.journal.empty());
}

TEST(UpdaterSchedule, theFirstCheckOfAllIsMadeWhenTheAlarmRings) {
  UpdaterStage stage;
  stage.preferences.setAutomaticChecks(true);
  stage.preferences.setHasLaunchedBefore();
  stage.alarm.goOn();
  stage.launch();
  stage.alarm.ring();
  EXPECT_TRUE(stage.engine.isBusy());
}

TEST(UpdaterSchedule, runsFromTheStartOnlyWhereTheUpdaterIsToStart) {
  for (const bool startingUpdater : {true, false}) {
    UpdaterStage stage;
    stage.checkedJustNow();
    const UpdaterController controller({.startingUpdater = startingUpdater}, stage.configuration(), stage.preferences,
                                       {stage.engine, stage.driver, stage.desktop, stage.alarm});
    EXPECT_EQ(stage.alarm.time().has_value(), startingUpdater);
  }
}

TEST(UpdaterSchedule, countsOverARestart) {
  UpdaterStage stage;
  stage.checkedJustNow();
  stage.launch();
  const auto due = stage.alarm.time();
  stage.updater.reset();
  EXPECT_FALSE(stage.alarm.time());
  stage.alarm.setClock(stage.alarm.now() + hours(10));
  stage.launch();
  EXPECT_EQ(stage.alarm.time(), due);
  stage.updater.reset();
  stage.alarm.setClock(stage.alarm.now() + hours(100));
  stage.launch();
  stage.alarm.ring();
  EXPECT_TRUE(stage.engine.isBusy());
}

TEST(UpdaterSchedule, countsFromACheckThatTheUserAskedFor) {
  UpdaterStage stage;
  stage.checkedJustNow();
  stage.launch();
  stage.alarm.setClock(stage.alarm.now() + hours(5));
  stage.ask(feedOf(""));
  EXPECT_FALSE(stage.alarm.time());
  stage.driver.acknowledge();
  EXPECT_EQ(stage.alarm.time(), stage.alarm.now() + hours(24));
}

TEST(UpdaterSchedule, takesTheIntervalFromThePreferences) {
  UpdaterStage stage;
  stage.sandbox.write("updates", "check-interval 10800\nlaunched-before yes\n");
  stage.checkedJustNow();
  stage.launch();
  EXPECT_EQ(stage.alarm.time(), stage.alarm.now() + hours(3));
}

TEST(UpdaterSchedule, setsTheAlarmAsSoonAsChecksAreSwitchedOn) {
  UpdaterStage stage;
  stage.preferences.setAutomaticChecks(false);
  FeedUpdater& updater = stage.launch();
  EXPECT_FALSE(stage.alarm.time());
  updater.setAutomaticallyChecksForUpdates(true);
  EXPECT_TRUE(updater.automaticallyChecksForUpdates());
  EXPECT_EQ(stage.alarm.time(), stage.alarm.now());
  updater.setAutomaticallyChecksForUpdates(false);
  EXPECT_FALSE(updater.automaticallyChecksForUpdates());
  EXPECT_FALSE(stage.alarm.time());
}

TEST(UpdaterSchedule, keepsTheTwoSwitchesApart) {
  UpdaterStage stage;
  FeedUpdater& updater = stage.launch();
  updater.setAutomaticallyDownloadsUpdates(true);
  EXPECT_FALSE(updater.automaticallyChecksForUpdates());
  updater.setAutomaticallyChecksForUpdates(true);
  updater.setAutomaticallyChecksForUpdates(false);
  EXPECT_TRUE(updater.automaticallyDownloadsUpdates());
}

TEST(UpdaterSchedule, heedsWhatAnotherProcessDid) {
  UpdaterStage stage;
  stage.checkedJustNow();
  stage.launch();
  const UpdaterPreferences other(stage.sandbox / "updates");
  other.setLastCheck(stage.alarm.now() + hours(23));
  stage.alarm.pass(hours(24));
  EXPECT_TRUE(stage.engine.addresses.empty());
  EXPECT_EQ(stage.alarm.time(), stage.alarm.now() + hours(23));
  other.setAutomaticChecks(false);
  stage.alarm.pass(hours(23));
  EXPECT_TRUE(stage.engine.addresses.empty());
  EXPECT_FALSE(stage.alarm.time());
}

TEST(UpdaterSchedule, takesNoWordOfAClockThatWasWrong) {
  UpdaterStage stage;
  stage.checkedJustNow();
  stage.preferences.setLastCheck(stage.alarm.now() + hours(24 * 365));
  stage.launch();
  EXPECT_EQ(stage.alarm.time(), stage.alarm.now());
}

TEST(UpdaterSchedule, doesNotCheckOverAndOverWhenNothingCanBeStored) {
  UpdaterStage stage;
  stage.checkedJustNow();
  stage.launch();
  // Nothing can take the place of a file in a folder that cannot be locked.
  std::filesystem::remove(stage.sandbox / ".updates.lock");
  std::filesystem::create_directory(stage.sandbox / ".updates.lock");
  testing::internal::CaptureStderr();
  stage.passADay(feedOf(""));
  EXPECT_NE(testing::internal::GetCapturedStderr().find("cannot write"), std::string::npos);
  EXPECT_EQ(stage.alarm.time(), stage.alarm.now() + hours(24));
}

TEST(UpdaterSchedule, isSilentWhenItFails) {
  UpdaterStage stage;
  stage.checkedJustNow();
  stage.launch();
  testing::internal::CaptureStderr();
  stage.alarm.pass(hours(24));
  stage.engine.finish(system::Failure{"The server cannot be reached."});
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "tarnwell: The server cannot be reached.\n");
  EXPECT_TRUE(stage.driver.journal.empty());
  EXPECT_TRUE(stage.updater->canCheckForUpdates());
  EXPECT_EQ(stage.alarm.time(), stage.alarm.now() + hours(24));
}

TEST(UpdaterSchedule, showsWhatItFoundUnasked) {
  UpdaterStage stage;
  stage.checkedJustNow();
  stage.launch();
  stage.passADay(stage.feed("2.0"));
  EXPECT_EQ(stage.driver.screen, "found 2.0 unasked");
  EXPECT_FALSE(stage.alarm.time());
  stage.driver.choose(Choice::remindLater);
  EXPECT_EQ(stage.alarm.time(), stage.alarm.now() + hours(24));
  stage.passADay(stage.feed("2.0"));
  EXPECT_EQ(stage.driver.screen, "found 2.0 unasked");
}

TEST(UpdaterSchedule, doesNotShowASkippedVersionAgain) {
  UpdaterStage stage;
  stage.checkedJustNow();
  stage.launch();
  stage.passADay(stage.feed("2.0"));
  stage.driver.choose(Choice::skip);
  stage.passADay(stage.feed("2.0"));
  EXPECT_EQ(stage.driver.journal.size(), 1U);
  stage.passADay(feedOf(stage.item("2.0", "<x:criticalUpdate/>")));
  EXPECT_EQ(stage.driver.screen, "found 2.0 unasked");
  stage.driver.choose(Choice::remindLater);
  stage.passADay(stage.feed("2.1"));
  EXPECT_EQ(stage.driver.screen, "found 2.1 unasked");
}

TEST(UpdaterSchedule, showsTheDownloadThatTheUserWanted) {
  UpdaterStage stage;
  stage.checkedJustNow();
  stage.launch();
  stage.passADay(stage.feed("2.0"));
  stage.driver.choose(Choice::install);
  EXPECT_EQ(stage.driver.screen, "downloading 2.0");
  EXPECT_FALSE(stage.updater->canCheckForUpdates());
  stage.engine.answer(stage.package("2.0"));
  EXPECT_EQ(stage.driver.screen, "ready 2.0 as asked");
}

TEST(UpdaterSchedule, downloadsSilentlyWhereThatIsWanted) {
  UpdaterStage stage;
  stage.beginUnasked("2.0");
  EXPECT_TRUE(stage.driver.journal.empty());
  EXPECT_TRUE(stage.updater->canCheckForUpdates());
  stage.engine.answer(stage.package("2.0"));
  EXPECT_EQ(stage.driver.journal, std::vector<std::string>{"ready 2.0 unasked"});
  stage.driver.choose(Choice::install);
  stage.desktop.finish(system::Failure{"No installer was found."});
  EXPECT_EQ(stage.desktop.content, "package of 2.0");
  EXPECT_EQ(stage.driver.screen, "failure: No installer was found.");
}

TEST(UpdaterSchedule, bringsForwardABackgroundDownload) {
  UpdaterStage stage;
  stage.beginUnasked("2.0");
  stage.engine.deliver("package ");
  EXPECT_TRUE(stage.driver.journal.empty());
  stage.updater->checkForUpdates();
  EXPECT_EQ(stage.driver.screen, "downloading 2.0");
  EXPECT_EQ(stage.driver.progress, "8 of 14");
  EXPECT_FALSE(stage.updater->canCheckForUpdates());
  stage.engine.deliver("of");
  EXPECT_EQ(stage.driver.progress, "10 of 14");
  EXPECT_EQ(stage.engine.addresses.size(), 2U);
  stage.engine.answer(" 2.0");
  EXPECT_EQ(stage.driver.screen, "ready 2.0 as asked");
}

TEST(UpdaterSchedule, cancelsADownloadThatWasBroughtForward) {
  UpdaterStage stage;
  stage.beginUnasked("2.0");
  stage.updater->checkForUpdates();
  stage.driver.cancel();
  EXPECT_FALSE(stage.engine.isBusy());
  EXPECT_TRUE(stage.updater->canCheckForUpdates());
  EXPECT_TRUE(stage.holdsNoPackage());
}

TEST(UpdaterSchedule, bringsForwardABackgroundVerification) {
  UpdaterStage stage;
  stage.checkedJustNow();
  stage.preferences.setAutomaticDownloads(true);
  stage.engine.isHeld = true;
  stage.launch();
  stage.passADay(stage.feed("2.0"));
  stage.engine.answer("package of 6.6");
  EXPECT_TRUE(stage.driver.journal.empty());
  EXPECT_TRUE(stage.updater->canCheckForUpdates());
  stage.updater->checkForUpdates();
  EXPECT_EQ(stage.driver.screen, "verifying 2.0");
  stage.engine.work();
  EXPECT_TRUE(stage.driver.screen.starts_with("failure: ")) << stage.driver.screen;
}

TEST(UpdaterSchedule, doesNotOfferAgainWhatWasHandedOver) {
  UpdaterStage stage;
  stage.beginToInstall("2.0");
  stage.desktop.finish();
  stage.driver.acknowledge();
  const auto shown = stage.driver.journal.size();
  stage.passADay(stage.feed("2.0"));
  stage.passADay(feedOf(stage.item("2.0", "<x:criticalUpdate/>")));
  EXPECT_EQ(stage.driver.journal.size(), shown);
  stage.passADay(stage.feed("2.1"));
  EXPECT_EQ(stage.driver.screen, "found 2.1 unasked");
}

TEST(UpdaterSchedule, offersWhatWasHandedOverAgainAfterARestart) {
  UpdaterStage stage;
  stage.beginToInstall("2.0");
  stage.desktop.finish();
  stage.launch();
  stage.passADay(stage.feed("2.0"));
  EXPECT_EQ(stage.driver.screen, "found 2.0 unasked");
}

TEST(UpdaterSchedule, keepsWhatWasHandedOverForADay) {
  UpdaterStage stage;
  stage.beginToInstall("2.0");
  stage.alarm.setClock(stage.alarm.now() + hours(1));
  stage.desktop.finish();
  stage.nameAPackage();
  stage.driver.acknowledge();
  stage.alarm.pass(hours(23));
  EXPECT_TRUE(stage.engine.isBusy());
  EXPECT_FALSE(stage.holdsNoPackage());
  stage.engine.answer(feedOf(""));
  stage.alarm.pass(hours(24));
  EXPECT_TRUE(stage.engine.isBusy());
  EXPECT_TRUE(stage.holdsNoPackage());
}

TEST(UpdaterSchedule, aStartLeavesAnInstallerItsPackageForADay) {
  UpdaterStage stage;
  stage.checkedJustNow();
  std::filesystem::create_directory(stage.sandbox / "packages");
  stage.nameAPackage();
  stage.launch();
  EXPECT_FALSE(stage.holdsNoPackage());
  stage.alarm.setClock(stage.alarm.now() + hours(25));
  stage.launch();
  EXPECT_TRUE(stage.holdsNoPackage());
}

TEST(UpdaterSchedule, keepsForADayWhatTheUserDidNotWaitFor) {
  UpdaterStage stage;
  stage.beginToInstall("2.0");
  stage.engine.work();
  stage.nameAPackage();
  stage.driver.cancel();
  stage.updater->checkForUpdates();
  stage.engine.answer(feedOf(""));
  EXPECT_FALSE(stage.holdsNoPackage());
  stage.driver.acknowledge();
  stage.alarm.pass(hours(25));
  EXPECT_TRUE(stage.engine.isBusy());
  EXPECT_TRUE(stage.holdsNoPackage());
}

TEST(UpdaterSchedule, saysNothingOfABackgroundDownloadThatFailed) {
  UpdaterStage stage;
  stage.beginUnasked("2.0");
  testing::internal::CaptureStderr();
  stage.engine.answer("package of 9.9");
  EXPECT_NE(testing::internal::GetCapturedStderr().find("the signature does not belong to this file"),
            std::string::npos);
  EXPECT_TRUE(stage.driver.journal.empty());
  EXPECT_TRUE(stage.updater->canCheckForUpdates());
  EXPECT_TRUE(stage.holdsNoPackage());
}

TEST(UpdaterSchedule, showsWhatIsOnlyToBeReadEvenWhereDownloadsAreAutomatic) {
  UpdaterStage stage;
  stage.checkedJustNow();
  stage.preferences.setAutomaticDownloads(true);
  stage.launch();
  stage.passADay(
      feedOf("<item><x:version>2.0</x:version><x:informationalUpdate/><link>https://updates.invalid/2</link></item>"));
  EXPECT_EQ(stage.driver.screen, "found 2.0 unasked");
}

TEST(UpdaterSchedule, bringsForwardWhatWasOverlooked) {
  UpdaterStage stage;
  stage.checkedJustNow();
  stage.launch();
  stage.passADay(stage.feed("2.0"));
  EXPECT_TRUE(stage.updater->canCheckForUpdates());
  stage.updater->checkForUpdates();
  EXPECT_EQ(stage.driver.screen, "found 2.0 as asked");
  EXPECT_FALSE(stage.updater->canCheckForUpdates());
  EXPECT_EQ(stage.engine.addresses.size(), 1U);
}

TEST(UpdaterSchedule, bringsForwardWhatIsDownloadedAlready) {
  UpdaterStage stage;
  stage.beginUnasked("2.0");
  stage.engine.answer(stage.package("2.0"));
  stage.updater->checkForUpdates();
  EXPECT_EQ(stage.driver.screen, "ready 2.0 as asked");
  stage.driver.choose(Choice::install);
  stage.engine.work();
  EXPECT_EQ(stage.desktop.content, "package of 2.0");
}

TEST(UpdaterSchedule, doesNotBeginWhileTheUserIsAtIt) {
  UpdaterStage stage;
  stage.checkedJustNow();
  stage.launch();
  stage.ask(stage.feed("2.0"));
  stage.updater->setAutomaticallyChecksForUpdates(true);
  EXPECT_FALSE(stage.alarm.time());
  stage.alarm.pass(hours(48));
  EXPECT_EQ(stage.driver.screen, "found 2.0 as asked");
}

}  // namespace
}  // namespace tarnwell::updateclient
