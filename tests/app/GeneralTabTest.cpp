#include <gtest/gtest.h>

#include "app/HeadlessApplication.h"
#include "kit/control/Window.h"
#include "kit/controls/buttons/Button.h"
#include "kit/controls/buttons/Toggle.h"

namespace tarnwell::app {
namespace {

using Lines = std::vector<std::string>;

constexpr const char* checks = "Check for updates automatically";
constexpr const char* downloads = "Download updates automatically";

kit::Toggle& toggle(HeadlessApplication& application, const std::string& name) {
  return dynamic_cast<kit::Toggle&>(application.control(name));
}

TEST(GeneralTab, showsWhatTheUpdaterHoldsAtEachShowing) {
  HeadlessApplication application;
  application.start();
  application.platform().updater().preferences() = {.checks = true, .downloads = false};
  application.chooseTab(1);
  EXPECT_TRUE(toggle(application, checks).isOn());
  EXPECT_FALSE(toggle(application, downloads).isOn());
  application.chooseTab(0);
  application.platform().updater().preferences() = {.checks = false, .downloads = true};
  application.chooseTab(1);
  EXPECT_FALSE(toggle(application, checks).isOn());
  EXPECT_TRUE(toggle(application, downloads).isOn());
}

TEST(GeneralTab, theRefreshWritesBackOnlyWhatDiffered) {
  HeadlessApplication application;
  application.start();
  application.platform().updater().preferences() = {.checks = true, .downloads = false};
  application.newMilestones();
  application.chooseTab(1);
  Lines writes;
  for (const std::string& line : application.newMilestones()) {
    if (line.rfind("updater", 0) == 0) {
      writes.push_back(line);
    }
  }
  EXPECT_EQ(writes, (Lines{"updater: automaticallyChecksForUpdates = 1"}));
}

TEST(GeneralTab, oneClickWritesOneValueAndTheSwitchesAreIndependent) {
  HeadlessApplication application;
  application.start();
  application.chooseTab(1);
  application.newMilestones();
  toggle(application, downloads).press();
  EXPECT_EQ(application.newMilestones(), (Lines{"updater: automaticallyDownloadsUpdates = 1"}));
  EXPECT_FALSE(toggle(application, checks).isOn());
  toggle(application, checks).press();
  toggle(application, checks).press();
  EXPECT_EQ(application.newMilestones(),
            (Lines{"updater: automaticallyChecksForUpdates = 1", "updater: automaticallyChecksForUpdates = 0"}));
  EXPECT_TRUE(toggle(application, downloads).isOn());
  EXPECT_TRUE(toggle(application, downloads).isEnabled());
}

TEST(GeneralTab, launchAtLoginFollowsTheSystem) {
  HeadlessApplication application;
  application.start();
  application.chooseTab(1);
  toggle(application, "Launch at login").press();
  EXPECT_EQ(application.platform().loginItem().status(), kit::LoginItem::Status::enabled);
  EXPECT_TRUE(toggle(application, "Launch at login").isOn());
}

TEST(GeneralTab, theButtonChecksForUpdatesAndIsDisabledWhileItCannot) {
  HeadlessApplication application;
  application.start();
  application.chooseTab(1);
  application.newMilestones();
  auto& button = dynamic_cast<kit::Button&>(application.control("Check for Updates…"));
  button.click();
  EXPECT_EQ(application.newMilestones(), (Lines{"updater: checkForUpdates"}));
  application.application().turn().perform([&] { application.platform().updater().setCanCheckForUpdates(false); });
  EXPECT_FALSE(button.isEnabled());
}

}  // namespace
}  // namespace tarnwell::app
