#include "app/TarnwellApp.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "app/views/ApplicationActions.h"
#include "host/headless/HeadlessPlatform.h"
#include "kit/application/Application.h"
#include "view/layout/Spacer.h"

namespace tarnwell::app {
namespace {

using Lines = std::vector<std::string>;
using view::CommandGroupPlacement;

class TarnwellAppTest : public testing::Test {
 protected:
  host_headless::HeadlessPlatform platform;
  std::shared_ptr<kit::Application> application = kit::Application::create(platform);
  TarnwellApp tarnwell;
};

TEST_F(TarnwellAppTest, startsNoUpdaterBeforeItsScenesAreInstalled) { EXPECT_EQ(platform.journal().lines(), Lines{}); }

TEST_F(TarnwellAppTest, hasOneUpdaterHoweverOftenItsScenesAreMade) {
  tarnwell.body();
  tarnwell.body();
  EXPECT_EQ(platform.journal().lines(), Lines{"updater controller made"});
}

TEST_F(TarnwellAppTest, hasALauncherAnExtraAndTheSettingsInThisOrder) {
  const auto scenes = tarnwell.body();
  ASSERT_EQ(scenes.size(), 3U);
  EXPECT_EQ(std::get<view::WindowGroup>(scenes[0]).id, "settingslauncher");
  EXPECT_EQ(std::get<view::MenuBarExtra>(scenes[1]).title, "Utility App");
  EXPECT_EQ(std::get<view::MenuBarExtra>(scenes[1]).systemImage, "dock.rectangle");
  EXPECT_TRUE(std::holds_alternative<view::Settings>(scenes[2]));
}

TEST_F(TarnwellAppTest, replacesFourGroupsInThisOrderAndOneByNothing) {
  const auto scenes = tarnwell.body();
  const auto& commands = std::get<view::WindowGroup>(scenes[0]).commands;
  std::vector<CommandGroupPlacement> replaced;
  std::ranges::transform(commands, std::back_inserter(replaced), &view::CommandGroup::replacing);
  EXPECT_EQ(replaced, (std::vector{CommandGroupPlacement::appInfo, CommandGroupPlacement::newItem,
                                   CommandGroupPlacement::toolbar, CommandGroupPlacement::help}));
  EXPECT_NE(commands.at(1).content.valueIf<view::EmptyView>(), nullptr);
}

TEST(ApplicationActionsDeathTest, withoutAnApplicationAnEntryIsAFault) {
  EXPECT_DEATH(showAboutPanel(), "tarnwell: there is no application");
  EXPECT_DEATH(terminate(), "tarnwell: there is no application");
}

}  // namespace
}  // namespace tarnwell::app
