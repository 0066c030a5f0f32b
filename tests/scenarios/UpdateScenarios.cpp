#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>

#include "scenarios/PanelStage.h"
#include "updatewindows/UpdateWindows.h"

namespace tarnwell::scenarios {
namespace {

using kit::AccessibleRole;
using release::FeedItem;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;
using testing::StartsWith;
using updateclient::HandOver;
using updateclient::UserDriver;

class UpdateScenarios : public testing::Test {
 protected:
  kit::Window& window() { return windows.panel().window(); }
  bool isOpen() { return stage.system().isOnScreen(window()); }
  std::vector<std::string> texts() { return stage.names(window(), AccessibleRole::text); }
  /// What the notes say, and what their links are called.
  std::string notes() { return std::get<std::string>(stage.driver().look(notesControl()).value); }
  kit::Control& notesControl() { return stage.control(window(), AccessibleRole::document); }
  std::vector<std::string> buttons() { return stage.names(window(), AccessibleRole::button); }
  std::vector<std::string> progress() { return stage.names(window(), AccessibleRole::progressBar); }
  kit::Accessible look(const std::string& name) { return stage.driver().look(stage.control(window(), name)); }
  void press(const std::string& name) { stage.press(window(), name); }
  void key(Key key) { stage.key(window(), key); }

  void showFound(UserDriver::Origin origin = UserDriver::Origin::user) {
    windows.showFound(item, origin, choose);
    stage.system().settle();
  }

