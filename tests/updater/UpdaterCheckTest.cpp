#include <gtest/gtest.h>

#include "updater/UpdaterStage.h"

namespace tarnwell::updater {
namespace {

using Journal = std::vector<std::string>;

TEST(UpdaterCheck, findsDownloadsVerifiesAndHandsOver) {
  UpdaterStage stage;
  stage.launch().checkForUpdates();
  EXPECT_EQ(stage.driver.screen, "checking");
  EXPECT_EQ(stage.transport.addresses, Journal{"https://updates.invalid/feed.xml"});
  stage.transport.answer(stage.feed("2.0"));
  EXPECT_EQ(stage.driver.screen, "found 2.0 as asked");
  stage.driver.choose(Choice::install);
  EXPECT_EQ(stage.driver.screen, "downloading 2.0");
  EXPECT_EQ(stage.driver.progress, "0 of 14");
  stage.transport.deliver("package ");
  EXPECT_EQ(stage.driver.progress, "8 of 14");
  stage.transport.answer("of 2.0");
  EXPECT_EQ(stage.driver.screen, "ready 2.0 as asked");
  EXPECT_EQ(stage.installer.calls, 0);
  stage.driver.choose(Choice::install);
  EXPECT_EQ(stage.installer.version, "2.0");
  EXPECT_EQ(stage.installer.content, "package of 2.0");
  EXPECT_EQ(stage.driver.screen, "installing 2.0");
  stage.installer.finish();
  EXPECT_EQ(stage.driver.screen, "opened 2.0 unasked");
  stage.driver.acknowledge();
  EXPECT_EQ(stage.driver.screen, "");
  EXPECT_TRUE(stage.updater->canCheckForUpdates());
  EXPECT_TRUE(stage.holdsNoPackage());
}

TEST(UpdaterCheck, saysWhatBecameOfThePackage) {
  for (const auto& [handOver, screen] :
       {std::pair(HandOver::opened, "opened 2.0"), std::pair(HandOver::replaced, "replaced by 2.0")}) {
    UpdaterStage stage;
    stage.launch();
    stage.askAndDownload("2.0");
    stage.driver.choose(Choice::install);
    stage.installer.finish(handOver);
    EXPECT_EQ(stage.driver.screen, screen + std::string(" unasked"));
    // It may be behind what was opened: a user who looks for updates sees it in front.
    EXPECT_TRUE(stage.updater->canCheckForUpdates());
    stage.updater->checkForUpdates();
    EXPECT_EQ(stage.driver.screen, screen + std::string(" as asked"));
    EXPECT_FALSE(stage.updater->canCheckForUpdates());
    stage.driver.acknowledge();
    EXPECT_TRUE(stage.updater->canCheckForUpdates());
  }
}

TEST(UpdaterCheck, offersWhatWasHandedOverToAUserWhoAsks) {
  UpdaterStage stage;
  stage.launch();
  stage.askAndDownload("2.0");
  stage.driver.choose(Choice::install);
  stage.installer.finish();
  stage.driver.acknowledge();
  stage.ask(stage.feed("2.0"));
  EXPECT_EQ(stage.driver.screen, "found 2.0 as asked");
}

TEST(UpdaterCheck, showsThatItVerifies) {
  UpdaterStage stage;
  stage.worker.isHeld = true;
  stage.launch();
  stage.askAndDownload("2.0");
  EXPECT_EQ(stage.driver.screen, "verifying 2.0");
  EXPECT_FALSE(stage.updater->canCheckForUpdates());
  stage.worker.work();
  EXPECT_EQ(stage.driver.screen, "ready 2.0 as asked");
}

TEST(UpdaterCheck, boundsTheTimeOfEachTransfer) {
  UpdaterStage stage;
  stage.launch();
  stage.askAndDownload("2.0");
  EXPECT_EQ(stage.transport.limits,
            (std::vector<std::chrono::milliseconds>{std::chrono::minutes(2), std::chrono::hours(24)}));
}

TEST(UpdaterCheck, saysWhenThereIsNothingNewer) {
  UpdaterStage stage;
  stage.launch();
  for (const std::string& feed : {feedOf(""), stage.feed("1.0"), stage.feed("0.9")}) {
    stage.ask(feed);
    EXPECT_EQ(stage.driver.screen, "up to date 1.0");
    EXPECT_FALSE(stage.updater->canCheckForUpdates());
    stage.driver.acknowledge();
    EXPECT_TRUE(stage.updater->canCheckForUpdates());
  }
}

TEST(UpdaterCheck, runsOnceAtATime) {
  UpdaterStage stage;
  std::vector<bool> told;
  Updater& updater = stage.launch();
  EXPECT_TRUE(updater.canCheckForUpdates());
  const auto subscription = updater.observeCanCheckForUpdates([&told](bool canCheck) { told.push_back(canCheck); });
  updater.checkForUpdates();
  updater.checkForUpdates();
  stage.transport.answer(stage.feed("2.0"));
  updater.checkForUpdates();
  stage.driver.choose(Choice::install);
  updater.checkForUpdates();
  stage.transport.answer(stage.package("2.0"));
  updater.checkForUpdates();
  EXPECT_EQ(stage.transport.addresses.size(), 2U);
  EXPECT_EQ(told, std::vector<bool>{false});
  stage.driver.choose(Choice::remindLater);
  EXPECT_EQ(told, (std::vector<bool>{false, true}));
}

TEST(UpdaterCheck, canBeCancelledAtEachStage) {
  UpdaterStage stage;
  stage.launch().checkForUpdates();
  stage.transport.deliver("<rss>");
  stage.driver.cancel();
  EXPECT_FALSE(stage.transport.isBusy());
  EXPECT_TRUE(stage.updater->canCheckForUpdates());

  stage.ask(stage.feed("2.0"));
  stage.driver.choose(Choice::remindLater);
  EXPECT_TRUE(stage.updater->canCheckForUpdates());

  stage.ask(stage.feed("2.0"));
  stage.driver.choose(Choice::install);
  stage.transport.deliver("package");
  stage.driver.cancel();
  EXPECT_FALSE(stage.transport.isBusy());
  EXPECT_TRUE(stage.updater->canCheckForUpdates());

  stage.worker.isHeld = true;
  stage.askAndDownload("2.0");
  EXPECT_TRUE(stage.worker.isBusy());
  stage.driver.cancel();
  EXPECT_FALSE(stage.worker.isBusy());
  EXPECT_TRUE(stage.updater->canCheckForUpdates());
  stage.worker.isHeld = false;

  stage.askAndDownload("2.0");
  stage.driver.choose(Choice::remindLater);
  EXPECT_TRUE(stage.updater->canCheckForUpdates());
  EXPECT_EQ(stage.driver.screen, "");
  EXPECT_EQ(stage.installer.calls, 0);

  stage.askAndDownload("2.0");
  stage.driver.choose(Choice::install);
  EXPECT_TRUE(stage.installer.isBusy());
  stage.driver.cancel();
  EXPECT_FALSE(stage.installer.isBusy());
  EXPECT_TRUE(stage.updater->canCheckForUpdates());
  EXPECT_EQ(stage.driver.screen, "");
  EXPECT_TRUE(stage.holdsNoPackage());
}

TEST(UpdaterCheck, showsAFailureAndTriesAgain) {
  UpdaterStage stage;
  stage.launch().checkForUpdates();
  stage.transport.finish(system::Failure{"The server cannot be reached."});
  EXPECT_EQ(stage.driver.screen, "failure: The server cannot be reached.");
  EXPECT_FALSE(stage.updater->canCheckForUpdates());
  stage.driver.retry();
  EXPECT_EQ(stage.driver.screen, "checking");
  stage.transport.answer("<html/>");
  EXPECT_EQ(stage.driver.screen, "failure: The update feed cannot be used: it is not a feed.");
  stage.driver.acknowledge();
  EXPECT_TRUE(stage.updater->canCheckForUpdates());
}

TEST(UpdaterCheck, endsTheTransferOfAFeedThatItRefuses) {
  UpdaterStage stage;
  stage.launch().checkForUpdates();
  stage.transport.deliver("<html>" + std::string(20'000, ' '));
  EXPECT_EQ(stage.driver.screen, "failure: The update feed cannot be used: it is not a feed.");
}

TEST(UpdaterCheck, downloadsAgainAfterAFailure) {
  UpdaterStage stage;
  stage.launch();
  stage.ask(stage.feed("2.0"));
  stage.driver.choose(Choice::install);
  stage.transport.deliver("package of");
  stage.transport.finish(system::Failure{"The connection was lost."});
  EXPECT_EQ(stage.driver.screen, "failure: The connection was lost.");
  stage.driver.retry();
  EXPECT_EQ(stage.driver.screen, "downloading 2.0");
  EXPECT_EQ(stage.driver.progress, "0 of 14");
  stage.transport.answer(stage.package("2.0"));
  EXPECT_EQ(stage.driver.screen, "ready 2.0 as asked");
}

TEST(UpdaterCheck, handsOverAgainAfterAFailure) {
  UpdaterStage stage;
  stage.launch();
  stage.askAndDownload("2.0");
  stage.driver.choose(Choice::install);
  stage.installer.finish(system::Failure{"No installer was found."});
  EXPECT_EQ(stage.driver.screen, "failure: No installer was found.");
  stage.driver.retry();
  EXPECT_EQ(stage.installer.calls, 2);
  EXPECT_EQ(stage.installer.content, "package of 2.0");
  stage.installer.finish();
  EXPECT_EQ(stage.driver.screen, "opened 2.0 unasked");
}

TEST(UpdaterCheck, doesNotOfferToTryAgainWhatCannotSucceed) {
  UpdaterStage stage;
  stage.installer.obstacle = system::Failure{"Nothing can be installed here."};
  stage.launch();
  stage.askAndDownload("2.0");
  stage.driver.choose(Choice::install);
  EXPECT_EQ(stage.driver.screen, "failure: Nothing can be installed here.");
  EXPECT_FALSE(stage.driver.canRetry());
  stage.driver.acknowledge();
  EXPECT_TRUE(stage.updater->canCheckForUpdates());
}

TEST(UpdaterCheck, saysWhyAPackageCannotBeStored) {
  UpdaterStage stage;
  stage.sandbox.write("packages", "no folder");
  stage.launch();
  stage.ask(stage.feed("2.0"));
  stage.driver.choose(Choice::install);
  EXPECT_TRUE(stage.driver.screen.starts_with("failure: The update could not be stored: ")) << stage.driver.screen;
  EXPECT_TRUE(stage.driver.canRetry());
}

TEST(UpdaterCheck, opensThePageOfWhatIsOnlyToBeRead) {
  UpdaterStage stage;
  stage.launch();
  stage.ask(
      feedOf("<item><x:version>2.0</x:version><x:informationalUpdate/><link>https://updates.invalid/2</link></item>"));
  EXPECT_EQ(stage.driver.screen, "found 2.0 as asked");
  stage.driver.choose(Choice::install);
  EXPECT_EQ(stage.driver.openedPages, Journal{"https://updates.invalid/2"});
  EXPECT_EQ(stage.driver.screen, "");
  EXPECT_TRUE(stage.updater->canCheckForUpdates());
}

TEST(UpdaterCheck, findsWhatWasSkipped) {
  UpdaterStage stage;
  stage.launch();
  stage.ask(stage.feed("2.0"));
  stage.driver.choose(Choice::skip);
  EXPECT_EQ(stage.preferences.skippedVersion(), "2.0");
  stage.ask(stage.feed("2.0"));
  EXPECT_EQ(stage.driver.screen, "found 2.0 as asked");
}

TEST(UpdaterCheck, neverSkipsACriticalItem) {
  UpdaterStage stage;
  stage.launch();
  stage.ask(feedOf(stage.item("2.0", "<x:criticalUpdate/>")));
  stage.driver.choose(Choice::skip);
  EXPECT_EQ(stage.preferences.skippedVersion(), "");
}

TEST(UpdaterCheck, asksBeforeItDownloadsEvenWhereDownloadsAreAutomatic) {
  UpdaterStage stage;
  stage.preferences.setAutomaticDownloads(true);
  stage.launch();
  stage.ask(stage.feed("2.0"));
  EXPECT_EQ(stage.driver.screen, "found 2.0 as asked");
}

TEST(UpdaterCheck, leavesAnEmptyScreenWhenTheProgramEnds) {
  for (const int steps : {1, 2, 3, 4, 5, 6, 7}) {
    UpdaterStage stage;
    stage.worker.isHeld = true;
    stage.launch().checkForUpdates();
    const std::vector<std::function<void()>> ways = {
        [&] { stage.transport.answer(stage.feed("2.0")); },    [&] { stage.driver.choose(Choice::install); },
        [&] { stage.transport.answer(stage.package("2.0")); }, [&] { stage.worker.work(); },
        [&] { stage.driver.choose(Choice::install); },         [&] { stage.installer.finish(); }};
    for (int step = 1; step < steps; ++step) {
      ways[static_cast<std::size_t>(step) - 1]();
    }
    stage.updater.reset();
    EXPECT_EQ(stage.driver.screen, "");
    EXPECT_FALSE(stage.transport.isBusy());
    EXPECT_FALSE(stage.worker.isBusy());
    EXPECT_FALSE(stage.installer.isBusy());
  }
}

TEST(UpdaterCheck, withoutAFeedSaysSoPlainly) {
  for (const auto& [address, key] :
       std::vector<std::pair<std::string, std::string>>{{"", SigningKey().publicText()},
                                                        {"https://updates.invalid/", ""},
                                                        {"https://tarnwell.example/feed.xml", "key"}}) {
    UpdaterStage stage;
    auto configuration = stage.configuration();
    configuration.feedAddress = address;
    configuration.publicKey = key;
    stage.preferences.setAutomaticChecks(true);
    Updater& updater = stage.launch(configuration);
    EXPECT_FALSE(stage.alarm.time());
    updater.checkForUpdates();
    updater.checkForUpdates();
    EXPECT_EQ(stage.driver.journal,
              Journal{"failure: This build of Tarnwell has no update feed, so it cannot look for a newer version."});
    EXPECT_FALSE(stage.driver.canRetry());
    EXPECT_FALSE(updater.canCheckForUpdates());
    stage.driver.acknowledge();
    EXPECT_TRUE(updater.canCheckForUpdates());
    EXPECT_TRUE(stage.transport.addresses.empty());
  }
}

TEST(UpdaterCheck, withAKeyThatIsNoneSendsNoRequest) {
  UpdaterStage stage;
  auto configuration = stage.configuration();
  configuration.publicKey = "AAAA";
  stage.launch(configuration).checkForUpdates();
  EXPECT_EQ(stage.driver.screen,
            "failure: This build of Tarnwell cannot verify a newer version: the key is not 32 bytes in base64.");
  EXPECT_TRUE(stage.transport.addresses.empty());
}

TEST(UpdaterCheck, ofABuildWithoutSettingsHasNoFeed) {
  const auto configuration = UpdaterConfiguration::compiledIn();
  EXPECT_FALSE(configuration.hasFeed());
  EXPECT_FALSE(configuration.runningVersion.empty());
  EXPECT_EQ(configuration.systemVersion.find_first_not_of("0123456789."), std::string::npos);
  EXPECT_FALSE(configuration.systemVersion.empty());
}

}  // namespace
}  // namespace tarnwell::updater
