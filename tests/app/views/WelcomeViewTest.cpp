#include "app/views/WelcomeView.h"

#include <gtest/gtest.h>

#include "host/headless/HeadlessPlatform.h"
#include "kit/application/Application.h"
#include "view/Dump.h"
#include "view/scenes/HostedWindow.h"
#include "view/tree/MountedNode.h"

namespace tarnwell::app {
namespace {

using Lines = std::vector<std::string>;

class WelcomeViewTest : public testing::Test {
 protected:
  WelcomeViewTest() {
    action->closure = [this]() -> std::exception_ptr {
      steps.emplace_back("open settings");
      return nullptr;
    };
  }

  void show() {
    const WelcomeView view{.openSettingsLegacy = action, .dismissWindow = [this](const std::string& identifier) {
                             const bool activated = platform.journal().lines().back() == "activate";
                             steps.push_back("dismiss " + identifier + (activated ? ", activated, " : ", ") +
                                             std::to_string(application->events().posted().size()) + " posted");
                           }};
    window.emplace(application->turn(), platform.host(), view::HostedWindow::Content{.view = view});
    window->open();
  }

  host_headless::HeadlessPlatform platform;
  std::shared_ptr<kit::Application> application = kit::Application::create(platform);
  std::shared_ptr<settingsaccess::OpenSettingsAccessAction> action =
      settingsaccess::OpenSettingsAccessAction::create(*application);
  Lines steps;
  std::optional<view::HostedWindow> window;
};

TEST_F(WelcomeViewTest, isATextAndNothingElse) {
  show();
  EXPECT_EQ(view::dump(window->tree().root()), "Text \"Hello, World!\"\n");
}

TEST_F(WelcomeViewTest, activatesThenPostsTheKeyThenDismissesItsWindow) {
  show();
  EXPECT_EQ(steps, Lines{"dismiss settingslauncher, activated, 1 posted"});
}

TEST_F(WelcomeViewTest, dismissesItsWindowThoughNoKeyCouldBeMade) {
  platform.traits().makesEvents = false;
  show();
  EXPECT_EQ(steps, Lines{"dismiss settingslauncher, activated, 0 posted"});
}

TEST_F(WelcomeViewTest, neverCallsTheActionThatItHolds) {
  show();
  platform.runUntilIdle(*application);
  EXPECT_EQ(steps.size(), 1U);
}

}  // namespace
}  // namespace tarnwell::app
