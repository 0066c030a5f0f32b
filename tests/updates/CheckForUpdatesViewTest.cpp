#include "updates/CheckForUpdatesView.h"

#include <gtest/gtest.h>

#include "host/headless/HeadlessPlatform.h"
#include "kit/application/Application.h"
#include "kit/controls/buttons/Button.h"
#include "view/Dump.h"
#include "view/scenes/HostedWindow.h"
#include "view/tree/MountedNode.h"

namespace tarnwell::updates {
namespace {

using Lines = std::vector<std::string>;

class CheckForUpdatesViewTest : public testing::Test {
 protected:
  void show() {
    window.emplace(application->turn(), platform.host(),
                   view::HostedWindow::Content{.view = CheckForUpdatesView(platform.updater())});
    window->open();
    platform.journal().clear();
  }

  void setCanCheck(bool canCheck) {
    application->turn().perform([this, canCheck] { platform.updater().setCanCheckForUpdates(canCheck); });
  }

  std::string dumped() { return view::dump(window->tree().root()); }

  host_headless::HeadlessPlatform platform;
  std::shared_ptr<kit::Application> application = kit::Application::create(platform);
  std::optional<view::HostedWindow> window;
};

// The three full stops of the other entries would not do: the title ends in one character.
TEST_F(CheckForUpdatesViewTest, isAButtonWhoseTitleEndsInAnEllipsis) {
  show();
  EXPECT_EQ(dumped(), "Button \"Check for Updates\u2026\"\n");
}

TEST_F(CheckForUpdatesViewTest, itsFirstStateIsTheUpdatersAtThatMoment) {
  setCanCheck(false);
  show();
  EXPECT_EQ(dumped(), "Button \"Check for Updates…\" disabled\n");
}

TEST_F(CheckForUpdatesViewTest, aPressStartsOneCheck) {
  show();
  dynamic_cast<kit::Button&>(*window->tree().controls().front()).click();
  EXPECT_EQ(platform.journal().lines(), Lines{"updater: checkForUpdates"});
}

TEST_F(CheckForUpdatesViewTest, isDisabledWhileNoCheckMayStart) {
  show();
  setCanCheck(false);
  EXPECT_EQ(dumped(), "Button \"Check for Updates…\" disabled\n");
  setCanCheck(true);
  EXPECT_EQ(dumped(), "Button \"Check for Updates…\"\n");
}

TEST_F(CheckForUpdatesViewTest, eachViewHasAModelOfItsOwn) {
  EXPECT_NE(CheckForUpdatesView(platform.updater())._checkForUpdatesViewModel.get(),
            CheckForUpdatesView(platform.updater())._checkForUpdatesViewModel.get());
}

using CheckForUpdatesViewModelTest = CheckForUpdatesViewTest;

TEST_F(CheckForUpdatesViewModelTest, hasTheFirstValueAtOnceAndEachLaterOne) {
  const CheckForUpdatesViewModel model(platform.updater());
  EXPECT_TRUE(model.canCheckForUpdates());
  platform.updater().setCanCheckForUpdates(false);
  EXPECT_FALSE(model.canCheckForUpdates());
  EXPECT_FALSE(CheckForUpdatesViewModel(platform.updater()).canCheckForUpdates());
  platform.updater().setCanCheckForUpdates(true);
  EXPECT_TRUE(model.canCheckForUpdates());
}

TEST_F(CheckForUpdatesViewModelTest, tellsOfAChangeBeforeItIsMade) {
  CheckForUpdatesViewModel model(platform.updater());
  std::vector<bool> seen;
  const auto subscription = model.observe([&] { seen.push_back(model.canCheckForUpdates()); });
  platform.updater().setCanCheckForUpdates(false);
  EXPECT_EQ(seen, std::vector<bool>{true});
}

TEST_F(CheckForUpdatesViewModelTest, followsNothingOnceItIsGone) {
  auto model = std::make_unique<CheckForUpdatesViewModel>(platform.updater());
  int told = 0;
  const auto subscription = model->observe([&told] { ++told; });
  model.reset();
  platform.updater().setCanCheckForUpdates(false);
  EXPECT_EQ(told, 0);
}

}  // namespace
}  // namespace tarnwell::updates
