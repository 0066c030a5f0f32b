#include <gtest/gtest.h>

#include <sstream>

#include "app/HeadlessApplication.h"
#include "fixtures/DockCommands.h"
#include "kit/control/Window.h"
#include "settingsaccess/OpenSettingsKey.h"

namespace tarnwell::app {
namespace {

using Lines = std::vector<std::string>;

std::string size(const kit::Window& window) {
  std::ostringstream text;
  text << window.contentSize().width << " x " << window.contentSize().height;
  return text.str();
}

TEST(ApplicationStart, opensTheSettingsThroughTheLauncherInThisOrder) {
  HeadlessApplication application;
  application.start();
  EXPECT_EQ(
      application.milestones(),
      (Lines{"updater controller made", "main menu shown", "status item \"Utility App\": added",
             "status item \"Utility App\": menu attached", "status item \"Utility App\": image dock.rectangle",
             "window settingslauncher: title", "window settingslauncher: 0 x 0", "window settingslauncher: hidden",
             "window settingslauncher: 0 controls in order", "activate", "window settingslauncher: 1 controls in order",
             "window settingslauncher: 0 controls in order", "window com_apple_SwiftUI_Settings_window: title",
             "window com_apple_SwiftUI_Settings_window: 0 x 0", "window com_apple_SwiftUI_Settings_window: hidden",
             "window com_apple_SwiftUI_Settings_window: 0 controls in order",
             "window com_apple_SwiftUI_Settings_window: " + size(application.settings()),
             "window com_apple_SwiftUI_Settings_window: " + std::to_string(application.settings().controls().size()) +
                 " controls in order",
             "window com_apple_SwiftUI_Settings_window: shown"}));
}

TEST(ApplicationStart, leavesTheSettingsInFrontAndNothingElse) {
  HeadlessApplication application;
  application.start();
  EXPECT_EQ(application.application().windows().all(), std::vector<kit::Window*>{&application.settings()});
  EXPECT_EQ(application.application().windows().keyWindow(), &application.settings());
}

TEST(ApplicationStart, readsTheDockOnce) {
  HeadlessApplication application;
  application.start();
  EXPECT_EQ(application.reads(), fixtures::readCommands());
}

TEST(ApplicationStart, theLauncherIsGoneBeforeTheKeyIsHandled) {
  HeadlessApplication application;
  application.install();
  EXPECT_TRUE(application.application().windows().all().empty());
  ASSERT_EQ(application.application().events().posted().size(), 1U);
  EXPECT_FALSE(application.settingsAreOpen());
  application.settle();
  EXPECT_TRUE(application.settingsAreOpen());
}

TEST(ApplicationStart, theLauncherPostsCommandAndACommaAlone) {
  HeadlessApplication application;
  application.install();
  ASSERT_EQ(application.application().events().posted().size(), 1U);
  EXPECT_EQ(application.application().events().posted().front(), (kit::Event{.type = kit::Event::Type::keyDown,
                                                                             .location = {},
                                                                             .modifierFlags = 0x100000,
                                                                             .timestamp = 0,
                                                                             .windowNumber = 0,
                                                                             .characters = "",
                                                                             .charactersIgnoringModifiers = ",",
                                                                             .isARepeat = false,
                                                                             .keyCode = 43}));
}

TEST(ApplicationStart, theKeyQueuesBehindWhatWaitsAlready) {
  HeadlessApplication application;
  const kit::Event earlier{.charactersIgnoringModifiers = "x"};
  application.application().events().post(earlier);
  application.install();
  ASSERT_EQ(application.application().events().posted().size(), 2U);
  EXPECT_EQ(application.application().events().posted().front(), earlier);
}

TEST(ApplicationStart, withoutSyntheticEventsOnlyTheLauncherCloses) {
  HeadlessApplication application;
  application.platform().traits().makesEvents = false;
  application.start();
  EXPECT_TRUE(application.application().windows().all().empty());
  EXPECT_FALSE(application.settingsAreOpen());
  application.chooseFromExtra("Settings...");
  EXPECT_TRUE(application.settingsAreOpen());
}

TEST(ApplicationStart, installsNoDelegate) {
  HeadlessApplication application;
  application.start();
  EXPECT_EQ(application.application().delegate(), nullptr);
}

TEST(ApplicationStart, theLaunchersClosingLeavesTheTabAlone) {
  HeadlessApplication application;
  application.start();
  application.chooseTab(1);
  kit::Window other("settingslauncher", {});
  application.application().notificationCenter().post({.name = kit::windowWillCloseNotification, .object = &other});
  for (kit::Object* noWindow :
       {static_cast<kit::Object*>(nullptr), static_cast<kit::Object*>(&application.application())}) {
    application.application().notificationCenter().post({.name = kit::windowWillCloseNotification, .object = noWindow});
  }
  application.settle();
  EXPECT_NE(application.settingsPicture().find("*\"General\""), std::string::npos);
}

TEST(ApplicationStart, theHiddenLinkConnectsTheSettingsAction) {
  HeadlessApplication application;
  application.install();
  const auto action = settingsaccess::OpenSettingsKey::initial();
  EXPECT_NE((*action)(), nullptr);
  application.settle();
  application.settings().performClose();
  application.settle();
  EXPECT_EQ((*action)(), nullptr);
  EXPECT_TRUE(application.settingsAreOpen());
}

}  // namespace
}  // namespace tarnwell::app
