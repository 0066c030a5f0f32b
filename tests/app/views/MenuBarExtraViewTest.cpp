#include <gtest/gtest.h>

#include "app/HeadlessApplication.h"
#include "app/views/MenuBarExtraView.h"
#include "fixtures/DockCommands.h"
#include "fixtures/ExpectDump.h"
#include "kit/control/Window.h"
#include "kit/turn/Turn.h"
#include "view/tree/MountedTree.h"

namespace tarnwell::app {
namespace {

using Lines = std::vector<std::string>;

TEST(MenuBarExtraView, hasEightEntries) {
  HeadlessApplication application;
  application.start();
  fixtures::expectDump("app/MenuBarExtra.dump", application.extraPicture());
}

TEST(MenuBarExtraView, settingsOpensTheWindowOnTheDockTabFreshlyLoaded) {
  HeadlessApplication application;
  application.start();
  application.chooseTab(1);
  application.settings().performClose();
  application.settle();
  application.reads();
  application.chooseFromExtra("Settings...");
  EXPECT_TRUE(application.settingsAreOpen());
  EXPECT_NE(application.settingsPicture().find("*\"Dock\""), std::string::npos);
  EXPECT_EQ(application.reads(), fixtures::readCommands());
}

TEST(MenuBarExtraView, settingsWithTheWindowOpenBringsItToTheFrontAndReadsNothing) {
  HeadlessApplication application;
  application.start();
  application.reads();
  application.newMilestones();
  application.chooseFromExtra("Settings...");
  EXPECT_EQ(application.reads(), Lines{});
  EXPECT_EQ(application.newMilestones(),
            (Lines{"status item \"Utility App\": menu opens", "window com_apple_SwiftUI_Settings_window: in front",
                   "status item \"Utility App\": menu closes"}));
}

TEST(MenuBarExtraView, aboutShowsThePanelWithoutActivating) {
  HeadlessApplication application;
  application.start().newMilestones();
  application.chooseFromExtra("About Tarnwell");
  EXPECT_EQ(application.newMilestones(), (Lines{"status item \"Utility App\": menu opens", "about panel",
                                                "status item \"Utility App\": menu closes"}));
}

TEST(MenuBarExtraView, quitQuitsAtOnce) {
  HeadlessApplication application;
  application.start();
  application.chooseFromExtra("Quit Tarnwell");
  EXPECT_TRUE(application.platform().hasTerminated());
}

TEST(MenuBarExtraView, anUpperCaseQAnswersOnlyInTheOpenMenu) {
  HeadlessApplication application;
  application.start();
  bool answered = false;
  application.platform().setMenuScript([&answered](host_headless::OpenMenu& menu) {
    answered = menu.press({.charactersIgnoringModifiers = "Q", .modifierFlags = kit::commandFlag});
  });
  application.platform().statusItems().at(0)->mouseUp(kit::Event::Type::leftMouseUp);
  EXPECT_TRUE(answered);
  EXPECT_TRUE(application.platform().hasTerminated());
}

TEST(MenuBarExtraView, checkForUpdatesStartsACheckAndFollowsTheUpdater) {
  HeadlessApplication application;
  application.start();
  application.newMilestones();
  application.chooseFromExtra("Check for Updates…");
  const Lines lines = application.newMilestones();
  ASSERT_EQ(lines.size(), 3U);
  EXPECT_EQ(lines[1], "updater: checkForUpdates");
  application.application().turn().perform([&] { application.platform().updater().setCanCheckForUpdates(false); });
  EXPECT_NE(application.extraPicture().find("Check for Updates…  (disabled)"), std::string::npos);
  application.application().turn().perform([&] { application.platform().updater().setCanCheckForUpdates(true); });
  EXPECT_EQ(application.extraPicture().find("(disabled)"), std::string::npos);
}

TEST(MenuBarExtraViewDeathTest, endsTheProcessWithoutAnUpdater) {
  const host_headless::HeadlessPlatform platform;
  EXPECT_DEATH(
      {
        kit::Turn turn;
        kit::Menu menu;
        view::MountedTree tree(turn, menu);
        tree.mount(MenuBarExtraView{}, {});
      },
      "No ObservableObject of type UpdaterEnv found");
}

}  // namespace
}  // namespace tarnwell::app
