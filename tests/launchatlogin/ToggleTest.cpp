#include "launchatlogin/Toggle.h"

#include <gtest/gtest.h>

#include "host/headless/HeadlessPlatform.h"
#include "kit/application/Application.h"
#include "kit/controls/buttons/Toggle.h"
#include "view/Dump.h"
#include "view/controls/text/Label.h"
#include "view/controls/text/Text.h"
#include "view/scenes/HostedWindow.h"

namespace tarnwell::launchatlogin {
namespace {

using Lines = std::vector<std::string>;

class ToggleTest : public testing::Test {
 protected:
  void show(const view::View& view) {
    window.emplace(application->turn(), platform.host(), view::HostedWindow::Content{.view = view});
    window->open();
    platform.journal().clear();
  }

  kit::Toggle& toggle() {
    for (kit::Control* control : window->tree().controls()) {
      if (auto* found = dynamic_cast<kit::Toggle*>(control)) {
        return *found;
      }
    }
    throw std::logic_error("no switch");
  }

  std::string dumped() { return view::dump(window->tree().root()); }

  Lines loginItemCalls() {
    Lines calls = platform.journal().lines();
    std::erase_if(calls, [](const std::string& line) { return !line.starts_with("login item: "); });
    return calls;
  }

  host_headless::HeadlessPlatform platform;
  std::shared_ptr<kit::Application> application = kit::Application::create(platform);
  std::optional<view::HostedWindow> window;
};

TEST_F(ToggleTest, eachInitialiserGivesItsLabel) {
  const std::vector<std::pair<view::View, std::string>> table = {
      {LaunchAtLogin::Toggle(), "Launch at login"},
      {LaunchAtLogin::Toggle(view::LocalizedStringKey{"Start by itself"}), "Start by itself"},
      {LaunchAtLogin::Toggle(std::string("Start with me")), "Start with me"},
      {LaunchAtLogin::Toggle(view::View(view::Text{"Always there"})), "Always there"},
      {LaunchAtLogin::Toggle(view::View(view::Label{.title = "With a picture", .symbol = "star"})), "With a picture"}};
  for (const auto& [view, label] : table) {
    show(view);
    EXPECT_NE(dumped().find("Text \"" + label + "\""), std::string::npos) << dumped();
    EXPECT_EQ(toggle().accessibleName(), label);
  }
}

TEST_F(ToggleTest, alwaysFollowsTheSharedObservable) {
  EXPECT_EQ(LaunchAtLogin::Toggle()._launchAtLogin.get(), LaunchAtLogin::observable());
  EXPECT_EQ(LaunchAtLogin::Toggle(std::string("x"))._launchAtLogin.get(), LaunchAtLogin::observable());
}

TEST_F(ToggleTest, showsTheRegistration) {
  platform.loginItem().setStatus(kit::LoginItem::Status::enabled);
  show(LaunchAtLogin::Toggle());
  EXPECT_TRUE(toggle().isOn());
  EXPECT_EQ(loginItemCalls(), Lines{});
}

TEST_F(ToggleTest, aPressRegistersAndAnotherUnregisters) {
  show(LaunchAtLogin::Toggle());
  toggle().press();
  EXPECT_TRUE(toggle().isOn());
  toggle().press();
  EXPECT_FALSE(toggle().isOn());
  EXPECT_EQ(loginItemCalls(), (Lines{"login item: register", "login item: unregister"}));
}

TEST_F(ToggleTest, springsBackWhenTheSystemRefuses) {
  platform.loginItem().answers().registerFailure = "no";
  show(LaunchAtLogin::Toggle());
  toggle().press();
  EXPECT_FALSE(toggle().isOn());
}

TEST_F(ToggleTest, staysOffWhileTheUserHasNotApproved) {
  platform.loginItem().answers().onceRegistered = kit::LoginItem::Status::requiresApproval;
  show(LaunchAtLogin::Toggle());
  toggle().press();
  EXPECT_FALSE(toggle().isOn());
}

TEST_F(ToggleTest, followsAWriteFromElsewhere) {
  show(LaunchAtLogin::Toggle());
  application->turn().perform([] { LaunchAtLogin::observable()->setEnabled(true); });
  EXPECT_TRUE(toggle().isOn());
}

TEST_F(ToggleTest, readsTheSystemAgainAtTheNextRedraw) {
  show(LaunchAtLogin::Toggle());
  platform.loginItem().setStatus(kit::LoginItem::Status::enabled);
  platform.loginItem().answers().unregisterFailure = "no";
  application->turn().perform([] { LaunchAtLogin::observable()->setEnabled(false); });
  EXPECT_TRUE(toggle().isOn());
}

}  // namespace
}  // namespace tarnwell::launchatlogin
