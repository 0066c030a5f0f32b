#include <gtest/gtest.h>

#include "app/HeadlessApplication.h"
#include "fixtures/ExpectDump.h"
#include "kit/control/Window.h"
#include "kit/controls/text/TextField.h"

namespace tarnwell::app {
namespace {

using Lines = std::vector<std::string>;

TEST(MainMenu, readsAsDesigned) {
  HeadlessApplication application;
  application.start();
  fixtures::expectDump("app/MainMenu.dump", application.mainMenuPicture());
}

// Who hides it is the system's own application object, which is not here.
TEST(MainMenu, offersToHideTheApplicationWhereTheSystemCan) {
  HeadlessApplication application;
  application.platform().traits().hidesApplications = true;
  application.start();
  fixtures::expectDump("app/MainMenuThatHides.dump", application.mainMenuPicture());
}

TEST(MainMenu, whatThePlatformsWindowsAndFieldsDoIsLeftToItsOwnResponders) {
  HeadlessApplication application;
  application.platform().traits().hidesApplications = true;
  application.start();
  Lines titles;
  for (const auto& menu : application.platform().shownMainMenu()->items()) {
    for (const auto& item : menu->submenu()->items()) {
      if (item->isPlatforms()) {
        titles.push_back(item->title());
      }
    }
  }
  EXPECT_EQ(titles, (Lines{"Hide Tarnwell", "Hide Others", "Show All", "Close", "Undo", "Redo", "Cut", "Copy", "Paste",
                           "Delete", "Select All", "Minimize"}));
}

TEST(MainMenu, linksOpenThePages) {
  HeadlessApplication application;
  application.start().newMilestones();
  application.choose("Help", "Tarnwell Help");
  application.choose("Help", "Send feedback...");
  application.choose("Help", "Support this project \u2665\uFE0F");
  EXPECT_EQ(application.newMilestones(),
            (Lines{"open https://tarnwell.example/help", "open https://tarnwell.example/feedback",
                   "open https://tarnwell.example/donate"}));
}

TEST(MainMenu, aboutStandsInTwoMenusAndActivatesNothing) {
  HeadlessApplication application;
  application.start().newMilestones();
  application.choose("Tarnwell", "About Tarnwell");
  application.choose("Help", "About Tarnwell");
  EXPECT_EQ(application.newMilestones(), (Lines{"about panel", "about panel"}));
}

TEST(MainMenu, commandCommaIsAnsweredByTheFirstEntryInOrder) {
  HeadlessApplication application;
  application.start();
  application.settings().performClose();
  application.settle();
  // The entry of the View menu is out of the way: only the first one can have answered.
  application.entry("View", "Show settings window")->setHandler([] { FAIL() << "the second entry answered"; });
  EXPECT_TRUE(application.pressCommand(","));
  EXPECT_TRUE(application.settingsAreOpen());
}

TEST(MainMenu, showSettingsWindowOpensTheSettings) {
  HeadlessApplication application;
  application.start();
  application.settings().performClose();
  application.choose("View", "Show settings window");
  EXPECT_TRUE(application.settingsAreOpen());
}

TEST(MainMenu, commandWClosesTheWindowAndTheApplicationGoesOn) {
  HeadlessApplication application;
  application.start();
  EXPECT_TRUE(application.pressCommand("w"));
  EXPECT_FALSE(application.settingsAreOpen());
  EXPECT_FALSE(application.platform().hasTerminated());
  EXPECT_EQ(application.platform().statusItems().size(), 1U);
  // Nothing is left to close.
  EXPECT_FALSE(application.pressCommand("w"));
}

TEST(MainMenu, commandQQuits) {
  HeadlessApplication application;
  application.start();
  EXPECT_TRUE(application.pressCommand("q"));
  EXPECT_TRUE(application.platform().hasTerminated());
}

TEST(MainMenu, anUpperCaseQIsNoEntryOfTheMainMenu) {
  HeadlessApplication application;
  application.start();
  EXPECT_FALSE(application.pressCommand("Q"));
  EXPECT_FALSE(application.platform().hasTerminated());
}

TEST(MainMenu, checkForUpdatesIsDisabledWhileACheckRuns) {
  HeadlessApplication application;
  application.start();
  EXPECT_TRUE(application.application().responders().canChoose(*application.entry("Help", "Check for Updates…")));
  application.application().turn().perform([&] { application.platform().updater().setCanCheckForUpdates(false); });
  EXPECT_FALSE(application.application().responders().canChoose(*application.entry("Help", "Check for Updates…")));
  application.application().turn().perform([&] { application.platform().updater().setCanCheckForUpdates(true); });
  EXPECT_TRUE(application.application().responders().canChoose(*application.entry("Help", "Check for Updates…")));
}

}  // namespace
}  // namespace tarnwell::app