  PanelStage stage;
  updatewindows::UpdateWindows windows{stage.application(), "1.0"};
  FeedItem item = {
      .title = "Spring release", .version = "12", .shownVersion = "1.2", .readNotes = {{.runs = {{.text = "Notes"}}}}};
  std::vector<UserDriver::Choice> choices;
  int events = 0;
  std::function<void(UserDriver::Choice)> choose = [this](UserDriver::Choice choice) {
    choices.push_back(choice);
    events += stage.application().turn().isPerforming() ? 1 : 0;
  };
  int answers = 0;
  kit::Action answer = [this] { ++answers; };
};

TEST_F(UpdateScenarios, anUpdateThatWasFoundSaysWhatItIs) {
  showFound();
  EXPECT_EQ(window().title(), "Software Update");
  EXPECT_THAT(texts(), ElementsAre("Spring release", "Tarnwell 1.2 is available; you have 1.0."));
  EXPECT_EQ(notes(), "Notes");
  EXPECT_THAT(buttons(), ElementsAre("Skip This Version", "Remind Me Later", "Install Update"));
  EXPECT_TRUE(look("Install Update").isDefault);
}

TEST_F(UpdateScenarios, theWindowHasRoomForItsButtonsHoweverWideTheyAre) {
  showFound();
  for (const std::string& title : buttons()) {
    const kit::Rect& frame = stage.control(window(), title).frame();
    EXPECT_GE(frame.x, 92) << title;
    EXPECT_LE(frame.right(), window().contentSize().width - 20) << title;
  }
}

TEST_F(UpdateScenarios, eachButtonGivesItsAnswerOnceAndTheWindowGoes) {
  for (const auto& [title, choice] : {std::pair("Skip This Version", UserDriver::Choice::skip),
                                      std::pair("Remind Me Later", UserDriver::Choice::remindLater),
                                      std::pair("Install Update", UserDriver::Choice::install)}) {
    choices.clear();
    showFound();
    press(title);
    EXPECT_THAT(choices, ElementsAre(choice));
    EXPECT_FALSE(isOpen());
  }
  EXPECT_EQ(events, 3);
}

TEST_F(UpdateScenarios, returnInstallsAndClosingRemindsLater) {
  showFound();
  key(Key::enter);
  showFound();
  key(Key::escape);
  showFound();
  stage.system().closeWindow(window());
  showFound();
  stage.application().responders().sendAction(kit::selectors::performClose, nullptr, nullptr);
  EXPECT_THAT(choices, ElementsAre(UserDriver::Choice::install, UserDriver::Choice::remindLater,
                                   UserDriver::Choice::remindLater, UserDriver::Choice::remindLater));
  EXPECT_FALSE(isOpen());
}

TEST_F(UpdateScenarios, aCriticalUpdateCannotBeSkipped) {
  item.isCritical = true;
  showFound();
  EXPECT_THAT(buttons(), ElementsAre("Remind Me Later", "Install Update"));
  EXPECT_EQ(texts().at(1), "Tarnwell 1.2 is available; you have 1.0. This is an important update.");
}

TEST_F(UpdateScenarios, whatThereIsOnlyToReadIsNotInstalled) {
  item.isInformational = true;
  showFound();
  EXPECT_THAT(buttons(), ElementsAre("Skip This Version", "Remind Me Later", "Learn More"));
}

TEST_F(UpdateScenarios, textsOfTheFeedAreOfBearableLength) {
  showFound();
  const double usual = stage.system().sizeOf(window()).width;
  item.title = "<b>bold</b>\n" + std::string(5000, 'x');
  item.shownVersion = std::string(5000, '9');
  showFound();
  EXPECT_THAT(texts().at(0), StartsWith("<b>bold</b> x"));
  for (const std::string& text : texts()) {
    EXPECT_LT(text.size(), 130U);
  }
  EXPECT_EQ(stage.system().sizeOf(window()).width, usual);
}

TEST_F(UpdateScenarios, longNotesScrollInWhatTheWindowHasRoomFor) {
  item.readNotes.resize(200, item.readNotes.front());
  showFound();
  EXPECT_LT(stage.system().sizeOf(window()).height, 400);
  EXPECT_THAT(stage.names(window(), AccessibleRole::group), ElementsAre("Release notes"));
}

TEST_F(UpdateScenarios, linksInNotesOpenInTheBrowser) {
  item.readNotes = {{.style = release::NotesParagraph::Style::item,
                     .level = 1,
                     .runs = {{.text = "More in "}, {.text = "the notes", .link = "https://tarnwell.example/notes"}}}};
  showFound();
  EXPECT_EQ(notes(), "• More in the notes");
  EXPECT_THAT(stage.driver().parts(notesControl()), ElementsAre(kit::AccessiblePart{.name = "the notes"}));
  stage.driver().perform(notesControl(), {.action = kit::AccessibleAction::choosePart, .part = 0});
  EXPECT_EQ(stage.system().openedAddress(), "https://tarnwell.example/notes");
  EXPECT_TRUE(isOpen());
}

TEST_F(UpdateScenarios, withoutNotesTheirPageIsALink) {
  item.readNotes.clear();
  item.releaseNotesLink = "https://tarnwell.example/notes";
  showFound();
  press("Read what is new");
  EXPECT_EQ(stage.system().openedAddress(), "https://tarnwell.example/notes");
  EXPECT_TRUE(isOpen());
  item.releaseNotesLink = "file:///etc/passwd";
  showFound();
  EXPECT_THAT(texts(), SizeIs(2));
  EXPECT_THAT(buttons(), SizeIs(3));
}

TEST_F(UpdateScenarios, aPageOpensInTheBrowser) {
  windows.openPage("https://tarnwell.example/page");
  EXPECT_EQ(stage.system().openedAddress(), "https://tarnwell.example/page");
}

TEST_F(UpdateScenarios, aBackgroundCheckDoesNotTakeTheKeyboard) {
  showFound(UserDriver::Origin::schedule);
  EXPECT_TRUE(isOpen());
  EXPECT_FALSE(window().takesKeyboard());
  showFound(UserDriver::Origin::user);
  EXPECT_TRUE(window().takesKeyboard());
  EXPECT_EQ(stage.application().windows().keyWindow(), &window());
}

TEST_F(UpdateScenarios, spacePressesTheDefaultButtonOfEachPage) {
  showFound();
  key(Key::space);
  EXPECT_THAT(choices, ElementsAre(UserDriver::Choice::install));
  windows.showChecking(answer);
  key(Key::space);
  EXPECT_EQ(answers, 0);
  windows.showUpToDate("1.0", answer);
  key(Key::space);
  EXPECT_EQ(answers, 1);
  EXPECT_FALSE(isOpen());
}

TEST_F(UpdateScenarios, spacePressesNothingWhereTheWindowCameWithoutTheKeyboard) {
  showFound(UserDriver::Origin::schedule);
  key(Key::space);
  EXPECT_THAT(choices, IsEmpty());
  EXPECT_TRUE(isOpen());
}

TEST_F(UpdateScenarios, permissionIsGivenWithAndWithoutDownloads) {
  std::optional<UserDriver::Permission> given;
  const auto ask = [&] { windows.showPermission([&](UserDriver::Permission permission) { given = permission; }); };
  ask();
  EXPECT_FALSE(window().takesKeyboard());
  EXPECT_THAT(texts().at(0), "Check for updates automatically?");
  EXPECT_THAT(buttons(), ElementsAre("Don’t Check", "Check Automatically"));
  key(Key::enter);
  EXPECT_TRUE(given->checks && !given->downloads);
  ask();
  press("Download updates automatically");
  press("Check Automatically");
  EXPECT_TRUE(given->checks && given->downloads);
  ask();
  EXPECT_EQ(look("Download updates automatically").value, kit::AccessibleValue(false));
  press("Download updates automatically");
  key(Key::escape);
  EXPECT_TRUE(!given->checks && !given->downloads);
}

TEST_F(UpdateScenarios, checkingCanBeCancelled) {
  windows.showChecking(answer);
  EXPECT_THAT(texts(), ElementsAre("Checking for updates…"));
  EXPECT_THAT(progress(), ElementsAre("Checking for updates"));
  EXPECT_EQ(look("Checking for updates").range, std::nullopt);
  EXPECT_EQ(stage.system().sizeOf(window()).width, 500);
  press("Cancel");
  windows.showChecking(answer);
  key(Key::escape);
  EXPECT_EQ(answers, 2);
  EXPECT_FALSE(isOpen());
}

TEST_F(UpdateScenarios, aDownloadShowsHowFarItIs) {
  windows.showDownloading(item, answer);
  EXPECT_THAT(texts(), ElementsAre("Downloading Tarnwell 1.2…", "Connecting…"));
  windows.showProgress(3'200'000, 10'000'000);
  EXPECT_EQ(texts().at(1), "3.2 MB of 10 MB");
  EXPECT_EQ(look("Download").value, kit::AccessibleValue(0.32));
  press("Cancel");
  EXPECT_EQ(answers, 1);
  windows.showProgress(4'000'000, 10'000'000);
  EXPECT_FALSE(isOpen());
}

TEST_F(UpdateScenarios, verifyingAndInstallingCanBeCancelled) {
  windows.showVerifying(item, answer);
  EXPECT_THAT(texts(), ElementsAre("Verifying Tarnwell 1.2…"));
  EXPECT_THAT(progress(), ElementsAre("Verifying"));
  press("Cancel");
  windows.showInstalling(item, answer);
  EXPECT_THAT(texts(), ElementsAre("Installing Tarnwell 1.2…"));
  EXPECT_THAT(progress(), ElementsAre("Installing"));
  key(Key::escape);
  EXPECT_EQ(answers, 2);
  EXPECT_FALSE(isOpen());
}

TEST_F(UpdateScenarios, whatIsLeftToDoIsSaidWithoutCoveringTheInstaller) {
  windows.showHandedOver(item, HandOver::opened, UserDriver::Origin::schedule, answer);
  EXPECT_FALSE(window().takesKeyboard());
  EXPECT_THAT(texts(), ElementsAre("The installer has been opened",
                                   "Go on there to install Tarnwell 1.2. When that is done, restart Tarnwell to use "
                                   "it."));
  EXPECT_THAT(buttons(), ElementsAre("Restart Tarnwell", "OK"));
  EXPECT_TRUE(look("OK").isDefault);
  press("OK");
  windows.showHandedOver(item, HandOver::replaced, UserDriver::Origin::user, answer);
  EXPECT_TRUE(window().takesKeyboard());
  EXPECT_THAT(texts(), ElementsAre("Tarnwell 1.2 is installed", "Restart Tarnwell to use it."));
  EXPECT_THAT(buttons(), ElementsAre("Later", "Restart Tarnwell"));
  press("Later");
  EXPECT_EQ(answers, 2);
  EXPECT_FALSE(isOpen());
  EXPECT_THAT(stage.system().journal(), Not(Contains("startAgainAtEnd")));
}

TEST_F(UpdateScenarios, aNewVersionIsStartedByAButton) {
  windows.showHandedOver(item, HandOver::replaced, UserDriver::Origin::user, answer);
  EXPECT_TRUE(stage.system().endsBy([this] { key(Key::enter); }));
  EXPECT_EQ(answers, 1);
  EXPECT_THAT(stage.system().journal(), Contains("startAgainAtEnd"));
}

TEST_F(UpdateScenarios, oneThingIsOnTheScreenAtATime) {
  windows.showChecking(answer);
  windows.showDownloading(item, answer);
  windows.showReady(item, UserDriver::Origin::user, choose);
  EXPECT_THAT(texts(),
              ElementsAre("Tarnwell 1.2 is ready to install", "It has been downloaded and verified; you have 1.0."));
  EXPECT_THAT(progress(), IsEmpty());
  EXPECT_EQ(answers, 0);
  windows.dismiss();
  EXPECT_FALSE(isOpen());
  EXPECT_THAT(choices, IsEmpty());
}

TEST_F(UpdateScenarios, whatAnAnswerShowsStays) {
  windows.showChecking([this] { windows.showUpToDate("1.0", answer); });
  press("Cancel");
  EXPECT_THAT(texts(), ElementsAre("Tarnwell is up to date", "Version 1.0 is the newest one."));
  key(Key::enter);
  EXPECT_EQ(answers, 1);
  EXPECT_FALSE(isOpen());
}

TEST_F(UpdateScenarios, aFailureOffersToTryAgainWhereThatCanHelp) {
  int retries = 0;
  windows.showFailure("The server does not answer.", answer, [&] { ++retries; });
  EXPECT_THAT(texts(), ElementsAre("Tarnwell could not be updated", "The server does not answer."));
  EXPECT_THAT(buttons(), ElementsAre("Close", "Try Again"));
  key(Key::enter);
  EXPECT_EQ(retries, 1);
  windows.showFailure("The disk is full.", answer, {});
  EXPECT_THAT(buttons(), ElementsAre("OK"));
  press("OK");
  EXPECT_EQ(answers, 1);
}

TEST_F(UpdateScenarios, withoutAFeedThereIsNowhereToLook) {
  windows.showObstacle("There is no feed.", answer);
  EXPECT_THAT(texts(), ElementsAre("Tarnwell cannot look for updates", "There is no feed."));
  EXPECT_THAT(buttons(), ElementsAre("OK"));
  key(Key::escape);
  EXPECT_EQ(answers, 1);
}

TEST_F(UpdateScenarios, aScreenReaderIsToldWhatThePageSays) {
  showFound();
  EXPECT_EQ(window().accessibleDescription(), "Spring release\nTarnwell 1.2 is available; you have 1.0.");
  windows.showDownloading(item, answer);
  EXPECT_THAT(progress(), ElementsAre("Download"));
}

}  // namespace
}  // namespace tarnwell::scenarios
