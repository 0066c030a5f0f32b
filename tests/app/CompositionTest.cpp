#include "app/Composition.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "app/HeadlessApplication.h"
#include "fixtures/StandardOutputCapture.h"

namespace tarnwell::app {
namespace {

TEST(CompositionTest, runsTheApplicationOnAPlatformThatIsHandedToIt) {
  const fixtures::StandardOutputCapture output;
  host_headless::HeadlessPlatform platform(product());
  EXPECT_EQ(run(platform), 0);
  const auto& lines = platform.journal().lines();
  EXPECT_NE(std::ranges::find(lines, "window com_apple_SwiftUI_Settings_window: shown"), lines.end());
  EXPECT_FALSE(kit::Application::isThere());
}

TEST(CompositionTest, theSettingsOpenWhenTheApplicationIsOpenedAgain) {
  const fixtures::StandardOutputCapture output;
  HeadlessApplication application;
  application.start();
  application.settingsWindow()->close();
  ASSERT_FALSE(application.settingsAreOpen());
  application.application().reopen();
  EXPECT_TRUE(application.settingsAreOpen());
}

}  // namespace
}  // namespace tarnwell::app
