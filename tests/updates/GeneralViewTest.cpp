#include "updates/GeneralView.h"

#include <gtest/gtest.h>

#include "host/headless/HeadlessPlatform.h"
#include "kit/application/Application.h"
#include "kit/controls/buttons/Toggle.h"
#include "view/scenes/HostedWindow.h"
#include "view/tree/MountedNode.h"

namespace tarnwell::updates {
namespace {

using Lines = std::vector<std::string>;

class GeneralViewTest : public testing::Test {
 protected:
  view::EnvironmentValues environment() { return view::EnvironmentValues().withObject(std::make_shared<UpdaterEnv>()); }

  void mount(const view::EnvironmentValues& environment) {
    window.emplace(application->turn(), platform.host(),
                   view::HostedWindow::Content{.view = GeneralView{}, .environment = environment});
  }

  void open() {
    platform.journal().clear();
    window->open();
  }

  Lines updaterCalls() {
    Lines calls = platform.journal().lines();
    std::erase_if(calls, [](const std::string& line) { return !line.starts_with("updater: "); });
    return calls;
  }

  kit::Toggle& toggle(const std::string& name) {
    for (kit::Control* control : window->tree().controls()) {
      auto* found = dynamic_cast<kit::Toggle*>(control);
      if (found != nullptr && found->accessibleName() == name) {
        return *found;
      }
    }
    throw std::logic_error("no switch " + name);
  }

  bool checks() { return toggle("Check for updates automatically").isOn(); }
  bool downloads() { return toggle("Download updates automatically").isOn(); }

  host_headless::HeadlessPlatform platform;
  std::shared_ptr<kit::Application> application = kit::Application::create(platform);
  std::optional<view::HostedWindow> window;
};

TEST_F(GeneralViewTest, bothSwitchesAreOffUntilItIsShown) {
  platform.updater().preferences() = {.checks = true, .downloads = true};
  mount(environment());
  EXPECT_FALSE(checks());
  EXPECT_FALSE(downloads());
  open();
  EXPECT_TRUE(checks());
  EXPECT_TRUE(downloads());
}

TEST_F(GeneralViewTest, whatDiffersIsWrittenBackChecksFirst) {
  platform.updater().preferences() = {.checks = true, .downloads = true};
  mount(environment());
  open();
  EXPECT_EQ(updaterCalls(),
            (Lines{"updater: automaticallyChecksForUpdates = 1", "updater: automaticallyDownloadsUpdates = 1"}));
}

TEST_F(GeneralViewTest, everyShowingReadsTheUpdaterAgain) {
  mount(environment());
  open();
  EXPECT_EQ(updaterCalls(), Lines{});
  window->close();
  platform.updater().preferences() = {.checks = false, .downloads = true};
  open();
  EXPECT_TRUE(downloads());
  EXPECT_EQ(updaterCalls(), Lines{"updater: automaticallyDownloadsUpdates = 1"});
  window->close();
  open();
  EXPECT_EQ(updaterCalls(), Lines{});
}

using GeneralViewDeathTest = GeneralViewTest;

TEST_F(GeneralViewDeathTest, endsTheProcessWithoutAnUpdater) {
  EXPECT_DEATH(mount({}), "No ObservableObject of type UpdaterEnv found");
}

}  // namespace
}  // namespace tarnwell::updates
