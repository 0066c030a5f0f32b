#include <gtest/gtest.h>

#include "app/RunningApplication.h"
#include "kit/controls/TextField.h"
#include "kit/controls/Window.h"

namespace tarnwell::app {
namespace {

using Lines = std::vector<std::string>;

TEST(MainMenu, hasTheStandardMenusInOrder) {
  RunningApplication application;
  application.start();
  Lines titles;
  for (const auto& item : application.application().mainMenu().items()) {
    titles.push_back(item->title());
  }
  EXPECT_EQ(titles, (Lines{"Tarnwell", "File", "Edit", "View", "Window", "Help"}));
}

TEST(MainMenu, readsAsDesigned) {
  RunningApplication application;
  application.start();
  EXPECT_EQ(application.menuPicture("Tarnwell"),
            "About Tarnwell\n"
            "-\n"
            "Settings…  command-,\n"
            "-\n"
            "Quit Tarnwell  command-q\n");
  EXPECT_EQ(application.menuPicture("File"), "Close  command-w\n");
  EXPECT_EQ(application.menuPicture("Edit"),
            "Undo  command-z  (disabled)\n"
            "Redo  command-Z  (disabled)\n"
            "-\n"
            "Cut  command-x  (disabled)\n"
            "Copy  command-c  (disabled)\n"
            "Paste  command-v  (disabled)\n"
            "Delete  (disabled)\n"
            "Select All  command-a  (disabled)\n");
  EXPECT_EQ(application.menuPicture("View"), "Show settings window  command-,\n");
  EXPECT_EQ(application.menuPicture("Window"), "Minimize  command-m\n");
  EXPECT_EQ(application.menuPicture("Help"),
            "Tarnwell Help\n"
            "-\n"
            "Check for Updates…\n"
            "Send feedback...\n"
            "Support this project \u2665\uFE0F\n"
            "-\n"
            "About Tarnwell\n");
}

// Who hides it is the system's own application object, which is not here.
TEST(MainMenu, offersToHideTheApplicationWhereTheSystemCan) {
  RunningApplication application;
  application.platform().traits().hidesApplications = true;
  application.start();
  EXPECT_EQ(application.menuPicture("Tarnwell"),
            "About Tarnwell\n"
            "-\n"
            "Settings…  command-,\n"
            "-\n"
            "Hide Tarnwell  command-h  (disabled)\n"
            "Hide Others  option-command-h  (disabled)\n"
            "Show All  (disabled)\n"
            "-\n"
            "Quit Tarnwell  command-q\n");
}

TEST(MainMenu, linksOpenThePages) {
  RunningApplication application;
  application.start().newMilestones();
  application.choose("Help", "Tarnwell Help");
  application.choose("Help", "Send feedback...");
  application.choose("Help", "Support this project \u2665\uFE0F");
  EXPECT_EQ(application.newMilestones(),
            (Lines{"open https://tarnwell.example/help", "open https://tarnwell.example/feedback",
                   "open https://tarnwell.example/donate"}));
}

TEST(MainMenu, aboutStandsInTwoMenusAndActivatesNothing) {
  RunningApplication application;
  application.start().newMilestones();
  application.choose("Tarnwell", "About Tarnwell");
  application.choose("Help", "About Tarnwell");
  EXPECT_EQ(application.newMilestones(), (Lines{"about panel", "about panel"}));
}

TEST(MainMenu, commandCommaIsAnsweredByTheFirstEntryInOrder) {
  RunningApplication application;
  application.start();
  application.settings().performClose();
  application.settle();
  // The entry of the View menu is out of the way: only the first one can have answered.
  application.entry("View", "Show settings window")->setHandler([] { FAIL() << "the second entry answered"; });
  EXPECT_TRUE(application.pressCommand(","));
  EXPECT_TRUE(application.settingsAreOpen());
}

TEST(MainMenu, showSettingsWindowOpensTheSettings) {
  RunningApplication application;
  application.start();
  application.settings().performClose();
  application.choose("View", "Show settings window");
  EXPECT_TRUE(application.settingsAreOpen());
}

TEST(MainMenu, commandWClosesTheWindowAndTheApplicationGoesOn) {
  RunningApplication application;
  application.start();
  EXPECT_TRUE(application.pressCommand("w"));
  EXPECT_FALSE(application.settingsAreOpen());
  EXPECT_FALSE(application.platform().hasTerminated());
  EXPECT_EQ(application.platform().statusItems().size(), 1U);
  // Nothing is left to close.
  EXPECT_FALSE(application.pressCommand("w"));
}

TEST(MainMenu, commandQQuits) {
  RunningApplication application;
  application.start();
  EXPECT_TRUE(application.pressCommand("q"));
  EXPECT_TRUE(application.platform().hasTerminated());
}

TEST(MainMenu, anUpperCaseQIsNoEntryOfTheMainMenu) {
  RunningApplication application;
  application.start();
  EXPECT_FALSE(application.pressCommand("Q"));
  EXPECT_FALSE(application.platform().hasTerminated());
}

TEST(MainMenu, checkForUpdatesIsDisabledWhileACheckRuns) {
  RunningApplication application;
  application.start();
  EXPECT_TRUE(application.application().canChoose(*application.entry("Help", "Check for Updates…")));
  application.application().turn().perform([&] { application.platform().updater().setCanCheckForUpdates(false); });
  EXPECT_FALSE(application.application().canChoose(*application.entry("Help", "Check for Updates…")));
  application.application().turn().perform([&] { application.platform().updater().setCanCheckForUpdates(true); });
  EXPECT_TRUE(application.application().canChoose(*application.entry("Help", "Check for Updates…")));
}

}  // namespace
}  // namespace tarnwell::app
