#include <gtest/gtest.h>

#include "updateclient/UpdaterStage.h"

namespace tarnwell::updateclient {
namespace {

using Journal = std::vector<std::string>;

TEST(UpdaterCheck, findsDownloadsVerifiesAndHandsOver) {
  UpdaterStage stage;
  stage.launch().checkForUpdates();
  EXPECT_EQ(stage.driver.screen, "checking");
  EXPECT_EQ(stage.engine.addresses, Journal{"https://updates.invalid/feed.xml"});
  stage.engine.answer(stage.feed("2.0"));
  EXPECT_EQ(stage.driver.screen, "found 2.0 as asked");
  stage.driver.choose(Choice::install);
  EXPECT_EQ(stage.driver.screen, "downloading 2.0");
  EXPECT_EQ(stage.driver.progress, "0 of 14");
  stage.engine.deliver("package ");
  EXPECT_EQ(stage.driver.progress, "8 of 14");
  stage.engine.answer("of 2.0");
  EXPECT_EQ(stage.driver.screen, "ready 2.0 as asked");
  EXPECT_EQ(stage.desktop.calls, 0);
  stage.driver.choose(Choice::install);
  EXPECT_EQ(stage.driver.screen, "installing 2.0");
  stage.desktop.finish();
  EXPECT_EQ(stage.desktop.content, "package of 2.0");
  EXPECT_EQ(stage.driver.screen, "opened 2.0 unasked");
  stage.driver.acknowledge();
  EXPECT_EQ(stage.driver.screen, "");
  EXPECT_TRUE(stage.updater->canCheckForUpdates());
  // It stays for an installer that has not read it yet.
  EXPECT_EQ(stage.sandbox.read("packages/tarnwell-update.deb"), "package of 2.0");
}

TEST(UpdaterCheck, saysWhatBecameOfThePackage) {
  for (const auto& [kind, screen] : {std::pair("debian", "opened 2.0"), std::pair("app-image", "replaced by 2.0")}) {
    UpdaterStage stage;
    stage.engine.kind = kind;
    stage.sandbox.write("Tarnwell.AppImage", "1.0");
    auto configuration = stage.configuration();
    configuration.program = stage.sandbox / "Tarnwell.AppImage";
    stage.launch(configuration);
    stage.askAndDownload("2.0");
    stage.driver.choose(Choice::install);
    stage.desktop.finish();
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
  stage.desktop.finish();
  stage.driver.acknowledge();
  stage.ask(stage.feed("2.0"));
  EXPECT_EQ(stage.driver.screen, "found 2.0 as asked");
}

TEST(UpdaterCheck, showsThatItVerifies) {
  UpdaterStage stage;
  stage.engine.isHeld = true;
  stage.launch();
  stage.askAndDownload("2.0");
  EXPECT_EQ(stage.driver.screen, "verifying 2.0");
  EXPECT_FALSE(stage.updater->canCheckForUpdates());
  stage.engine.work();
  EXPECT_EQ(stage.driver.screen, "ready 2.0 as asked");
}

TEST(UpdaterCheck, readsTheNotesBeforeItOffersTheUpdate) {
  UpdaterStage stage;
  stage.engine.isHeld = true;
  stage.launch();
  stage.ask(feedOf(stage.item("2.0", "<description>&lt;b&gt;New&lt;/b&gt;</description>")));
  EXPECT_EQ(stage.driver.screen, "checking");
  stage.engine.work();
  EXPECT_EQ(stage.driver.screen, "found 2.0 as asked");
  ASSERT_EQ(stage.driver.notes.size(), 1U);
  EXPECT_EQ(stage.driver.notes[0].runs.at(0).text, "New");
  EXPECT_TRUE(stage.holdsNoPackage());
}

TEST(UpdaterCheck, offersAnUpdateWhoseNotesCannotBeKept) {
  UpdaterStage stage;
  stage.sandbox.write("packages", "no folder");
  stage.launch();
  stage.ask(feedOf(stage.item("2.0", "<description>New</description>")));
  EXPECT_EQ(stage.driver.screen, "found 2.0 as asked");
  EXPECT_TRUE(stage.driver.notes.empty());
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
  FeedUpdater& updater = stage.launch();
  EXPECT_TRUE(updater.canCheckForUpdates());
  const auto subscription = updater.observeCanCheckForUpdates([&told](bool canCheck) { told.push_back(canCheck); });
  updater.checkForUpdates();
  updater.checkForUpdates();
  stage.engine.answer(stage.feed("2.0"));
  updater.checkForUpdates();
  stage.driver.choose(Choice::install);
  updater.checkForUpdates();
  stage.engine.answer(stage.package("2.0"));
  updater.checkForUpdates();
  EXPECT_EQ(stage.engine.addresses.size(), 2U);
  EXPECT_EQ(told, std::vector<bool>{false});
  stage.driver.choose(Choice::remindLater);
  EXPECT_EQ(told, (std::vector<bool>{false, true}));
}

TEST(UpdaterCheck, canBeCancelledAtEachStage) {
  UpdaterStage stage;
  stage.launch().checkForUpdates();
  stage.engine.deliver("<rss>");
  stage.driver.cancel();
  EXPECT_FALSE(stage.engine.isBusy());
  EXPECT_TRUE(stage.updater->canCheckForUpdates());

  stage.ask(stage.feed("2.0"));
  stage.driver.choose(Choice::remindLater);
  EXPECT_TRUE(stage.updater->canCheckForUpdates());

  stage.ask(stage.feed("2.0"));
  stage.driver.choose(Choice::install);
  stage.engine.deliver("package");
  stage.driver.cancel();
  EXPECT_FALSE(stage.engine.isBusy());
  EXPECT_TRUE(stage.updater->canCheckForUpdates());

  stage.engine.isHeld = true;
  stage.askAndDownload("2.0");
  EXPECT_TRUE(stage.engine.isBusy());
  stage.driver.cancel();
  EXPECT_FALSE(stage.engine.isBusy());
  EXPECT_TRUE(stage.updater->canCheckForUpdates());
  stage.engine.isHeld = false;

  stage.askAndDownload("2.0");
  stage.driver.choose(Choice::remindLater);
  EXPECT_TRUE(stage.updater->canCheckForUpdates());
  EXPECT_EQ(stage.driver.screen, "");
  EXPECT_EQ(stage.desktop.calls, 0);

  stage.askAndDownload("2.0");
  stage.driver.choose(Choice::install);
  EXPECT_TRUE(stage.desktop.isBusy());
  stage.driver.cancel();
  EXPECT_FALSE(stage.desktop.isBusy());
  EXPECT_TRUE(stage.updater->canCheckForUpdates());
  EXPECT_EQ(stage.driver.screen, "");
  EXPECT_TRUE(stage.holdsNoPackage());
}

TEST(UpdaterCheck, showsAFailureAndTriesAgain) {
  UpdaterStage stage;
  stage.launch().checkForUpdates();
  stage.engine.finish(system::Failure{"The server cannot be reached."});
  EXPECT_EQ(stage.driver.screen, "failure: The server cannot be reached.");
  EXPECT_FALSE(stage.updater->canCheckForUpdates());
  stage.driver.retry();
  EXPECT_EQ(stage.driver.screen, "checking");
  stage.engine.answer("<html/>");
  EXPECT_EQ(stage.driver.screen, "failure: The update feed cannot be used: it is not a feed.");
  stage.driver.acknowledge();
  EXPECT_TRUE(stage.updater->canCheckForUpdates());
}

TEST(UpdaterCheck, downloadsAgainAfterAFailure) {
  UpdaterStage stage;
  stage.launch();
  stage.ask(stage.feed("2.0"));
  stage.driver.choose(Choice::install);
  stage.engine.deliver("package of");
  stage.engine.finish(system::Failure{"The connection was lost."});
  EXPECT_EQ(stage.driver.screen, "failure: The connection was lost.");
  stage.driver.retry();
  EXPECT_EQ(stage.driver.screen, "downloading 2.0");
  EXPECT_EQ(stage.driver.progress, "0 of 14");
  stage.engine.answer(stage.package("2.0"));
  EXPECT_EQ(stage.driver.screen, "ready 2.0 as asked");
}

TEST(UpdaterCheck, handsOverAgainAfterAFailure) {
  UpdaterStage stage;
  stage.launch();
  stage.askAndDownload("2.0");
  stage.driver.choose(Choice::install);
  stage.desktop.finish(system::Failure{"No installer was found."});
  EXPECT_EQ(stage.driver.screen, "failure: No installer was found.");
  stage.driver.retry();
  stage.desktop.finish();
  EXPECT_EQ(stage.desktop.calls, 2);
  EXPECT_EQ(stage.desktop.content, "package of 2.0");
  EXPECT_EQ(stage.driver.screen, "opened 2.0 unasked");
}

TEST(UpdaterCheck, refusesWhatItCannotInstallBeforeItOffersTo) {
  UpdaterStage stage;
  stage.engine.kind = "other";
  stage.launch();
  stage.askAndDownload("2.0");
  EXPECT_EQ(stage.driver.screen, "failure: The update is of no kind that can be installed on this system.");
}

TEST(UpdaterCheck, doesNotOfferToTryAgainWhatCannotSucceed) {
  UpdaterStage stage;
  stage.engine.kind = "app-image";
  stage.launch();
  stage.askAndDownload("2.0");
  stage.driver.choose(Choice::install);
  EXPECT_EQ(stage.driver.screen,
            "failure: The update is an AppImage, but Tarnwell does not run from one. Get the package for your system "
            "from where you got Tarnwell.");
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
    stage.engine.isHeld = true;
    stage.launch().checkForUpdates();
    const std::vector<std::function<void()>> ways = {
        [&] { stage.engine.answer(stage.feed("2.0")); },    [&] { stage.driver.choose(Choice::install); },
        [&] { stage.engine.answer(stage.package("2.0")); }, [&] { stage.engine.work(); },
        [&] { stage.driver.choose(Choice::install); },      [&] { stage.desktop.finish(); }};
    for (int step = 1; step < steps; ++step) {
      ways[static_cast<std::size_t>(step) - 1]();
    }
    stage.updater.reset();
    EXPECT_EQ(stage.driver.screen, "");
    EXPECT_FALSE(stage.engine.isBusy());
    EXPECT_FALSE(stage.engine.isBusy());
    EXPECT_FALSE(stage.desktop.isBusy());
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
    FeedUpdater& updater = stage.launch(configuration);
    EXPECT_FALSE(stage.alarm.time());
    updater.checkForUpdates();
    updater.checkForUpdates();
    EXPECT_EQ(
        stage.driver.journal,
        Journal{"cannot check: This build of Tarnwell has no update feed, so it cannot look for a newer version."});
    EXPECT_FALSE(updater.canCheckForUpdates());
    stage.driver.acknowledge();
    EXPECT_TRUE(updater.canCheckForUpdates());
    EXPECT_TRUE(stage.engine.addresses.empty());
  }
}

TEST(UpdaterCheck, ofABuildWithoutSettingsHasNoFeed) {
  const auto configuration = UpdaterConfiguration::compiledIn();
  EXPECT_FALSE(configuration.hasFeed());
  EXPECT_FALSE(configuration.runningVersion.empty());
  EXPECT_TRUE(configuration.channels.empty());
  EXPECT_EQ(configuration.systemVersion.find_first_not_of("0123456789."), std::string::npos);
  EXPECT_FALSE(configuration.systemVersion.empty());
}

}  // namespace
}  // namespace tarnwell::updateclient
